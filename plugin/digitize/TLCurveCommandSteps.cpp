#include "digitize/TLCurveCommandSteps.h"

#include "digitize/TLShapeCommandSteps.h"
#include "tlmap/TLDrawCommonTool.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

using Steps = TLShapeCommandSteps;

const char* const kNotPolygonLayer =
    "The current layer is not a polygon layer. Please select the polygon layer editor!";

void refuseLayer(TLToolBuddy* buddy) {
    Steps::Message(buddy, kNotPolygonLayer);
    Steps::Prompt(buddy, "Layer error");
}

}  // namespace

bool TLCurveCommandSteps::Attach(TLToolBuddy* buddy, TLEditor*& editor, TLFeatureLayer*& layer) {
    // Nothing of an earlier activation may stay: the map may have changed since.
    editor = nullptr;
    layer = nullptr;
    if (!buddy || !buddy->GetMapView()) return false;
    return Steps::FindEditLayer(buddy, editor, layer);
}

void TLCurveCommandSteps::Announce(TLToolBuddy* buddy, const TLFeatureLayer* layer,
                                   const char* commandLine, const char* menu) {
    if (Steps::IsPolygonLayer(layer)) {
        Steps::Message(buddy, "The current input layer is:*******polygon*******");
        Steps::Message(buddy, commandLine);
        Steps::Prompt(buddy, menu);
    } else {
        Steps::Prompt(buddy, "Command:");
        Steps::Message(buddy, kNotPolygonLayer);
    }
}

void TLCurveCommandSteps::FollowEditLayer(const TLEditor* editor, TLFeatureLayer*& layer) {
    if (editor) layer = dynamic_cast<TLFeatureLayer*>(editor->edit_layer());
}

bool TLCurveCommandSteps::PressAllowed(TLToolBuddy* buddy, const TLEditor* editor,
                                       TLFeatureLayer*& layer) {
    return PressAllowed(buddy, editor, layer, TLLayer::PolygonLayer, kNotPolygonLayer);
}

bool TLCurveCommandSteps::TypedLineAllowed(TLToolBuddy* buddy, const TLEditor* editor,
                                           TLFeatureLayer*& layer) {
    if (!buddy) return false;
    // The kind of the layer is not asked: a typed shape goes into whatever layer is being
    // edited, and the store refuses at saving what the layer cannot hold.
    if (Steps::CanEdit(editor, layer)) return true;
    refuseLayer(buddy);
    return false;
}

bool TLCurveCommandSteps::CanDrawOn(const TLFeatureLayer* layer) {
    return CanDrawOn(layer, TLLayer::PolygonLayer);
}

bool TLCurveCommandSteps::PressAllowed(TLToolBuddy* buddy, const TLEditor* editor,
                                       TLFeatureLayer*& layer, TLLayer::LayerType kind,
                                       const char* refusal) {
    if (!buddy || !Steps::CanEdit(editor, layer)) return false;
    if (layer->GetLayerType() == kind) return true;
    Steps::Message(buddy, refusal);
    Steps::Prompt(buddy, "Layer error");
    return false;
}

bool TLCurveCommandSteps::TypedLineAllowed(TLToolBuddy* buddy, const TLEditor* editor,
                                           TLFeatureLayer*& layer, TLLayer::LayerType kind) {
    if (!buddy) return false;
    if (Steps::CanEdit(editor, layer) && layer->GetLayerType() == kind) return true;
    refuseLayer(buddy);
    return false;
}

bool TLCurveCommandSteps::CanDrawOn(const TLFeatureLayer* layer, TLLayer::LayerType kind) {
    return layer && layer->IsValid() && layer->IsEditable() && layer->GetLayerType() == kind;
}

void TLCurveCommandSteps::TakeMenuChoice(const TLString& text, char& awaitingMode, TLString& mode,
                                         TLString& mouseMode) {
    if (awaitingMode != 1) return;
    if (text == TLString("1") || text == TLString("2") || text == TLString("3") ||
        text == TLString("4")) {
        mode = text;
        mouseMode = text;
        awaitingMode = 0;
    }
}

void TLCurveCommandSteps::RefusePoint(TLToolBuddy* buddy, const char* prompt) {
    Steps::Message(buddy, "point coordinate input error,please re-enter!");
    Steps::Prompt(buddy, prompt);
}

void TLCurveCommandSteps::RefuseCommand(TLToolBuddy* buddy, const char* prompt) {
    Steps::Message(buddy, "Command input error,please re-enter!");
    Steps::Prompt(buddy, prompt);
}

bool TLCurveCommandSteps::ReadPoint(TLToolBuddy* buddy, const TLString& text, TLPoint& point,
                                    const char* prompt) {
    double x = 0, y = 0;
    if (!TLDrawCommonTool::ReadInputPoint(text, x, y)) {
        RefusePoint(buddy, prompt);
        return false;
    }
    point = TLPoint(x, y);
    return true;
}

void TLCurveCommandSteps::AfterCommit(TLToolBuddy* buddy, TLRubberBand* band,
                                      std::vector<TLPoint>& points, const TLRect& rect) {
    points.clear();
    band->Reset(TLRubberBand::PolygonBand);
    // Repainted at once, so that the written shape is not drawn twice until the next move.
    band->Update();
    Steps::RefreshMap(buddy, rect);
}

}  // namespace TMObjects
