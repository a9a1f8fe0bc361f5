#include "digitize/TLCmdDigitizeRing.h"

#include "digitize/TLArcSamples.h"
#include "digitize/TLCurveCommandSteps.h"
#include "digitize/TLCurveSamples.h"
#include "digitize/TLShapeCommandSteps.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLDrawCommonTool.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

using Steps = TLShapeCommandSteps;
using Curve = TLCurveCommandSteps;
using Samples = TLArcSamples;

const char* const kInnerPrompt = "Please specify the inner ring radius:";
const char* const kOuterPrompt = "Specify outer ring radius:";
const char* const kCentrePrompt = "Please specify the center of the circle:";
// This command's own wording for a press on another kind of layer, without the "a".
const char* const kNotPolygonLayer =
    "The current layer is not polygon layer. Please select the polygon layer editor!";
const char* const kDrawn = "Command:Drawing Ring";

enum Step { AwaitingInner = -1, AwaitingOuter = 0, AwaitingCentre = 1 };

bool tooSmall(double radius) {
    return TLCurveSamples::IsTooSmall(radius);
}

// The samples as the x, y pairs a polygon's ring is made of.
std::vector<double> coordinatesOf(const std::vector<TLPoint>& points) {
    std::vector<double> xy;
    xy.reserve(points.size() * 2);
    for (const TLPoint& p : points) {
        xy.push_back(p.x);
        xy.push_back(p.y);
    }
    return xy;
}

void addRing(TLGeoPolygon& polygon, const std::vector<TLPoint>& points) {
    std::vector<double> xy = coordinatesOf(points);
    polygon.CreateRing(xy.data(), int(points.size()));
}

}  // namespace

TLCmdDigitizeRing::TLCmdDigitizeRing() = default;

TLCmdDigitizeRing::TLCmdDigitizeRing(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeRing::~TLCmdDigitizeRing() {
    delete rubberBand;
    delete secondBand;
    delete snapTool;
}

// The radii are left as they are: the next typing overwrites them.
void TLCmdDigitizeRing::Reset() {
    step = AwaitingInner;
    awaitingMode = 1;
    previewActive = 0;
    mode = TLString("");
    if (snapTool) snapTool->Reset();
}

bool TLCmdDigitizeRing::CanEdit() const {
    return Steps::CanEdit(editor, layer);
}

// ---- life cycle ----

void TLCmdDigitizeRing::activate() {
    mActive = true;
    Reset();
    outerPoints.clear();
    innerPoints.clear();
    Steps::DropBand(rubberBand);
    Steps::DropBand(secondBand);
    Steps::DropSnapTool(snapTool);
    if (!Curve::Attach(mBuddy, editor, layer)) {
        if (mBuddy && mBuddy->GetMapView()) deactivate();
        return;
    }
    rubberBand = Steps::MakeBand(mBuddy->GetMapView());
    secondBand = Steps::MakeBand(mBuddy->GetMapView());
    resetBands(TLRubberBand::LineBand);
    snapTool = Steps::MakeSnapTool(mBuddy);
    mBuddy->RegisterTool("DigitizeRing", this, true);
    Steps::Announce(mBuddy, layer, "The current input layer is:*******polygon*******", kDrawn,
                    kInnerPrompt);
}

void TLCmdDigitizeRing::deactivate() {
    Reset();
    outerPoints.clear();
    innerPoints.clear();
    Steps::DropBand(rubberBand);
    Steps::DropBand(secondBand);
    Steps::DropSnapTool(snapTool);
    Steps::Leave(this, mBuddy);
    TLTool::deactivate();
}

void TLCmdDigitizeRing::resetBands(int type) {
    rubberBand->Reset(TLRubberBand::RubberBandType(type));
    secondBand->Reset(TLRubberBand::RubberBandType(type));
}

// ---- pointer ----

bool TLCmdDigitizeRing::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!Curve::PressAllowed(mBuddy, editor, layer, TLLayer::PolygonLayer, kNotPolygonLayer) ||
        !rubberBand || !secondBand)
        return false;
    // Any press drops the preview; only the left button goes on.
    resetBands(TLRubberBand::LineBand);
    rubberBand->Update();
    secondBand->Update();
    if (button != TLLeftButton) return true;
    // Only a position the last move snapped to is taken; a press searches nothing itself.
    const TLPoint click = lastMoveSnapped ? Steps::PressPoint(*this, snapTool, x, y)
                                          : ToMapCoordinates(TLPoint(x, y), nullptr);
    if (step != AwaitingCentre) {
        // Radii can only be typed; the prompt says so, whichever radius is awaited.
        Steps::Prompt(mBuddy, kInnerPrompt);
        previewActive = 0;
        return true;
    }
    center = click;
    return buildRing();
}

bool TLCmdDigitizeRing::OnMouseUp(TLMouseButton, int, int) {
    return true;
}

bool TLCmdDigitizeRing::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mBuddy || !editor) return false;
    Curve::FollowEditLayer(editor, layer);
    if (!Curve::CanDrawOn(layer) || !rubberBand || !secondBand) return false;
    bool snapped = false;
    const TLPoint cursor = Steps::MovePoint(*this, mBuddy, snapTool, x, y, snapped);
    lastMoveSnapped = snapped ? 1 : 0;
    resetBands(TLRubberBand::LineBand);
    const bool previewing = previewActive && (step == AwaitingCentre || step == AwaitingOuter);
    if (previewing) showPreview(cursor);
    rubberBand->Update();
    secondBand->Update();
    // The ring under way hides the snap marker.
    if (previewing) return false;
    if (lastMoveSnapped) Steps::DrawSnapMarker(mBuddy, snapTool);
    return true;
}

