#pragma once

#include <QPointer>

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

class TMSlopeCalculationDlg;

namespace TMObjects {

// Reports the slope of an elevation raster at the point released on, in its dialog; the
// user may also type a point there and press "Calculate". Closing the dialog ends the tool.
class TL_ACTIONEX_EXPORT TLSlopeCalculation : public TLTool {
public:
    TLSlopeCalculation();
    explicit TLSlopeCalculation(TLToolBuddy* buddy);
    ~TLSlopeCalculation() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;

    TMSlopeCalculationDlg* dialog() const;

protected:
    void DisplaySlopeCalculationDlg(double x, double y);

private:
    QPointer<TMSlopeCalculationDlg> mDialog;
    // A dialog let go whose deletion waits for the event loop.
    QPointer<TMSlopeCalculationDlg> mRetired;
};

}  // namespace TMObjects
