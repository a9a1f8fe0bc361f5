#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlbase/TLRect.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLRubberBand;
class TLEditor;
class TLFeatureLayer;
class TLSnapTool;

// Digitizes an annulus from a typed inner radius, a typed outer radius and a centre, clicked or
// typed: one polygon whose hole is the inner circle, both sampled at whole degrees.
class TL_ACTIONEX_EXPORT TLCmdDigitizeRing : public TLTool {
public:
    TLCmdDigitizeRing();
    explicit TLCmdDigitizeRing(TLToolBuddy* buddy);
    ~TLCmdDigitizeRing() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;

    // Writes the sampled outer and inner circles as one polygon in one "add feature" step; false,
    // with nothing written, while either has no samples. `rect` grows by its bound in map
    // coordinates.
    bool EndEntity(TLRect& rect);
    void Reset();
    // An editor and an edit layer that is open for editing.
    bool CanEdit() const;

private:
    bool typeInnerRadius(const TLString& text);
    bool typeOuterRadius(const TLString& text);
    bool typeCentre(const TLString& text);
    // Samples both circles about `center` and writes the ring; false, with the tool still
    // waiting for the centre, when a radius is too small.
    bool buildRing();
    void resetBands(int type);
    // The ring about the pointer; false when a radius is too small to draw.
    bool showPreview(const TLPoint& cursor);
    static void showCircle(TLRubberBand* band, const std::vector<TLPoint>& samples);

    TLRubberBand* rubberBand = nullptr;
    TLRubberBand* secondBand = nullptr;
    TLEditor* editor = nullptr;
    TLFeatureLayer* layer = nullptr;
    std::vector<TLPoint> outerPoints;
    std::vector<TLPoint> innerPoints;
    // -1 waits for the inner radius, 0 for the outer radius, 1 for the centre.
    int step = -1;
    TLString mode;
    char awaitingMode = 1;
    char previewActive = 0;
    TLPoint firstVertex;
    double innerRadius = 0.0;
    double outerRadius = 0.0;
    TLPoint center;
    TLSnapTool* snapTool = nullptr;
    char lastMoveSnapped = 0;
};

}  // namespace TMObjects
