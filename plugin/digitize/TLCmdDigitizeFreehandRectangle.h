#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLRubberBand;
class TLEditor;
class TLFeatureLayer;
class TLSnapTool;

// Digitizes one rectangle of any orientation from three clicks: a corner, a point that gives
// the direction of the first edge, and the opposite corner. Typed lines only give up (U) or
// finish with the last preview (E).
class TL_ACTIONEX_EXPORT TLCmdDigitizeFreehandRectangle : public TLTool {
public:
    TLCmdDigitizeFreehandRectangle();
    explicit TLCmdDigitizeFreehandRectangle(TLToolBuddy* buddy);
    ~TLCmdDigitizeFreehandRectangle() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;

    // Writes what the band shows as one polygon feature; false with two points or fewer or on
    // a layer that is no polygon layer.
    bool EndEntity();
    void Reset();

private:
    void pressFarCorner(const TLPoint& corner);
    void giveUp();
    void finishWithPreview();

    TLRubberBand* band = nullptr;
    TLEditor* editor = nullptr;
    TLFeatureLayer* layer = nullptr;
    std::vector<TLPoint> points;
    TLPoint secondPoint;
    std::vector<TLPoint> previewRing;
    TLSnapTool* snapTool = nullptr;
};

}  // namespace TMObjects
