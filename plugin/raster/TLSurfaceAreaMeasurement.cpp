#include "raster/TLSurfaceAreaMeasurement.h"

#include "TLToolText.h"
#include "raster/TLRasterToolKit.h"
#include "raster/TLTerrainToolSteps.h"
#include "raster/TMSurfaceAreaMeasurementDlg.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"

namespace TMObjects {

namespace {

const char* const kNoLayers = "Please first load the raster layer!";

TLRubberBand* measureBand(TLMapView* view, TLRubberBand::RubberBandType type) {
    auto* band = new TLRubberBand(view, type);
    band->SetPenStyle(TLPen::SolidLine, 1.0, TLColor(255, 0, 0));
    band->SetBrushStyle(TLBrush::SolidPattern, TLColor(255, 0, 0, 50));
    return band;
}

}  // namespace

TLSurfaceAreaMeasurement::TLSurfaceAreaMeasurement() = default;

TLSurfaceAreaMeasurement::TLSurfaceAreaMeasurement(TLToolBuddy* buddy) : TLTool(buddy) {}

TLSurfaceAreaMeasurement::~TLSurfaceAreaMeasurement() {
    delete mRubberBand;
    delete mDialog;
    delete mRetired;
}

void TLSurfaceAreaMeasurement::activate() {
    mActive = true;
    if (mBuddy) mBuddy->SetCursor(13);
}

void TLSurfaceAreaMeasurement::deactivate() {
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    if (mRubberBand) {
        mRubberBand->Reset(TLRubberBand::PolygonBand);
        mRubberBand->Update();
        delete mRubberBand;
        mRubberBand = nullptr;
    }
    if (mDialog) mDialog->setRubberBand(nullptr);
    mPoints.clear();
    TLTerrainToolSteps::retire(mDialog, mRetired);
    TLTool::deactivate();
}

void TLSurfaceAreaMeasurement::DisplaySurfaecAreaMeasurementDlg() {
    TLTerrainToolSteps::showDialog(mDialog, this, mBuddy);
}

bool TLSurfaceAreaMeasurement::OnMouseDown(TLMouseButton button, int x, int y) {
    if (button != TLLeftButton || !mBuddy) return false;
    DisplaySurfaecAreaMeasurementDlg();
    if (!mDialog) return false;
    if (!mDialog->selectDrawRange()) return true;
    TLMapView* view = TLRasterToolKit::view(mBuddy);
    if (!mRubberBand && view) mRubberBand = measureBand(view, TLRubberBand::PolygonBand);
    mDialog->setRubberBand(mRubberBand);
    mDialog->setDrawing(true);
    if (!view) return true;
    TLMap* map = view->GetMap();
    if (!map || map->GetLayerCount() == 0) {
        mBuddy->ShowMessage(toolText(kNoLayers));
        mDialog->setDrawing(false);
        return true;
    }
    const TLPoint p = ToMapCoordinates(TLPoint(x, y), nullptr);
    if (mPointCount != 0 && p == mLastPoint) return true;
    mPoints.push_back(p);
    mLastPoint = p;
    ++mPointCount;
    return true;
}

TMSurfaceAreaMeasurementDlg* TLSurfaceAreaMeasurement::drawingDialog() const {
    if (!mDialog || !mDialog->selectDrawRange() || !mDialog->drawing() || !mRubberBand ||
        !TLRasterToolKit::view(mBuddy))
        return nullptr;
    return mDialog;
}

bool TLSurfaceAreaMeasurement::OnMouseMove(TLMouseButton, int x, int y) {
    if (!drawingDialog()) return true;
    const TLPoint cursor = ToMapCoordinates(TLPoint(x, y), nullptr);
    if (mPoints.size() == 1) {
        mRubberBand->Reset(TLRubberBand::LineBand);
        mRubberBand->AddPoint(mPoints[0], -1);
        mRubberBand->AddPoint(cursor, -1);
        mRubberBand->Update();
    } else if (mPoints.size() >= 2) {
        mRubberBand->Reset(TLRubberBand::PolygonBand);
        for (const TLPoint& p : mPoints) mRubberBand->AddPoint(p, -1);
        mRubberBand->AddPoint(cursor, -1);
        mRubberBand->AddPoint(mPoints[0], -1);
        mRubberBand->Update();
    }
    return true;
}

bool TLSurfaceAreaMeasurement::OnDblClick(TLMouseButton button, int x, int y) {
    if (button != TLLeftButton) return true;
    TMSurfaceAreaMeasurementDlg* dialog = drawingDialog();
    if (!dialog) return false;
    TLMap* map = TLRasterToolKit::map(mBuddy);
    if (!map || map->GetLayerCount() == 0) {
        mBuddy->ShowMessage(toolText(kNoLayers));
        dialog->setDrawing(false);
        return false;
    }
    ToMapCoordinates(TLPoint(x, y), nullptr);
    if (mPointCount > 1) {
        mRubberBand->Reset(TLRubberBand::PolygonBand);
        for (const TLPoint& p : mPoints) mRubberBand->AddPoint(p, -1);
        if (!mPoints.empty()) mRubberBand->AddPoint(mPoints[0], -1);
        mRubberBand->Update();
        if (!mPoints.empty()) mPoints.push_back(mPoints[0]);
        dialog->measure(mPoints);
        mPoints.clear();
        dialog->setDrawing(false);
    }
    return true;
}

TMSurfaceAreaMeasurementDlg* TLSurfaceAreaMeasurement::dialog() const {
    return mDialog;
}

}  // namespace TMObjects
