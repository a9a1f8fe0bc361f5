#include "digitize/TLCmdDigitizeLine.h"

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

const char* const kCount1 =
    "Offset coordinate(OF)/Vertical distance(CZ)/Parallel lines(PL)/Specify length(LE)/Parallel "
    "extension(PY)/Give up(U)/Finish(E)/<Specify point>:";
const char* const kCount2 =
    "Offset coordinate(OF)/Modify length(CL)/Vertical distance(CZ)/Micro-traverse(AS)/Parallel "
    "lines(PL)/Specify length(LE)/Parallel extension(PY)/Reversion(FX)/Extension(YS)/Interval "
    "with one point(J)/Give up(U)/Finish(E)/<Specify point>:";
const char* const kCount3 =
    "Offset coordinate(OF)/Modify length(CL)/Vertical distance(CZ)/Micro-traverse(AS)/Parallel "
    "lines(PL)/Specify length(LE)/Parallel extension(PY)/Reversion(FX)/Extension(YS)/Interval "
    "with one point(J)/Close after an interval pint(D)/Give up(U)/Finish(E)/Close(C)/<Specify "
    "point>:";
// After a typed point the first two counts leave Finish out.
const char* const kTypedCount1 =
    "Offset coordinate(OF)/Vertical distance(CZ)/Parallel lines(PL)/Specify length(LE)/Parallel "
    "extension(PY)/Give up(U)/<Specify point>:";
const char* const kTypedCount2 =
    "Offset coordinate(OF)/Modify length(CL)/Vertical distance(CZ)/Micro-traverse(AS)/Parallel "
    "lines(PL)/Specify length(LE)/Parallel extension(PY)/Reversion(FX)/Extension(YS)/Interval "
    "with one point(J)/Give up(U)/<Specify point>:";

}  // namespace

const char* const TLCmdDigitizeLine::kRegisteredName = "DigitizeLine";
const char* const TLCmdDigitizeLine::kInputLayerLine =
    "The current input layer is:*******line*******";
const char* const TLCmdDigitizeLine::kCommandLine = "Command:Drawing Line";
const char* const TLCmdDigitizeLine::kWrongLayer =
    "The current layer is not a line layer. Please select the line layer editor!";
const char* const TLCmdDigitizeLine::kFirstPrompt = "Specify the first point:";
const char* const TLCmdDigitizeLine::kRetryFirstPrompt = "Please specify first point:";
const char* const TLCmdDigitizeLine::kLengthPrompt = "input distance:";
const char* const TLCmdDigitizeLine::kParallelPrompt = "Parallel to other lines [line selection]:";

TLCmdDigitizeLine::TLCmdDigitizeLine() = default;

