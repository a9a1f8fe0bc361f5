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

// Digitizes an ellipse as a polygon of computed vertices, by its centre and the ends of its two
// axes (mode 1) or by its centre and the two axis lengths (mode 2). The first axis sets the
// ellipse's direction; only the distance of the second axis end counts.
class TL_ACTIONEX_EXPORT TLCmdDigitizeEllipse : public TLTool {
public:
    TLCmdDigitizeEllipse();
    explicit TLCmdDigitizeEllipse(TLToolBuddy* buddy);
    ~TLCmdDigitizeEllipse() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;

    // Writes what the band shows as one polygon feature in one "add feature" step; `rect` grows
    // by its bound in map coordinates.
    bool EndEntity(TLRect& rect);
    void Reset();

private:
    bool pressByAxisEnds(const TLPoint& click);
    bool pressByAxisLengths(const TLPoint& click);
    void showPreview(const TLPoint& cursor);

    bool typeByAxisEnds(const TLString& text);
    bool typeByAxisLengths(const TLString& text);

    // The ellipse about `firstPoint` whose first axis ends at `axisEnd` and whose second axis is
    // as long as the distance to `across`.
    std::vector<TLPoint> samples(const TLPoint& axisEnd, const TLPoint& across) const;
    // Writes the ellipse of the three points collected and returns to the menu.
    void finish();

    TLRubberBand* rubberBand = nullptr;
    TLEditor* editor = nullptr;
    TLFeatureLayer* layer = nullptr;
    std::vector<TLPoint> points;
    int step = -1;
    TLPoint firstPoint;
    TLPoint secondPoint;
    TLPoint thirdPoint;
    TLString mouseMode = TLString("1");
    TLString mode;
    char awaitingMode = 1;
    char previewActive = 0;
};

}  // namespace TMObjects
