#pragma once

#include <QPointer>

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

class TmPixelInspector;

namespace TMObjects {

class TLRubberBand;

// Shows the 5 by 5 cells around the click, band by band, and draws their grid on the map while
// the button is held; read-only.
class TL_ACTIONEX_EXPORT TLToolPixelInspector : public TLTool {
public:
    TLToolPixelInspector();
    explicit TLToolPixelInspector(TLToolBuddy* buddy);
    ~TLToolPixelInspector() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;

    void DisplayViewPixelVal(double x, double y, bool show);

    TmPixelInspector* dialog() const;
    TLRubberBand* gridBand() const { return mGridBand; }

private:
    void CreateRubberBand();
    void stopMeasuring();

    bool mHasRaster = false;
    QPointer<TmPixelInspector> mDialog;
    TLRubberBand* mGridBand = nullptr;
};

}  // namespace TMObjects