TLCmdDigitizeLine::TLCmdDigitizeLine(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeLine::~TLCmdDigitizeLine() {
    delete mainBand;
    delete guideBand;
    delete assistBand;
    delete snapTool;
}

TLCmdDigitizeLine::Machine TLCmdDigitizeLine::machine() {
    return Machine(*this);
}

// ---- life cycle ----

void TLCmdDigitizeLine::activate() {
    machine().activate();
}

void TLCmdDigitizeLine::deactivate() {
    machine().deactivate();
}

void TLCmdDigitizeLine::Reset() {
    pointCount = 0;
    childStep = 0;
    childCmd = ccNone;
    // refEnd is left as it was. A distance typed for CZ or PL before anything is picked
    // therefore meets the old end of the reference, with a start at (0, 0).
    refStart = TLPoint();
    crossStart = TLPoint();
    crossEnd = TLPoint();
    mousePoint = TLPoint();
    turnAngle = 0.0;
    partCount = 0;
    newPart = true;
    guideOff = false;
    if (snapTool) snapTool->Reset();
    if (mBuddy) mBuddy->SetLinePartMode(-1);
}

void TLCmdDigitizeLine::makeBands() {
    TLMapView* view = mBuddy->GetMapView();
    mainBand = new TLRubberBand(view, TLRubberBand::LineBand);
    Machine::drawingPen(mainBand);
    Machine::drawingFill(mainBand);
    guideBand = new TLRubberBand(view, TLRubberBand::LineBand);
    Machine::drawingPen(guideBand);
    Machine::drawingFill(guideBand);
    assistBand = new TLRubberBand(view, TLRubberBand::LineBand);
    snapTool = new TLSnapTool;
    snapTool->Init(mBuddy);
}

// ---- small helpers ----

bool TLCmdDigitizeLine::CanEdit() const {
    return editor && layer && layer->IsValid() && layer->IsEditable();
}

void TLCmdDigitizeLine::prompt(const char* text) {
    mBuddy->SetPrompt(toolText(text));
}

void TLCmdDigitizeLine::message(const char* text) {
    mBuddy->AppendMessage(toolText(text));
}

// pointCount, not the number of vertices, chooses the menu: U never lowers pointCount, so the
// prompt stays where it was.
void TLCmdDigitizeLine::countPrompt() {
    if (pointCount >= 3)
        prompt(kCount3);
    else if (pointCount == 2)
        prompt(kCount2);
    else if (pointCount == 1)
        prompt(kCount1);
}

void TLCmdDigitizeLine::typedPointPrompt() {
    if (pointCount >= 3)
        prompt(kCount3);
    else if (pointCount == 2)
        prompt(kTypedCount2);
    else if (pointCount == 1)
        prompt(kTypedCount1);
}

void TLCmdDigitizeLine::Switch2CC(ChildCmd cmd) {
    machine().switchTo(cmd);
}

TLQueryFilter TLCmdDigitizeLine::SelectFeatureFilter(double x, double y) {
    return TLPickFilter::Build(mBuddy ? mBuddy->GetMapView() : nullptr, layer, x, y);
}

void TLCmdDigitizeLine::setVerticalGuides(double x1, double y1, double x2, double y2, double x3,
                                          double y3) {
    machine().verticalGuides(TLPoint(x1, y1), TLPoint(x2, y2), TLPoint(x3, y3));
}

// ---- commit ----

bool TLCmdDigitizeLine::EndEntity(TLRect& rect) {
    TLLayerEditBuffer* buffer = layer->layer_edit_buffer();
    TLRefPtr<TLCoordinateSystem> reference = layer->GetSpatialReference();
    editor->StartOperation("add feature");
    // Without a band there is nothing to close the step with; it stays open.
    if (!mainBand) return false;

    // All parts of the band go into one feature. The bound is taken before the projection, so
    // that the rectangle stays in map coordinates for the refresh.
    TLRefPtr<TLGeometry> geometry = mainBand->AsGeometry();
    if (geometry && !geometry->IsEmpty()) {
        rect.Union(geometry->GetBound());
        mBuddy->GetMapView()->GetDisplay()->ToGeometry(reference.get(), geometry.get());
        TLFeature feature;
        feature.SetGeometry(geometry);
        buffer->AddFeature(feature, true, true);
    }
    editor->CommitOperation(true);
    layer->ClearSelect(false);
    return true;
}

void TLCmdDigitizeLine::committed(const TLRect& rect, bool resetGuide) {
    points.clear();
    mainBand->Reset(TLRubberBand::LineBand);
    if (resetGuide) guideBand->Reset(TLRubberBand::LineBand);
    mBuddy->GetMapView()->RefreshMap(false, rect);
}

// ---- pointer ----

bool TLCmdDigitizeLine::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy || !CanEdit()) return false;
    if (!machine().rightLayer()) {
        machine().refuseLayer();
        return false;
    }
    machine().clearAssist();
    const TLPoint p = pressPoint(x, y);

    if (button == TLRightButton) {
        rightClick();
    } else if (button == TLLeftButton) {
        if (newPart) startPart(p);
        if (pointCount == 0 && childStep == 0) {
            // The first vertex of a part opens a new path of the band and is not cached.
            points.push_back(p);
            mainBand->AddPoint(p, mainBand->GetGeometryCount());
            lastPoint = p;
            livePoint = p;
            mainBand->Update();
            prompt(kCount1);
            ++pointCount;
            return true;
        }
        machine().click(p);
    }
    machine().cacheDrawn();
    return true;
}

