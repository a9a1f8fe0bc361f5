#include "raster/TLAspectCalculation.h"

#include "raster/TLTerrainToolSteps.h"
#include "raster/TMAspectCalculationDlg.h"

namespace TMObjects {

TLAspectCalculation::TLAspectCalculation() = default;

TLAspectCalculation::TLAspectCalculation(TLToolBuddy* buddy) : TLTool(buddy) {}

TLAspectCalculation::~TLAspectCalculation() {
    delete mDialog;
    delete mRetired;
}

void TLAspectCalculation::activate() {
    mActive = true;
    if (mBuddy) mBuddy->SetCursor(13);
}

void TLAspectCalculation::deactivate() {
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    TLTerrainToolSteps::retire(mDialog, mRetired);
    TLTool::deactivate();
}

bool TLAspectCalculation::OnMouseDown(TLMouseButton, int, int) {
    return true;
}

bool TLAspectCalculation::OnMouseMove(TLMouseButton, int, int) {
    return true;
}

bool TLAspectCalculation::OnMouseUp(TLMouseButton button, int x, int y) {
    if (button != TLLeftButton) return true;
    if (!mBuddy) return false;
    const TLPoint p = ToMapCoordinates(TLPoint(x, y), nullptr);
    DisplayAspectCalculationDlg(p.x, p.y);
    return true;
}

void TLAspectCalculation::DisplayAspectCalculationDlg(double x, double y) {
    TLTerrainToolSteps::showDialog(mDialog, this, mBuddy,
                                   [x, y](TMAspectCalculationDlg* d) { d->currentMousePos(x, y); });
}

TMAspectCalculationDlg* TLAspectCalculation::dialog() const {
    return mDialog;
}

}  // namespace TMObjects
