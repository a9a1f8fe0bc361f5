#include "digitize/TLCmdDigitizeLine.h"

#include <algorithm>

#include "TLToolText.h"
#include "digitize/TLDigitizeConstruction.h"
#include "digitize/TLDigitizeKey.h"
#include "digitize/TLDigitizeMachine.h"
#include "digitize/TLPickFilter.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlmap/TLDrawCommonTool.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

const char* const kFirstPrompt = "Specify the first point:";
const char* const kFirstPromptAgain = "Please specify first point:";
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
const char* const kCommandLine = "Command:Drawing Line";
const char* const kWrongLayer =
    "The current layer is not a line layer. Please select the line layer editor!";
const char* const kBadText = "Point coordinate or command input error, please re-enter!";

// A typed first point outside the view is brought into it at the same scale: the view centres
// on a square of this half size around it, in map units.
constexpr double kPanHalfSize = 5.0;

void giveDrawingLook(TLRubberBand* band) {
    band->SetPenStyle(TLPen::SolidLine, 1.0, TLColor(255, 0, 0));
    band->SetBrushStyle(TLBrush::SolidPattern, TLColor(255, 0, 0, 50));
}

// The only point of a band that holds one point in all.
TLPoint onlyPoint(const TLRubberBand& band) {
    for (int part = 0; part < band.GetGeometryCount(); ++part)
        if (band.GetPointCount(part) == 1) return band.GetPoint(0, part);
    return TLPoint();
}

}  // namespace

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
    mActive = true;
    Reset();
    points.clear();
    dropBands();
    if (!mBuddy || !mBuddy->GetMapView()) return;

    editor = mBuddy->GetMapView()->GetMap()->editor();
    layer = dynamic_cast<TLFeatureLayer*>(editor->edit_layer());
    if (!layer) {
        deactivate();
        return;
    }
    makeBands();
    mBuddy->RegisterTool("DigitizeLine", this, true);

    if (isLineLayer()) {
        message("The current input layer is:*******line*******");
        message(kCommandLine);
        prompt(kFirstPrompt);
    } else {
        prompt("Command:");
        message(kWrongLayer);
    }
}

void TLCmdDigitizeLine::deactivate() {
    Reset();
    if (!points.empty()) points.clear();
    dropBands();
    if (mBuddy) {
        mBuddy->SetPrompt("");
        mBuddy->UnregisterTool(this, false);
        mBuddy = nullptr;
    }
    TLTool::deactivate();
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
    giveDrawingLook(mainBand);
    guideBand = new TLRubberBand(view, TLRubberBand::LineBand);
    giveDrawingLook(guideBand);
    assistBand = new TLRubberBand(view, TLRubberBand::LineBand);
    snapTool = new TLSnapTool;
    snapTool->Init(mBuddy);
}

void TLCmdDigitizeLine::dropBands() {
    for (TLRubberBand** band : {&mainBand, &guideBand, &assistBand}) {
        if (!*band) continue;
        (*band)->Clear();
        (*band)->Update();
        delete *band;
        *band = nullptr;
    }
    delete snapTool;
    snapTool = nullptr;
}

// ---- small helpers ----

bool TLCmdDigitizeLine::CanEdit() const {
    return editor && layer && layer->IsValid() && layer->IsEditable();
}

bool TLCmdDigitizeLine::isLineLayer() const {
    return layer->GetLayerType() == TLLayer::LineLayer;
}

void TLCmdDigitizeLine::prompt(const char* text) {
    mBuddy->SetPrompt(toolText(text));
}

void TLCmdDigitizeLine::message(const char* text) {
    mBuddy->AppendMessage(toolText(text));
}

void TLCmdDigitizeLine::refuseLayer() {
    message(kWrongLayer);
    prompt("Layer error");
}

// The dashed guide belongs to one pointer position: any press or typed line takes it away.
void TLCmdDigitizeLine::clearAssist() {
    if (!assistBand) return;
    assistBand->Reset(TLRubberBand::LineBand);
    assistBand->Update();
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
    if (pointCount == 0) {
        childCmd = ccNone;
        return;
    }
    childCmd = cmd;
    if (cmd == ccNone) childStep = 0;
}

TLQueryFilter TLCmdDigitizeLine::SelectFeatureFilter(double x, double y) {
    return TLPickFilter::Build(mBuddy ? mBuddy->GetMapView() : nullptr, layer, x, y);
}

