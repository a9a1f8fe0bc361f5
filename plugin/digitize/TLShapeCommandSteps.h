#pragma once

#include <vector>

#include "tlbase/TLPoint.h"
#include "tlbase/TLRect.h"

namespace TMObjects {

class TLTool;
class TLToolBuddy;
class TLEditor;
class TLFeatureLayer;
class TLMapView;
class TLRubberBand;
class TLSnapTool;

// What the commands that draw one computed polygon (square, rectangle, regular polygon, freehand
// rectangle, circle, ellipse, arrow, flag) do alike around their constructions: finding the layer
// they draw into, making and dropping their band and snap tool, reading the pointer with snapping,
// and writing the finished band as one undoable feature. The commands keep their state in their own
// fields and pass them in.
class TLShapeCommandSteps {
public:
    // ---- layer ----

    // The editor of the buddy's map and its edit layer as a feature layer; false when there is
    // no feature layer to edit. The buddy must have a map view.
    static bool FindEditLayer(TLToolBuddy* buddy, TLEditor*& editor, TLFeatureLayer*& layer);
    // An editor and a usable layer that is open for editing.
    static bool CanEdit(const TLEditor* editor, const TLFeatureLayer* layer);
    static bool IsPolygonLayer(const TLFeatureLayer* layer);

    // ---- life cycle ----

    // A polygon band with the look of every drawing band: red outline, light red fill.
    static TLRubberBand* MakeBand(TLMapView* view);
    // Takes what the band shows off the view and deletes it.
    static void DropBand(TLRubberBand*& band);
    static TLSnapTool* MakeSnapTool(TLToolBuddy* buddy);
    static void DropSnapTool(TLSnapTool*& snapTool);
    // The history lines and prompt of a command picked on a polygon layer, or the refusal of
    // any other layer; the command stays registered in both cases.
    static void Announce(TLToolBuddy* buddy, const TLFeatureLayer* layer, const char* layerLine,
                         const char* commandLine, const char* firstPrompt);
    // Empties the prompt, gives up the command line and forgets the buddy.
    static void Leave(TLTool* tool, TLToolBuddy*& buddy);

    // ---- texts ----

    static void Prompt(TLToolBuddy* buddy, const char* text);
    static void Message(TLToolBuddy* buddy, const char* text);
    // A press on a layer of another kind.
    static void RefusePress(TLToolBuddy* buddy);
    // A typed line while the layer cannot be edited. The wording names the line layer, as the
    // shape commands have always said.
    static void RefuseTypedLine(TLToolBuddy* buddy);

    // ---- pointer ----

    // The map point under the pointer during a move, moved onto the snap target when snapping
    // is on. Makes the snap tool if the command has none.
    static TLPoint MovePoint(TLTool& tool, TLToolBuddy* buddy, TLSnapTool*& snapTool, int x, int y);
    // The same, telling in `snapped` whether a snap target was found.
    static TLPoint MovePoint(TLTool& tool, TLToolBuddy* buddy, TLSnapTool*& snapTool, int x, int y,
                             bool& snapped);
    // The snap marker of the last move, after the band has been drawn.
    static void DrawSnapMarker(TLToolBuddy* buddy, TLSnapTool* snapTool);
    // The map point of a press. It takes the snap target the last move found; a press searches
    // nothing itself.
    static TLPoint PressPoint(TLTool& tool, TLSnapTool* snapTool, int x, int y);
    // Lets the pointer snap to what the band shows after a vertex was added.
    static void CacheDrawnShape(TLSnapTool* snapTool, TLRubberBand* band);

    // ---- band ----

    // The band shows a polygon of these vertices from now on.
    static void ShowRing(TLRubberBand* band, const std::vector<TLPoint>& ring);
    // The band shows the segment from `a` to `b` as a line.
    static void ShowSegment(TLRubberBand* band, const TLPoint& a, const TLPoint& b);
    // Appends a point to the band's first part, opening it on an empty band.
    static void AddToBand(TLRubberBand* band, const TLPoint& p);

    // ---- commit ----

    // The band's geometry becomes a new feature of the layer inside one "add feature" operation,
    // projected from the map's coordinate system into the layer's; `rect` grows by its bound in
    // map coordinates. The operation is committed also when the band gives no geometry, so that
    // no step stays open. The layer's selection is cleared afterwards.
    static void AddBandFeature(TLToolBuddy* buddy, TLEditor* editor, TLFeatureLayer* layer,
                               TLRubberBand* band, TLRect& rect);
    // The same write, leaving the layer's selection as it is, as the curves and the plotted
    // symbols do.
    static void WriteBandFeature(TLToolBuddy* buddy, TLEditor* editor, TLFeatureLayer* layer,
                                 TLRubberBand* band, TLRect& rect);
    // Redraws the map where the feature went.
    static void RefreshMap(TLToolBuddy* buddy, const TLRect& rect);
    // The double click of the square and the freehand rectangle: whatever is under way is
    // dropped and nothing is written. False when the layer cannot be edited or is a point layer.
    static bool DiscardOnDoubleClick(TLToolBuddy* buddy, TLEditor* editor, TLFeatureLayer* layer,
                                     std::vector<TLPoint>& points, TLRubberBand* band);
};

}  // namespace TMObjects
