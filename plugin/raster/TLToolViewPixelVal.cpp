#include "raster/TLToolViewPixelVal.h"

#include "raster/TLRasterToolKit.h"
#include "raster/TMViewPixelVal.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

TLToolViewPixelVal::TLToolViewPixelVal() = default;

TLToolViewPixelVal::TLToolViewPixelVal(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolViewPixelVal::~TLToolViewPixelVal() {
    delete mDialog;
}

void TLToolViewPixelVal::activate() {
    mActive = true;
    if (mBuddy) {
        mBuddy->SetCursor(2);
        if (!mDialog) mDialog = new TMViewPixelVal;
        TLRasterToolKit::attachToMainWindow(mDialog, mBuddy);
    }
    if (mDialog) mDialog->setBuddy(mBuddy);
    mHasRaster = TLRasterToolKit::hasRaster(mBuddy);
}

void TLToolViewPixelVal::deactivate() {
    if (mBuddy) {
        if (mDialog) mDialog->hide();
        delete mDialog;
        mBuddy->UnregisterTool(this, false);
        mBuddy = nullptr;
    }
    TLTool::deactivate();
}

bool TLToolViewPixelVal::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy) return true;
    const TLPoint p = ToMapCoordinates(TLPoint(x, y), nullptr);
    if (button == TLLeftButton) DisplayViewPixelVal(p.x, p.y, true);
    return true;
}

void TLToolViewPixelVal::DisplayViewPixelVal(double x, double y, bool show) {
    if (show && mHasRaster && mDialog) {
        mDialog->setWindowFlags(mDialog->windowFlags() | Qt::WindowStaysOnTopHint);
        mDialog->show();
        if (x == 0.0 && y == 0.0) return;
        mDialog->setPoint(x, y);
    } else if (mDialog) {
        mDialog->hide();
    }
}

TMViewPixelVal* TLToolViewPixelVal::dialog() const {
    return mDialog;
}

}  // namespace TMObjects