void TLCmdDigitizeLine::setVerticalGuides(double x1, double y1, double x2, double y2, double x3,
                                          double y3) {
    if (points.size() < 2 || !assistBand) return;
    assistBand->Reset(TLRubberBand::LineBand);
    const TLPoint b(x2, y2);
    TLPoint end;
    if (!TLDigitizeConstruction::VerticalGuideEnd(TLPoint(x1, y1), b, TLPoint(x3, y3), end)) return;
    assistBand->SetPenStyle(TLPen::DashLine, 1.0, TLColor(255, 0, 0));
    assistBand->AddPoint(b, 0);
    assistBand->AddPoint(end, 0);
    assistBand->Update();
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
    if (!isLineLayer()) {
        refuseLayer();
        return false;
    }
    clearAssist();
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
    cacheBand();
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

void TLCmdDigitizeLine::startPart(const TLPoint& p) {
    partFirst = p;
    newPart = false;
    pointCount = 0;
    if (!points.empty()) ++partCount;
}

// What is drawn so far becomes a snap target, so that the line can be closed onto itself.
void TLCmdDigitizeLine::cacheBand() {
    if (!snapTool || !snapTool->CanSnap()) return;
    if (mainBand->GetCount() == 1) {
        const TLPoint p = onlyPoint(*mainBand);
        TLRefPtr<TLGeoPoint> point(new TLGeoPoint(p.x, p.y));
        snapTool->CacheShapes(point.get());
        return;
    }
    TLRefPtr<TLGeometry> drawn = mainBand->AsGeometry();
    if (drawn) snapTool->CacheShapes(drawn.get());
}

bool TLCmdDigitizeLine::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mBuddy || !editor) return false;
    layer = dynamic_cast<TLFeatureLayer*>(editor->edit_layer());
    if (!layer) return true;
    if (!layer->IsValid() || !layer->IsEditable() || !isLineLayer()) return false;

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
    if (!isLineLayer()) {
        refuseLayer();
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
    if (!mBuddy || !CanEdit()) return false;
    if (!isLineLayer()) {
        refuseLayer();
        return false;
    }
    clearAssist();
    // Enter on an empty line does not finish the line.
    if (text.isEmpty()) {
        message(kBadText);
        prompt(kFirstPromptAgain);
        return false;
    }
    if (pointCount == 0 && childStep == 0)
        typeFirstPoint(text);
    else if (childStep == 0)
        typeKeyOrPoint(text);
    else if (pointCount >= 1)
        machine().value(text);
    return true;
}

void TLCmdDigitizeLine::typeFirstPoint(const TLString& text) {
    TLPoint p;
    if (!TLDrawCommonTool::ReadInputPoint(text, p.x, p.y)) {
        message(kBadText);
        prompt(kFirstPromptAgain);
        return;
    }
    newPart = false;
    partFirst = p;
    mainBand->AddPoint(p, mainBand->GetGeometryCount());
    lastPoint = p;
    livePoint = p;
    points.push_back(p);
    mainBand->Update();
    ++pointCount;

    TLMapView* view = mBuddy->GetMapView();
    if (!view->GetVisibleRect().PtInRect(p))
        view->PanToBound(
            TLRect(p.x - kPanHalfSize, p.x + kPanHalfSize, p.y - kPanHalfSize, p.y + kPanHalfSize));
    prompt(kCount1);
}

void TLCmdDigitizeLine::typeKeyOrPoint(const TLString& text) {
    const TLDigitizeKey::Key key = TLDigitizeKey::Parse(text);
    switch (key) {
        case TLDigitizeKey::NoKey:
            typePoint(text);
            break;
        case TLDigitizeKey::Finish:
            finish();
            break;
        case TLDigitizeKey::GiveUp:
            giveUp();
            break;
        case TLDigitizeKey::Close:
            close();
            break;
        case TLDigitizeKey::CloseInterval:
            closeWithInterval();
            break;
        case TLDigitizeKey::Reversion:
            machine().reverse();
            break;
        default:
            machine().enter(key);
            break;
    }
}

void TLCmdDigitizeLine::typePoint(const TLString& text) {
    childCmd = ccNone;
    childStep = 0;
    TLPoint p;
    if (!TLDrawCommonTool::ReadInputPoint(text, p.x, p.y)) {
        message(kBadText);
        countPrompt();
        return;
    }
    if (newPart) {
        startPart(p);
        mainBand->AddPoint(p, mainBand->GetGeometryCount());
    } else {
        mainBand->AddPoint(p, -1);
    }
    points.push_back(p);
    lastPoint = p;
    livePoint = p;
    mainBand->Update();
    ++pointCount;

    // A typed point far away brings the last segment into view.
    TLMapView* view = mBuddy->GetMapView();
    if (!view->GetVisibleRect().PtInRect(p) && points.size() > 1) {
        const TLPoint& a = points[points.size() - 2];
        view->ZoomToBound(
            TLRect(std::min(a.x, p.x), std::max(a.x, p.x), std::min(a.y, p.y), std::max(a.y, p.y)));
    }
    typedPointPrompt();
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
    mainBand->RemoveLastPoint(0);
    lastPoint = points[points.size() - 2];
    livePoint = lastPoint;
    points.pop_back();
    countPrompt();
}

// C: the closing segment runs from a doubled last vertex to the first vertex of this part.
void TLCmdDigitizeLine::close() {
    mainBand->AddPoint(lastPoint, -1);
    mainBand->AddPoint(partFirst, -1);
    TLRect rect;
    if (EndEntity(rect)) committed(rect, true);
    Reset();
    prompt(kFirstPromptAgain);
}

// D: back to the first vertex around one computed corner, as along the walls of a building.
void TLCmdDigitizeLine::closeWithInterval() {
    if (points.size() > 2) {
        const TLPoint first = points.front();
        TLPoint corner;
        if (TLDrawCommonTool::CalculateSpacePoint(mainBand, points, first.x, first.y, corner.x,
                                                  corner.y)) {
            mainBand->AddPoint(corner, -1);
            lastPoint = corner;
            points.push_back(corner);
            mainBand->AddPoint(first, -1);
            lastPoint = first;
            livePoint = first;
            points.push_back(first);
            mainBand->Update();
        }
    }
    guideBand->Reset(TLRubberBand::LineBand);
    guideBand->Update();
    mainBand->AddPoint(livePoint, -1);
    mainBand->AddPoint(partFirst, -1);
    TLRect rect;
    if (EndEntity(rect)) committed(rect, false);
    Reset();
    prompt(kFirstPromptAgain);
}

}  // namespace TMObjects
