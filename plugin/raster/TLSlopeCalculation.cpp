#include "raster/TLSlopeCalculation.h"

#include "raster/TLTerrainToolSteps.h"
#include "raster/TMSlopeCalculationDlg.h"

namespace TMObjects {

TLSlopeCalculation::TLSlopeCalculation() = default;

TLSlopeCalculation::TLSlopeCalculation(TLToolBuddy* buddy) : TLTool(buddy) {}

TLSlopeCalculation::~TLSlopeCalculation() {
    delete mDialog;
    delete mRetired;
}

void TLSlopeCalculation::activate() {
    mActive = true;
    if (mBuddy) mBuddy->SetCursor(13);
}

void TLSlopeCalculation::deactivate() {
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    TLTerrainToolSteps::retire(mDialog, mRetired);
    TLTool::deactivate();
}

bool TLSlopeCalculation::OnMouseDown(TLMouseButton, int, int) {
    return true;
}

bool TLSlopeCalculation::OnMouseMove(TLMouseButton, int, int) {
    return true;
}

bool TLSlopeCalculation::OnMouseUp(TLMouseButton button, int x, int y) {
    if (button != TLLeftButton) return true;
    if (!mBuddy) return false;
    const TLPoint p = ToMapCoordinates(TLPoint(x, y), nullptr);
    DisplaySlopeCalculationDlg(p.x, p.y);
    return true;
}

void TLSlopeCalculation::DisplaySlopeCalculationDlg(double x, double y) {
    TLTerrainToolSteps::showDialog(mDialog, this, mBuddy,
                                   [x, y](TMSlopeCalculationDlg* d) { d->currentMousePos(x, y); });
}

TMSlopeCalculationDlg* TLSlopeCalculation::dialog() const {
    return mDialog;
}

}  // namespace TMObjects
