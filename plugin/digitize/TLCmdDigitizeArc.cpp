#include "digitize/TLCmdDigitizeArc.h"

#include <vector>

#include "digitize/TLArcSamples.h"
#include "digitize/TLCurveCommandSteps.h"
#include "digitize/TLCurveSamples.h"
#include "digitize/TLShapeCommandSteps.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

using Steps = TLShapeCommandSteps;
using Curve = TLCurveCommandSteps;
using Samples = TLArcSamples;

const char* const kFirstPrompt =
    "Please specify the first point / manually enter the first point (x, y):";
// A first point that cannot be read is asked for more briefly.
const char* const kFirstAgainPrompt = "Specify the first point:";
const char* const kSecondPrompt =
    "Please enter second points (point coordinate format comma separated x, y):";
const char* const kThirdPrompt =
    "Please enter third points (point coordinate format comma separated x, y):";
const char* const kNotLineLayer =
    "The current layer is not a line layer. Please select the line layer editor!";
const char* const kDrawn = "Command:Drawing Arc";

}  // namespace

TLCmdDigitizeArc::TLCmdDigitizeArc() = default;

TLCmdDigitizeArc::TLCmdDigitizeArc(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeArc::~TLCmdDigitizeArc() {
    delete rubberBand;
    delete snapTool;
}

void TLCmdDigitizeArc::Reset() {
    step = 0;
    awaitingMode = 1;
    previewActive = 0;
    mode = TLString("");
    mouseMode = TLString("1");
    if (snapTool) snapTool->Reset();
}

// ---- life cycle ----

void TLCmdDigitizeArc::activate() {
    mActive = true;
    Reset();
    Steps::DropBand(rubberBand);
    Steps::DropSnapTool(snapTool);
    if (!Curve::Attach(mBuddy, editor, layer)) {
        if (mBuddy && mBuddy->GetMapView()) deactivate();
        return;
    }
    rubberBand = Steps::MakeBand(mBuddy->GetMapView());
    rubberBand->Reset(TLRubberBand::LineBand);
    snapTool = Steps::MakeSnapTool(mBuddy);
    mBuddy->RegisterTool("DigitizeArc", this, true);
    announce();
}

void TLCmdDigitizeArc::announce() {
    if (layer->GetLayerType() == TLLayer::LineLayer) {
        Steps::Message(mBuddy, "The current input layer is:*******line*******");
        Steps::Message(mBuddy, kDrawn);
        Steps::Prompt(mBuddy, kFirstPrompt);
    } else {
        // The command stays registered, so that it answers each later event with the refusal.
        Steps::Prompt(mBuddy, "Command:");
        Steps::Message(mBuddy, kNotLineLayer);
    }
}

void TLCmdDigitizeArc::deactivate() {
    Reset();
    Steps::DropBand(rubberBand);
    Steps::DropSnapTool(snapTool);
    Steps::Leave(this, mBuddy);
    TLTool::deactivate();
}

// ---- pointer ----

bool TLCmdDigitizeArc::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!Curve::PressAllowed(mBuddy, editor, layer, TLLayer::LineLayer, kNotLineLayer) ||
        !rubberBand)
        return false;
    // Any press drops the preview; only the left button goes on.
    rubberBand->Reset(TLRubberBand::LineBand);
    rubberBand->Update();
    if (button != TLLeftButton) return true;
    // Only a position the last move snapped to is taken; a press searches nothing itself.
    const TLPoint click = lastMoveSnapped ? Steps::PressPoint(*this, snapTool, x, y)
                                          : ToMapCoordinates(TLPoint(x, y), nullptr);
    if (step == 0) {
        firstPoint = click;
        previewActive = 1;
        step = 1;
        Steps::Prompt(mBuddy, kSecondPrompt);
    } else if (step == 1) {
        secondPoint = click;
        step = 2;
        Steps::Prompt(mBuddy, kThirdPrompt);
    } else {
        thirdPoint = click;
        if (!finishArc()) return false;
        Steps::Message(mBuddy, kDrawn);
        Steps::Prompt(mBuddy, kFirstPrompt);
        // The press that finishes an arc has always answered so; the tool is ready all the same.
        return false;
    }
    return true;
}

bool TLCmdDigitizeArc::OnMouseUp(TLMouseButton, int, int) {
    return true;
}

