#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlbase/TLString.h"
#include "tlmap/TLTool.h"
#include "tlsde/TLFeature.h"

namespace TMObjects {

class TLFeatureLayer;
class TLRubberBand;

// Cuts the polygons of the edit layer along the outline of one chosen polygon of that layer.
// The user picks the cutting polygon (a click or a drag box; Shift clicks cycle through
// overlapping ones), confirms with Enter, then chooses "1" to cut every polygon it meets or "2"
// to pick the polygons to cut and confirm them with Enter. Every cut polygon loses the area the
// cutting polygon covers, and each piece left becomes a feature: the first piece keeps the
// polygon's id, the others are new features with its attributes. A piece that lies under both
// (the overlap) has two sources and is dropped: the cut erases the overlap from each target,
// and the cutting polygon itself, cut by itself under "1", stays as it was. One undoable step
// "cut feature" holds it all.
class TL_ACTIONEX_EXPORT TLToolPolygonCutPolygon : public TLTool {
public:
    TLToolPolygonCutPolygon();
    explicit TLToolPolygonCutPolygon(TLToolBuddy* buddy);
    ~TLToolPolygonCutPolygon() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;
    // Answers false whatever the base answers: it stays active and takes typed lines through
    // its registration, unlike the one-shot commands.
    bool IsCmd() override;

protected:
    // Method 1: every polygon that the cutting polygon's geometry meets, itself included.
    bool execCutOperation1();
    // Cuts the features of `ids` that the cutting polygon meets; true when an operation ran.
    bool execCutOperation2(const std::vector<int>& ids);
    // Exactly one polygon selected: it becomes the cutting polygon.
    bool operationPolygonValid();
    // Polygons to cut are selected, and not the cutting polygon alone.
    bool specifiedPolygonValid();
    void resetInfo();

private:
    void drawBox(const TLPoint& corner);
    // The features selected by the box from `anchor` to `corner` (map coordinates).
    void selectInBox(const TLPoint& corner);
    void keepOneSelected();

    TLRubberBand* band = nullptr;
    TLFeatureLayer* layer = nullptr;
    int dragButton = 0;
    TLPoint anchor;
    int stage = 0;
    int method = 0;
    TLRefPtr<TLFeature> cutFeature;

    // Which of the polygons under a Shift click is picked next; kept across picks and tools.
    static int pickCycleIndex;
};

}  // namespace TMObjects
