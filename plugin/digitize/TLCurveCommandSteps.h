#pragma once

#include <vector>

#include "tlbase/TLPoint.h"
#include "tlbase/TLRect.h"
#include "tlbase/TLString.h"
#include "tlmap/TLLayer.h"

namespace TMObjects {

class TLToolBuddy;
class TLEditor;
class TLFeatureLayer;
class TLRubberBand;

// What the curve commands (circle, ellipse, arc, ring) do alike around their samples: the layer
// they draw into, the guards and refusals of their entry points, the menu number that picks a
// mode, and the texts they share. The commands keep their state in their own fields and pass it in.
class TLCurveCommandSteps {
public:
    // The buddy's editor and edit layer as a feature layer; both null and false without a map
    // view or a feature layer to edit.
    static bool Attach(TLToolBuddy* buddy, TLEditor*& editor, TLFeatureLayer*& layer);
    // The history lines and menu of a command picked on a polygon layer, or the refusal of any
    // other layer; the command stays registered in both cases.
    static void Announce(TLToolBuddy* buddy, const TLFeatureLayer* layer, const char* commandLine,
                         const char* menu);

    // The editor's edit layer as it is now. The curve commands take it on activate and again on
    // every pointer move, and nowhere else: a press, a double click or a typed line acts on the
    // layer the last move found.
    static void FollowEditLayer(const TLEditor* editor, TLFeatureLayer*& layer);
    // Whether a press may act on the layer. A layer that cannot be edited is passed over in
    // silence; a layer of another kind is refused on the command window.
    static bool PressAllowed(TLToolBuddy* buddy, const TLEditor* editor, TLFeatureLayer*& layer);
    // Whether a typed line may act on the layer: only a missing or uneditable layer is refused.
    // A layer of another kind takes the typed shape, and the store refuses it at saving.
    static bool TypedLineAllowed(TLToolBuddy* buddy, const TLEditor* editor,
                                 TLFeatureLayer*& layer);
    // Whether the pointer may draw a preview on the layer.
    static bool CanDrawOn(const TLFeatureLayer* layer);

    // The same three guards for a command that draws into layers of `kind` (the arc): a press on
    // another kind is refused with `refusal`, a typed line with the polygon wording all curves
    // share.
    static bool PressAllowed(TLToolBuddy* buddy, const TLEditor* editor, TLFeatureLayer*& layer,
                             TLLayer::LayerType kind, const char* refusal);
    static bool TypedLineAllowed(TLToolBuddy* buddy, const TLEditor* editor, TLFeatureLayer*& layer,
                                 TLLayer::LayerType kind);
    static bool CanDrawOn(const TLFeatureLayer* layer, TLLayer::LayerType kind);

    // Until a menu number was typed, "1" to "4" picks the mode of both clicks and typed text.
    static void TakeMenuChoice(const TLString& text, char& awaitingMode, TLString& mode,
                               TLString& mouseMode);

    // A typed point that cannot be read, or a line that fits no mode: the history says so and the
    // prompt asks again.
    static void RefusePoint(TLToolBuddy* buddy, const char* prompt);
    static void RefuseCommand(TLToolBuddy* buddy, const char* prompt);
    // A typed point into `point`, or its refusal with `prompt` again and `point` untouched.
    static bool ReadPoint(TLToolBuddy* buddy, const TLString& text, TLPoint& point,
                          const char* prompt);

    // After a shape was written: the samples and the band are emptied and the map is redrawn
    // where the shape went.
    static void AfterCommit(TLToolBuddy* buddy, TLRubberBand* band, std::vector<TLPoint>& points,
                            const TLRect& rect);
};

}  // namespace TMObjects