// The outer circle about the pointer on the first band and the inner one, drawn the other way
// round, on the second; before the outer radius only the inner circle.
bool TLCmdDigitizeRing::showPreview(const TLPoint& cursor) {
    if (step == AwaitingOuter) {
        if (tooSmall(innerRadius)) return false;
        showCircle(rubberBand, Samples::Ring(cursor, innerRadius));
        return true;
    }
    center = cursor;
    if (tooSmall(outerRadius)) return false;
    showCircle(rubberBand, Samples::Ring(center, outerRadius));
    if (tooSmall(innerRadius)) return false;
    showCircle(secondBand, Samples::ReversedRing(center, innerRadius));
    return true;
}

void TLCmdDigitizeRing::showCircle(TLRubberBand* band, const std::vector<TLPoint>& samples) {
    for (const TLPoint& p : samples) Steps::AddToBand(band, p);
    Steps::AddToBand(band, samples.front());
}

bool TLCmdDigitizeRing::OnDblClick(TLMouseButton, int, int) {
    if (!mBuddy) return false;
    if (!CanEdit() || !Steps::IsPolygonLayer(layer)) return false;
    // Only the command window starts over: a ring under way keeps its step.
    Steps::Message(mBuddy, kDrawn);
    Steps::Prompt(mBuddy, kInnerPrompt);
    return true;
}

// ---- typed input ----

bool TLCmdDigitizeRing::processChildCmd(TLString text) {
    if (!mBuddy) return false;
    if (!Curve::TypedLineAllowed(mBuddy, editor, layer) || !rubberBand || !secondBand) return false;
    if (text.isEmpty()) return false;
    switch (step) {
        case AwaitingInner:
            return typeInnerRadius(text);
        case AwaitingOuter:
            return typeOuterRadius(text);
        default:
            return typeCentre(text);
    }
}

bool TLCmdDigitizeRing::typeInnerRadius(const TLString& text) {
    const double value = text.ToDouble();
    if (!(value > 0)) {
        Steps::Message(mBuddy, "Length input error,please re-enter!");
        Steps::Prompt(mBuddy, kInnerPrompt);
        return true;
    }
    innerRadius = value;
    step = AwaitingOuter;
    Steps::Prompt(mBuddy, kOuterPrompt);
    return true;
}

bool TLCmdDigitizeRing::typeOuterRadius(const TLString& text) {
    const double value = text.ToDouble();
    if (!(value > 0)) {
        Steps::Message(mBuddy, "Length input error,please re-enter!");
        Steps::Prompt(mBuddy, kOuterPrompt);
        return true;
    }
    outerRadius = value;
    // An outer radius smaller than the inner one starts the ring over; an equal one is taken.
    if (innerRadius > value) {
        Reset();
        Steps::Message(mBuddy, "The outer radius input is illegal!");
        Steps::Prompt(mBuddy, kInnerPrompt);
        return true;
    }
    previewActive = 1;
    step = AwaitingCentre;
    Steps::Prompt(mBuddy, kCentrePrompt);
    return true;
}

bool TLCmdDigitizeRing::typeCentre(const TLString& text) {
    double x = 0, y = 0;
    if (!TLDrawCommonTool::ReadInputPoint(text, x, y)) {
        Steps::Message(mBuddy, "Center coordinate input error,please re-enter!");
        Steps::Prompt(mBuddy, kCentrePrompt);
        return true;
    }
    resetBands(TLRubberBand::PolygonBand);
    rubberBand->Update();
    secondBand->Update();
    center = TLPoint(x, y);
    return buildRing();
}

// ---- commit ----

bool TLCmdDigitizeRing::buildRing() {
    // Too small a radius is dropped without a word, and the centre is awaited still.
    if (tooSmall(outerRadius)) return false;
    outerPoints = Samples::Ring(center, outerRadius);
    firstVertex = outerPoints.front();
    if (tooSmall(innerRadius)) return false;
    innerPoints = Samples::Ring(center, innerRadius);
    firstVertex = innerPoints.front();
    TLRect rect;
    if (EndEntity(rect)) {
        outerPoints.clear();
        innerPoints.clear();
        Steps::RefreshMap(mBuddy, rect);
    }
    Reset();
    Steps::Prompt(mBuddy, kInnerPrompt);
    previewActive = 0;
    return true;
}

bool TLCmdDigitizeRing::EndEntity(TLRect& rect) {
    if (!mBuddy || !editor || !layer) return false;
    // Nothing to write opens no step.
    if (outerPoints.empty() || innerPoints.empty()) return false;
    TLLayerEditBuffer* buffer = layer->layer_edit_buffer();
    TLRefPtr<TLCoordinateSystem> reference = layer->GetSpatialReference();
    editor->StartOperation("add feature");
    // Each circle's samples already end on angle 360; its first sample closes it once more.
    outerPoints.push_back(outerPoints.front());
    innerPoints.push_back(innerPoints.front());
    TLRefPtr<TLGeoPolygon> polygon(new TLGeoPolygon);
    addRing(*polygon, outerPoints);
    addRing(*polygon, innerPoints);
    polygon->EndEntity();
    polygon->Forward();
    // The bound is taken before the projection: the view refreshes in map coordinates.
    rect.Union(polygon->GetBound());
    TLRefPtr<TLGeometry> geometry(polygon.get());
    mBuddy->GetMapView()->GetDisplay()->ToGeometry(reference.get(), geometry.get());
    TLFeature feature;
    feature.SetGeometry(geometry);
    buffer->AddFeature(feature, true, true);
    editor->CommitOperation(true);
    Steps::Message(mBuddy, kDrawn);
    return true;
}

}  // namespace TMObjects
