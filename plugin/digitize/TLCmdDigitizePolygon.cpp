#include "digitize/TLCmdDigitizePolygon.h"

#include "TLToolText.h"
#include "digitize/TLDigitizeMachine.h"
#include "digitize/TLPickFilter.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

// Finish is offered from the third count on, for clicks and typed points alike: a polygon needs
// three vertices.
const char* const kCount1 =
    "Offset coordinate(OF)/Vertical distance(CZ)/Parallel lines(PL)/Specify length(LE)/Parallel "
    "extension(PY)/Give up(U)/<Specify point>:";
const char* const kCount2 =
    "Offset coordinate(OF)/Modify length(CL)/Vertical distance(CZ)/Micro-traverse(AS)/Parallel "
    "lines(PL)/Specify length(LE)/Parallel extension(PY)/Reversion(FX)/Extension(YS)/Interval "
    "with one point(J)/Give up(U)/<Specify point>:";
const char* const kCount3 =
    "Offset coordinate(OF)/Modify length(CL)/Vertical distance(CZ)/Micro-traverse(AS)/Parallel "
    "lines(PL)/Specify length(LE)/Parallel extension(PY)/Reversion(FX)/Extension(YS)/Interval "
    "with one point(J)/Close after an interval pint(D)/Give up(U)/Finish(E)/Close(C)/<Specify "
    "point>:";

}  // namespace

const char* const TLCmdDigitizePolygon::kRegisteredName = "DigitizePolygon";
const char* const TLCmdDigitizePolygon::kInputLayerLine =
    "The current input layer is:*******polygon*******";
const char* const TLCmdDigitizePolygon::kCommandLine = "Command:Drawing Polygon";
const char* const TLCmdDigitizePolygon::kWrongLayer =
    "The current layer is not a Polygon layer. Please select the Polygon layer editor!";
const char* const TLCmdDigitizePolygon::kFirstPrompt = "Specify the first point:";
const char* const TLCmdDigitizePolygon::kRetryFirstPrompt = "Specify the first point:";
const char* const TLCmdDigitizePolygon::kLengthPrompt = "Please enter the distance:";
const char* const TLCmdDigitizePolygon::kParallelPrompt = "Parallel to other lines [choose line]:";

TLCmdDigitizePolygon::TLCmdDigitizePolygon() = default;

