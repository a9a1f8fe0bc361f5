#include "raster/TLMeasurementForSurfaceDistance.h"

#include "raster/TLRasterToolKit.h"
#include "raster/TLTerrainToolSteps.h"
#include "raster/TMMeasurementForSurfaceDistanceDlg.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"

namespace TMObjects {

TLMeasurementForSurfaceDistance::TLMeasurementForSurfaceDistance() = default;

TLMeasurementForSurfaceDistance::TLMeasurementForSurfaceDistance(TLToolBuddy* buddy)
    : TLTool(buddy) {}

TLMeasurementForSurfaceDistance::~TLMeasurementForSurfaceDistance() {
    delete mRubberBand;
    delete mDialog;
    delete mRetired;
}

void TLMeasurementForSurfaceDistance::makeBand() {
    TLMapView* view = TLRasterToolKit::view(mBuddy);
    if (mRubberBand || !view) return;
    mRubberBand = new TLRubberBand(view, TLRubberBand::LineBand);
    mRubberBand->SetPenStyle(TLPen::SolidLine, 1.0, TLColor(255, 0, 0));
    mRubberBand->SetBrushStyle(TLBrush::SolidPattern, TLColor(255, 0, 0, 50));
}

void TLMeasurementForSurfaceDistance::activate() {
    mActive = true;
    if (mBuddy) mBuddy->SetCursor(13);
    makeBand();
}

void TLMeasurementForSurfaceDistance::deactivate() {
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    if (mRubberBand) {
        mRubberBand->Reset(TLRubberBand::LineBand);
        mRubberBand->Update();
        delete mRubberBand;
        mRubberBand = nullptr;
    }
    if (mDialog) mDialog->setRubberBand(nullptr);
    TLTerrainToolSteps::retire(mDialog, mRetired);
    mClickCount = 0;
    TLTool::deactivate();
}

void TLMeasurementForSurfaceDistance::DisplayMeasurementDistanceDlg() {
    TLTerrainToolSteps::showDialog(mDialog, this, mBuddy);
}

void TLMeasurementForSurfaceDistance::writePoint(int which, const TLPoint& p) {
    if (mDialog->rasterDataset() && TLRasterToolKit::view(mBuddy))
        mDialog->setPoint(which, p.x, p.y);
}

bool TLMeasurementForSurfaceDistance::OnMouseDown(TLMouseButton button, int x, int y) {
    if (button != TLLeftButton) return true;
    if (!mBuddy) return false;
    DisplayMeasurementDistanceDlg();
    if (!mDialog) return false;
    if (!TLRasterToolKit::view(mBuddy)) return true;
    makeBand();
    const TLPoint p = ToMapCoordinates(TLPoint(x, y), nullptr);
    mDialog->setRubberBand(mRubberBand);
    if (!mDialog->pickEnabled()) {
        mClickCount = 0;
        return false;
    }
    if (mClickCount == 0) {
        mRubberBand->Reset(TLRubberBand::LineBand);
        mRubberBand->Update();
        mFirstPoint = p;
        mDialog->clearFields();
        mRubberBand->Clear();
        writePoint(0, p);
        mClickCount = 1;
    } else if (p != mFirstPoint) {
        mRubberBand->Reset(TLRubberBand::LineBand);
        mRubberBand->AddPoint(mFirstPoint, -1);
        mRubberBand->AddPoint(p, -1);
        mRubberBand->Update();
        writePoint(1, p);
        mDialog->calculateDistance();
        mClickCount = 0;
    }
    return true;
}

bool TLMeasurementForSurfaceDistance::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mBuddy || !mDialog || !mRubberBand) return false;
    if (!TLRasterToolKit::view(mBuddy)) return true;
    if (mClickCount == 1) {
        mRubberBand->Reset(TLRubberBand::LineBand);
        mRubberBand->AddPoint(mFirstPoint, -1);
        mRubberBand->AddPoint(ToMapCoordinates(TLPoint(x, y), nullptr), -1);
        mRubberBand->Update();
    }
    return true;
}

TMMeasurementForSurfaceDistanceDlg* TLMeasurementForSurfaceDistance::dialog() const {
    return mDialog;
}

}  // namespace TMObjects