bool TLCmdDigitizeArc::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mBuddy || !editor) return false;
    Curve::FollowEditLayer(editor, layer);
    if (!Curve::CanDrawOn(layer, TLLayer::LineLayer) || !rubberBand) return false;
    bool snapped = false;
    const TLPoint cursor = Steps::MovePoint(*this, mBuddy, snapTool, x, y, snapped);
    lastMoveSnapped = snapped ? 1 : 0;
    rubberBand->Reset(TLRubberBand::LineBand);
    if (previewActive && !showPreview(cursor)) {
        rubberBand->Update();
        return false;
    }
    rubberBand->Update();
    if (lastMoveSnapped) Steps::DrawSnapMarker(mBuddy, snapTool);
    return true;
}

// The chord to the pointer after one point; after two, both chords and the arc the pointer would
// finish, joined to them.
bool TLCmdDigitizeArc::showPreview(const TLPoint& cursor) {
    if (step == 1) {
        Steps::AddToBand(rubberBand, firstPoint);
        Steps::AddToBand(rubberBand, cursor);
    } else if (step == 2) {
        thirdPoint = cursor;
        std::vector<TLPoint> arc;
        if (!arcThroughPoints(arc)) return false;
        for (const TLPoint& p : {firstPoint, secondPoint, thirdPoint})
            Steps::AddToBand(rubberBand, p);
        for (const TLPoint& p : arc) Steps::AddToBand(rubberBand, p);
    }
    return true;
}

bool TLCmdDigitizeArc::OnDblClick(TLMouseButton, int, int) {
    return true;
}

// ---- typed input ----

bool TLCmdDigitizeArc::processChildCmd(TLString text) {
    // An arc typed into a layer of another kind is refused before it is read.
    if (!Curve::TypedLineAllowed(mBuddy, editor, layer, TLLayer::LineLayer) || !rubberBand)
        return false;
    rubberBand->Reset(TLRubberBand::LineBand);
    rubberBand->Update();
    if (text.isEmpty()) return true;
    // A menu number is taken as the other curves take it, then read as a point and refused.
    Curve::TakeMenuChoice(text, awaitingMode, mode, mouseMode);
    if (step == 0) {
        if (!Curve::ReadPoint(mBuddy, text, firstPoint, kFirstAgainPrompt)) return true;
        previewActive = 1;
        step = 1;
        Steps::Prompt(mBuddy, kSecondPrompt);
    } else if (step == 1) {
        if (!Curve::ReadPoint(mBuddy, text, secondPoint, kSecondPrompt)) return true;
        step = 2;
        Steps::Prompt(mBuddy, kThirdPrompt);
    } else {
        if (!Curve::ReadPoint(mBuddy, text, thirdPoint, kThirdPrompt)) return true;
        if (!finishArc()) return false;
        Steps::Prompt(mBuddy, kFirstPrompt);
        Steps::Message(mBuddy, kDrawn);
    }
    return true;
}

// ---- arc and commit ----

bool TLCmdDigitizeArc::arcThroughPoints(std::vector<TLPoint>& arc) {
    center = TLCurveSamples::ThreePointCentre(firstPoint, secondPoint, thirdPoint);
    radius = TLCurveSamples::SinglePrecisionDistance(thirdPoint, center);
    if (TLCurveSamples::IsTooSmall(radius)) return false;
    const Samples::Angles angles =
        Samples::ArcAngles(center, radius, firstPoint, secondPoint, thirdPoint);
    startAngle = angles.start;
    midAngle = angles.middle;
    endAngle = angles.end;
    arc = Samples::Arc(center, radius, angles, firstPoint, thirdPoint);
    return true;
}

bool TLCmdDigitizeArc::finishArc() {
    std::vector<TLPoint> arc;
    // Too small a circle is dropped without a word; the third point may be given again.
    if (!arcThroughPoints(arc)) return false;
    for (const TLPoint& p : arc) Steps::AddToBand(rubberBand, p);
    TLRect rect;
    EndEntity(rect);
    rubberBand->Reset(TLRubberBand::LineBand);
    // Repainted at once, so that the written arc is not drawn twice until the next move.
    rubberBand->Update();
    Steps::RefreshMap(mBuddy, rect);
    Reset();
    return true;
}

bool TLCmdDigitizeArc::EndEntity(TLRect& rect) {
    if (!mBuddy || !editor || !layer || !rubberBand) return false;
    // Points that give no way round leave the band without a line: the step is written empty.
    Steps::WriteBandFeature(mBuddy, editor, layer, rubberBand, rect);
    return true;
}

}  // namespace TMObjects