TLCmdDigitizePolygon::TLCmdDigitizePolygon(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizePolygon::~TLCmdDigitizePolygon() {
    delete mainBand;
    delete guideBand;
    delete assistBand;
    delete snapTool;
}

TLCmdDigitizePolygon::Machine TLCmdDigitizePolygon::machine() {
    return Machine(*this);
}

// ---- life cycle ----

void TLCmdDigitizePolygon::activate() {
    machine().activate();
}

void TLCmdDigitizePolygon::deactivate() {
    machine().deactivate();
}

void TLCmdDigitizePolygon::Reset() {
    pointCount = 0;
    childStep = 0;
    childCmd = ccNone;
    turnAngle = 0.0;
    // refEnd is left as it was, as the line leaves it: a distance typed for CZ or PL before
    // anything is picked meets the old end of the reference, with a start at (0, 0).
    refStart = TLPoint();
    crossStart = TLPoint();
    crossEnd = TLPoint();
    mousePoint = TLPoint();
    newPart = true;
    if (snapTool) snapTool->Reset();
    if (mBuddy) mBuddy->SetPolygonPartMode(-1);
    guideOff = false;
}

// The shape is filled as it grows; the guide triangle is only outlined, so that the fill shows
// what will be written.
void TLCmdDigitizePolygon::makeBands() {
    TLMapView* view = mBuddy->GetMapView();
    mainBand = new TLRubberBand(view, TLRubberBand::PolygonBand);
    Machine::drawingPen(mainBand);
    Machine::drawingFill(mainBand);
    guideBand = new TLRubberBand(view, TLRubberBand::PolygonBand);
    Machine::drawingPen(guideBand);
    assistBand = new TLRubberBand(view, TLRubberBand::LineBand);
    snapTool = new TLSnapTool;
    snapTool->Init(mBuddy);
}

// ---- small helpers ----

bool TLCmdDigitizePolygon::CanEdit() const {
    return editor && layer && layer->IsValid() && layer->IsEditable();
}

void TLCmdDigitizePolygon::prompt(const char* text) {
    mBuddy->SetPrompt(toolText(text));
}

void TLCmdDigitizePolygon::message(const char* text) {
    mBuddy->AppendMessage(toolText(text));
}

// pointCount, not the number of vertices, chooses the menu; U lowers it, so the prompt falls
// back with the vertices.
void TLCmdDigitizePolygon::countPrompt() {
    if (pointCount >= 3)
        prompt(kCount3);
    else if (pointCount == 2)
        prompt(kCount2);
    else if (pointCount == 1)
        prompt(kCount1);
}

// Typed points get the same menus as clicks.
void TLCmdDigitizePolygon::typedPointPrompt() {
    countPrompt();
}

void TLCmdDigitizePolygon::Switch2CC(ChildCmd cmd) {
    machine().switchTo(cmd);
}

TLQueryFilter TLCmdDigitizePolygon::SelectFeatureFilter(double x, double y) {
    return TLPickFilter::Build(mBuddy ? mBuddy->GetMapView() : nullptr, layer, x, y);
}

void TLCmdDigitizePolygon::setVerticalGuides(double x1, double y1, double x2, double y2, double x3,
                                             double y3) {
    machine().verticalGuides(TLPoint(x1, y1), TLPoint(x2, y2), TLPoint(x3, y3));
}

// ---- commit ----

bool TLCmdDigitizePolygon::EndEntity() {
    if (!machine().rightLayer()) return false;
    // Two clicks enclose nothing: the shape goes without a word and nothing is written.
    if (mainBand->GetGeometryCount() == 1 && mainBand->GetCount() == 2) {
        clearShape();
        mBuddy->GetMapView()->RefreshOverlay();
        return true;
    }

    TLLayerEditBuffer* buffer = layer->layer_edit_buffer();
    TLRefPtr<TLCoordinateSystem> reference = layer->GetSpatialReference();
    TLRect rect;
    editor->StartOperation("add feature");
    // Earlier rings were closed when the next one began; this closes the one under way.
    mainBand->ClosePoints(true, -1);
    TLRefPtr<TLGeometry> geometry = mainBand->AsGeometry();
    if (geometry && geometry->GetType() != TLGeometry::GeoPolygon) {
        // The step is closed so that none stays open; it holds nothing.
        editor->CommitOperation(true);
        return false;
    }
    // All rings go into one feature. The bound is taken before the projection, so that the
    // rectangle stays in map coordinates for the refresh.
    if (geometry) {
        rect.Union(geometry->GetBound());
        mBuddy->GetMapView()->GetDisplay()->ToGeometry(reference.get(), geometry.get());
        TLFeature feature;
        feature.SetGeometry(geometry);
        buffer->AddFeature(feature, true, true);
    }
    editor->CommitOperation(true);
    clearShape();

    // The vertices of the written shape are in the layer now; the snapper's copies would only
    // double them.
    if (snapTool && snapTool->CanSnap())
        TLSnapEnvironment::Instance()->getPointSnapper()->clearCache();
    layer->NotifyObservers(TLFeatureLayer::HintFeaturesChanged);
    layer->ClearSelect(false);
    mBuddy->GetMapView()->RefreshMap(false, rect);
    message(kCommandLine);
    return true;
}

void TLCmdDigitizePolygon::clearShape() {
    points.clear();
    mainBand->Reset(kShapeBand);
    guideBand->Reset(kShapeBand);
}

// ---- pointer ----

bool TLCmdDigitizePolygon::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy) return false;
    // Without an editable layer the press is taken and does nothing.
    if (!CanEdit()) return true;
    if (!machine().rightLayer()) {
        message(kWrongLayer);
        message("Layer error");
        return false;
    }
    machine().clearAssist();
    const TLPoint p = pressPoint(x, y);

    if (button == TLRightButton) {
        rightClick(p);
    } else if (button == TLLeftButton) {
        if (newPart) startRing(p);
        if (pointCount == 0 && childStep == 0) {
            firstVertex(p);
            return true;
        }
        machine().click(p);
    }
    machine().cacheDrawn();
    return true;
}

// A press takes the position the last move snapped to; it makes no search of its own.
TLPoint TLCmdDigitizePolygon::pressPoint(int x, int y) {
    TLPoint p = ToMapCoordinates(TLPoint(x, y), nullptr);
    if (snapTool && snapTool->CanSnap()) snapTool->GetSnappedPoint(p);
    return p;
}

// In part mode 0 a right click on the ring's first vertex ends the ring, and the next click
// starts another ring of the same feature. A right click anywhere else is ignored, so that a
// stray click cannot leave a ring half drawn.
void TLCmdDigitizePolygon::rightClick(const TLPoint& p) {
    if (mBuddy->PolygonPartMode() != 0 || p != partFirst) return;
    newPart = true;
    prompt(kFirstPrompt);
}