// A press takes the position the last move snapped to; it makes no search of its own.
TLPoint TLCmdDigitizeLine::pressPoint(int x, int y) {
    TLPoint p = ToMapCoordinates(TLPoint(x, y), nullptr);
    if (snapTool && snapTool->CanSnap()) snapTool->GetSnapXY(p.x, p.y);
    return p;
}

// In part mode 0 the next click starts another path of the same feature; what other modes mean
// is the host's business.
void TLCmdDigitizeLine::rightClick() {
    if (mBuddy->LinePartMode() != 0) return;
    newPart = true;
    prompt(kFirstPrompt);
}

bool TLCmdDigitizeLine::OnMouseMove(TLMouseButton, int x, int y) {
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
    }
    // While a sub-command holds the guide nothing moves, the snap marker included.
    if (!guideBand || !mainBand || guideOff) return false;

    mainBand->Update();
    guideBand->Reset(TLRubberBand::LineBand);
    if (!newPart) {
        guideBand->AddPoint(lastPoint, 0);
        machine().guide(m, *transform);
    }
    snapTool->Draw(transform, TLSnapEnvironment::Instance());
    return true;
}

bool TLCmdDigitizeLine::OnMouseUp(TLMouseButton, int, int) {
    return true;
}

// The press that belongs to the double click has added its vertex already.
bool TLCmdDigitizeLine::OnDblClick(TLMouseButton, int, int) {
    if (!mBuddy || !CanEdit()) return false;
    if (!machine().rightLayer()) {
        machine().refuseLayer();
        return false;
    }
    TLRect rect;
    if (EndEntity(rect)) {
        Reset();
        committed(rect, true);
    }
    message(kCommandLine);
    prompt(kFirstPrompt);
    return true;
}

// ---- typed lines ----

bool TLCmdDigitizeLine::processChildCmd(TLString text) {
    return machine().typed(text);
}

// A click or a typed point while a new part is due opens it. The parts are counted.
void TLCmdDigitizeLine::startPart(const TLPoint& p) {
    partFirst = p;
    newPart = false;
    pointCount = 0;
    if (!points.empty()) ++partCount;
}

// E: the pointer's last position joins the point list, which changes nothing written: the
// feature is made from the band.
void TLCmdDigitizeLine::finish() {
    points.push_back(mousePoint);
    TLRect rect;
    if (EndEntity(rect)) committed(rect, true);
    Reset();
    prompt(kFirstPrompt);
}

// U takes back one vertex, always from the first path of the band, also while a later path is
// drawn. The band is repainted by the next pointer move.
void TLCmdDigitizeLine::giveUp() {
    if (points.empty()) return;
    if (points.size() == 1) {
        mainBand->Reset(TLRubberBand::LineBand);
        points.pop_back();
        prompt(kFirstPrompt);
        Reset();
        return;
    }
    machine().takeBackLast();
    countPrompt();
}

// C: the closing segment runs from a doubled last vertex to the first vertex of this part.
void TLCmdDigitizeLine::close() {
    mainBand->AddPoint(lastPoint, -1);
    mainBand->AddPoint(partFirst, -1);
    TLRect rect;
    if (EndEntity(rect)) committed(rect, true);
    Reset();
    prompt(kRetryFirstPrompt);
}

// D: back to the first vertex around one computed corner.
void TLCmdDigitizeLine::closeWithInterval() {
    machine().closeAroundCorner();
    TLRect rect;
    if (EndEntity(rect)) committed(rect, false);
    Reset();
    prompt(kRetryFirstPrompt);
}

}  // namespace TMObjects
