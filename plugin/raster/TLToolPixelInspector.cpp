#include "raster/TLToolPixelInspector.h"

#include "raster/TLRasterToolKit.h"
#include "raster/TmPixelInspector.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

TLToolPixelInspector::TLToolPixelInspector() = default;

TLToolPixelInspector::TLToolPixelInspector(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolPixelInspector::~TLToolPixelInspector() {
    stopMeasuring();
    delete mDialog;
}

void TLToolPixelInspector::activate() {
    mActive = true;
    if (mBuddy) {
        mBuddy->SetCursor(2);
        if (!mDialog) {
            mDialog = new TmPixelInspector;
            TLRasterToolKit::attachToMainWindow(mDialog, mBuddy);
        }
    }
    if (mDialog) mDialog->setBuddy(mBuddy);
    mHasRaster = TLRasterToolKit::hasRaster(mBuddy);
}

void TLToolPixelInspector::deactivate() {
    if (mBuddy) {
        if (mDialog) mDialog->hide();
        delete mDialog;
        mBuddy->UnregisterTool(this, false);
        mBuddy = nullptr;
    }
    TLTool::deactivate();
}

void TLToolPixelInspector::CreateRubberBand() {
    delete mGridBand;
    mGridBand = nullptr;
    TLMapView* view = TLRasterToolKit::view(mBuddy);
    if (!view) return;
    mGridBand = new TLRubberBand(view, TLRubberBand::LineBand);
    mGridBand->SetPenStyle(TLPen::SolidLine, 1.0, TLColor(0, 0, 0));
}

void TLToolPixelInspector::stopMeasuring() {
    if (!mGridBand) return;
    mGridBand->Clear();
    mGridBand->Update();
    delete mGridBand;
    mGridBand = nullptr;
}

bool TLToolPixelInspector::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy) return true;
    const TLPoint p = ToMapCoordinates(TLPoint(x, y), nullptr);
    if (button == TLLeftButton) {
        CreateRubberBand();
        DisplayViewPixelVal(p.x, p.y, true);
    }
    return true;
}

bool TLToolPixelInspector::OnMouseUp(TLMouseButton, int, int) {
    stopMeasuring();
    return true;
}

void TLToolPixelInspector::DisplayViewPixelVal(double x, double y, bool show) {
    if (show && mHasRaster && mDialog) {
        mDialog->setWindowFlags(mDialog->windowFlags() | Qt::WindowStaysOnTopHint);
        mDialog->show();
        if (x == 0.0 && y == 0.0) return;
        mDialog->setPoint(x, y, mGridBand);
    } else if (mDialog) {
        mDialog->hide();
    }
}

TmPixelInspector* TLToolPixelInspector::dialog() const {
    return mDialog;
}

}  // namespace TMObjects
