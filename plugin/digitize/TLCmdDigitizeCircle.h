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

// Digitizes a circle as a polygon of computed vertices, by centre and radius (mode 1), by the two
// ends of a diameter (mode 2) or by three points on it (mode 3). Points may be clicked or typed,
// the radius of mode 1 typed as well; clicks show the circle under way through the pointer.
class TL_ACTIONEX_EXPORT TLCmdDigitizeCircle : public TLTool {
public:
    TLCmdDigitizeCircle();
    explicit TLCmdDigitizeCircle(TLToolBuddy* buddy);
    ~TLCmdDigitizeCircle() override;

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
    bool pressByCentre(const TLPoint& click);
    bool pressByDiameter(const TLPoint& click);
    bool pressByThreePoints(const TLPoint& click);
    void showPreview(const TLPoint& cursor);

    bool typeByCentre(const TLString& text);
    bool typeByDiameter(const TLString& text);
    bool typeByThreePoints(const TLString& text);

    // Shows the circle on the band; false, with nothing changed, when it is too small.
    bool showCircle(const std::vector<TLPoint>& ring, double size);
    void commit();

    TLRubberBand* rubberBand = nullptr;
    TLEditor* editor = nullptr;
    TLFeatureLayer* layer = nullptr;
    std::vector<TLPoint> points;
    int step = -1;
    TLPoint firstPoint;
    TLPoint secondPoint;
    TLPoint thirdPoint;
    TLPoint center;
    double radius = 0.0;
    TLString mouseMode = TLString("1");
    TLString mode;
    char awaitingMode = 1;
    char previewActive = 0;
};

}  // namespace TMObjects