// The ring left behind is closed before the next one opens.
void TLCmdDigitizePolygon::startRing(const TLPoint& p) {
    if (mainBand->GetGeometryCount() > 0) mainBand->ClosePoints(false, -1);
    startPart(p);
}

// A typed point while a new ring is due opens it as it stands; the band closes the ring left
// behind when it becomes a polygon.
void TLCmdDigitizePolygon::startPart(const TLPoint& p) {
    partFirst = p;
    newPart = false;
    pointCount = 0;
}

// The first vertex of a ring opens a new part of the band and is not cached.
void TLCmdDigitizePolygon::firstVertex(const TLPoint& p) {
    points.push_back(p);
    mainBand->AddPoint(p, mainBand->GetGeometryCount());
    lastPoint = p;
    mainBand->Update();
    prompt(kCount1);
    ++pointCount;
}

bool TLCmdDigitizePolygon::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mBuddy || !editor) return false;
    layer = dynamic_cast<TLFeatureLayer*>(editor->edit_layer());
    if (!layer) return true;
    if (!layer->IsValid() || !layer->IsEditable() || !machine().rightLayer()) return false;

    TLDisplayTransform* transform = mBuddy->GetMapView()->GetDisplayTransform();
    TLPoint m = ToMapCoordinates(TLPoint(x, y), nullptr);
    mousePoint = m;
    if (!snapTool) {
        snapTool = new TLSnapTool;
        snapTool->Init(mBuddy);
    }
    if (snapTool->CanSnap()) {
        snapTool->Snap(m.x, m.y, nullptr);
        snapTool->GetSnapXY(m.x, m.y);
        snapTool->Draw(transform, TLSnapEnvironment::Instance());
    }
    // While a sub-command holds the guide it stays as it is; the snap marker still follows.
    if (guideBand && mainBand && assistBand && !guideOff) {
        machine().clearAssist();
        mainBand->Update();
        guideBand->Reset(kShapeBand);
        if (!newPart) {
            guideBand->AddPoint(lastPoint, guideBand->GetGeometryCount());
            machine().guide(m, *transform);
            closeGuide();
        }
        // The shape so far is a snap target at every move, so that the ring can be closed onto
        // any of its own vertices.
        TLRefPtr<TLGeometry> drawn = mainBand->AsGeometry();
        snapTool->CacheShapes(drawn.get());
    }
    snapTool->Draw(transform, TLSnapEnvironment::Instance());
    return true;
}

// The guide runs on from the pointer to the ring's first vertex and back to the last one, so
// that it shows the triangle the next vertex would add. Between rings there is no guide.
void TLCmdDigitizePolygon::closeGuide() {
    guideBand->AddPoint(partFirst, -1);
    guideBand->AddPoint(lastPoint, -1);
    guideBand->Update();
}

bool TLCmdDigitizePolygon::OnMouseUp(TLMouseButton, int, int) {
    return mBuddy && CanEdit();
}

// The press that belongs to the double click has added its vertex already. The layer's kind is
// left to EndEntity, which refuses silently.
bool TLCmdDigitizePolygon::OnDblClick(TLMouseButton, int, int) {
    if (!mBuddy || !CanEdit()) return false;
    if (!EndEntity()) return true;
    Reset();
    prompt(kFirstPrompt);
    return true;
}

// ---- typed lines ----

bool TLCmdDigitizePolygon::processChildCmd(TLString text) {
    return machine().typed(text);
}

// E: the shape as it stands, its ring closed.
void TLCmdDigitizePolygon::finish() {
    if (EndEntity()) clearShape();
    Reset();
    message("Draw Polygon");
    prompt(kFirstPrompt);
}

// U takes back one vertex, always from the first ring of the band, and one input step with it.
void TLCmdDigitizePolygon::giveUp() {
    if (points.empty()) return;
    if (points.size() == 1) {
        mainBand->Reset(kShapeBand);
        points.pop_back();
        prompt(kFirstPrompt);
        Reset();
        return;
    }
    machine().takeBackLast();
    mainBand->Update();
    if (pointCount > 0) --pointCount;
    countPrompt();
}

// C: EndEntity closes the ring itself, so no closing vertices are added here.
void TLCmdDigitizePolygon::close() {
    if (EndEntity()) {
        Reset();
        clearShape();
    }
    prompt(kFirstPrompt);
}

// D: back to the first vertex around one computed corner, then the ring is written.
void TLCmdDigitizePolygon::closeWithInterval() {
    machine().closeAroundCorner();
    if (EndEntity()) clearShape();
    Reset();
    prompt(kFirstPrompt);
}

}  // namespace TMObjects
