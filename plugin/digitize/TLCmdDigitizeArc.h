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

// Digitizes a circular arc through three points, clicked or typed, as a line of vertices at whole
// degrees about the circle through them. The arc always runs counter-clockwise, and the clicked
// points are not vertices of it.
class TL_ACTIONEX_EXPORT TLCmdDigitizeArc : public TLTool {
public:
    TLCmdDigitizeArc();
    explicit TLCmdDigitizeArc(TLToolBuddy* buddy);
    ~TLCmdDigitizeArc() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;

    // Writes what the band shows as one line feature in one "add feature" step, an empty step
    // when it shows no line; `rect` grows by its bound in map coordinates.
    bool EndEntity(TLRect& rect);
    void Reset();

private:
    void announce();
    bool typedLineAllowed();
    // The centre, radius, angles and vertices of the arc through the three points; false when
    // the circle through them is too small to draw.
    bool arcThroughPoints(std::vector<TLPoint>& arc);
    // What the pointer would make; false when it makes too small a circle.
    bool showPreview(const TLPoint& cursor);
    // Computes, writes and clears the arc through the three points; false when it was too small.
    bool finishArc();

    TLRubberBand* rubberBand = nullptr;
    TLEditor* editor = nullptr;
    TLFeatureLayer* layer = nullptr;
    int step = 0;
    TLPoint firstPoint;
    TLPoint secondPoint;
    TLPoint thirdPoint;
    TLPoint center;
    double radius = 0.0;
    double startAngle = 0.0;
    double midAngle = 0.0;
    double endAngle = 0.0;
    // The menu numbers of the other curves are taken but change nothing: an arc has one
    // construction.
    TLString mode;
    TLString mouseMode = TLString("1");
    char awaitingMode = 1;
    char previewActive = 0;
    TLSnapTool* snapTool = nullptr;
    char lastMoveSnapped = 0;
};

}  // namespace TMObjects
