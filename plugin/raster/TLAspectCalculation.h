#pragma once

#include <QPointer>

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

class TMAspectCalculationDlg;

namespace TMObjects {

// Reports the aspect of an elevation raster at the point released on, in its dialog; the
// user may also type a point there and press "Calculate". Closing the dialog ends the tool.
class TL_ACTIONEX_EXPORT TLAspectCalculation : public TLTool {
public:
    TLAspectCalculation();
    explicit TLAspectCalculation(TLToolBuddy* buddy);
    ~TLAspectCalculation() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;

    TMAspectCalculationDlg* dialog() const;

protected:
    void DisplayAspectCalculationDlg(double x, double y);

private:
    QPointer<TMAspectCalculationDlg> mDialog;
    // A dialog let go whose deletion waits for the event loop.
    QPointer<TMAspectCalculationDlg> mRetired;
};

}  // namespace TMObjects
