#include "plot/TLCmdDigitizeArrow.h"

#include <cmath>

#include "digitize/TLShapeCommandSteps.h"
#include "plot/TLCmdArrowHelper.h"
#include "tlmap/TLDrawCommonTool.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

using Steps = TLShapeCommandSteps;

const char* const kTypeMenu =
    "Please enter arrow type [simple arrow (1) / swallow tail arrow (2) / wide tail arrow (3) / "
    "wide swallow tail arrow (4) / end (E)]:";
const char* const kPointPrompt = "Please enter a point [end (E)]:";
const char* const kTooClose = "The distance between the two points is too close!";

enum ArrowType { SimpleArrow = 1, SwallowTailArrow = 2, WideTailArrow = 3, WideSwallowArrow = 4 };

enum InputState { AwaitingType = 0, AwaitingPoints = 1 };

}  // namespace

TLCmdDigitizeArrow::TLCmdDigitizeArrow() = default;

TLCmdDigitizeArrow::TLCmdDigitizeArrow(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeArrow::~TLCmdDigitizeArrow() {
    delete rubberBand;
}

void TLCmdDigitizeArrow::Reset() {
    inputState = AwaitingType;
    arrowType = SimpleArrow;
    awaitingFirstPoint = 1;
    points.clear();
    effectivePoints.clear();
    if (rubberBand) {
        rubberBand->Reset(TLRubberBand::PolygonBand);
        rubberBand->Update();
    }
}

bool TLCmdDigitizeArrow::isWideType() const {
    return arrowType == WideTailArrow || arrowType == WideSwallowArrow;
}

// ---- life cycle ----

void TLCmdDigitizeArrow::activate() {
    mActive = true;
    Reset();
    points.clear();
    if (!mBuddy || !mBuddy->GetMapView()) return;
    if (!Steps::FindEditLayer(mBuddy, editor, layer)) {
        deactivate();
        return;
    }
    // A band left from before is kept and reused.
    if (!rubberBand) rubberBand = Steps::MakeBand(mBuddy->GetMapView());
    mBuddy->RegisterTool("DigitizeArrow", this, true);
    if (Steps::IsPolygonLayer(layer)) {
        Steps::Message(mBuddy, "The current input layer is:*******polygon*******");
        Steps::Message(mBuddy, "Command:Drawing Arrow");
        Steps::Prompt(mBuddy, kTypeMenu);
    } else {
        Steps::Prompt(mBuddy, "Command:");
        Steps::Message(mBuddy,
                       "The current layer is not a polygon layer. Please select the polygon layer "
                       "editor!");
    }
}

void TLCmdDigitizeArrow::deactivate() {
    Reset();
    points.clear();
    Steps::DropBand(rubberBand);
    Steps::Leave(this, mBuddy);
    TLTool::deactivate();
}

// ---- outline ----

std::vector<TLPoint> TLCmdDigitizeArrow::candidateList(const TLPoint& extra) {
    std::vector<TLPoint> list = points;
    list.push_back(extra);
    if (isWideType()) {
        // Two points make no spine yet: the apex of the equilateral triangle on them stands in
        // for the third, so that a wide arrow shows before its third point.
        if (list.size() == 2) {
            TLPoint apex;
            TLCmdArrowHelper().getThirdEgXY(list[0], list[1], apex);
            list.push_back(apex);
        }
        if (list.size() >= 3 && list[list.size() - 1] == list[list.size() - 2]) list.pop_back();
    } else if (list.size() >= 2 && list[list.size() - 1] == list[list.size() - 2]) {
        list.pop_back();
    }
    return list;
}

void TLCmdDigitizeArrow::makeUpEntity(int type, const std::vector<TLPoint>& list,
                                      std::vector<TLPoint>& outline) {
    outline.clear();
    TLCmdArrowHelper helper;
    switch (type) {
        case SimpleArrow:
            if (list.size() < 2) return;
            helper.getArrowPlot(list, false, 0.0, "useBezierFit", 0.1, 1.0, 1.0, 0.7, 0.07,
                                outline);
            // Without a swallow point the outline ends at the tail's right corner.
            outline.push_back(outline.front());
            break;
        case SwallowTailArrow:
            if (list.size() < 2) return;
            helper.getArrowPlot(list, true, 1.0, "useBezierFit", 0.1, 1.2, 1.0, 0.7, 0.07, outline);
            break;
        case WideTailArrow:
            helper.createWideStraightArrow(list, outline);
            break;
        case WideSwallowArrow:
            helper.createWideSwallowArrow(list, outline);
            break;
        default:
            break;
    }
    // Two equal control points in a row leave the directions undefined. Such an outline is no
    // outline: the band keeps the last good one and nothing undefined reaches the layer.
    for (const TLPoint& p : outline) {
        if (!p.Valid()) {
            outline.clear();
            return;
        }
    }
}

void TLCmdDigitizeArrow::showOutline(const std::vector<TLPoint>& outline) {
    if (rubberBand->GetCount() > 0) rubberBand->Reset(TLRubberBand::PolygonBand);
    for (const TLPoint& p : outline) Steps::AddToBand(rubberBand, p);
    rubberBand->Update();
}

bool TLCmdDigitizeArrow::showCandidate(const TLPoint& extra) {
    std::vector<TLPoint> outline;
    makeUpEntity(arrowType, candidateList(extra), outline);
    if (outline.empty()) return false;
    showOutline(outline);
    return true;
}

void TLCmdDigitizeArrow::LastArrowGeometry() {
    if (!rubberBand) return;
    const bool hadPoints = !points.empty();
    const bool hadEffective = !effectivePoints.empty();
    // Too few points for the type: nothing is left to show, and the end writes nothing.
    const std::size_t fewest = isWideType() ? 2 : 1;
    const bool tooFew = isWideType() ? points.size() <= fewest && effectivePoints.size() <= fewest
                                     : points.size() == fewest && effectivePoints.size() == fewest;
    if (tooFew) {
        rubberBand->Reset(TLRubberBand::PolygonBand);
        rubberBand->Update();
        points.clear();
        effectivePoints.clear();
        return;
    }
    if (hadPoints && hadEffective) showCandidate(effectivePoints.back());
    if (hadPoints) points.pop_back();
    if (hadEffective) effectivePoints.pop_back();
}

// ---- control points ----

bool TLCmdDigitizeArrow::tooCloseToFirst(const TLPoint& point, double tolerance) const {
    return std::fabs(point.x - firstPoint.x) < tolerance &&
           std::fabs(point.y - firstPoint.y) < tolerance;
}

void TLCmdDigitizeArrow::restartTooClose() {
    Reset();
    Steps::Message(mBuddy, kTooClose);
    Steps::Prompt(mBuddy, kTypeMenu);
}

// A point near the first one throws the whole symbol away when clicked; typed, only the very
// same point is refused, and the symbol stays.
bool TLCmdDigitizeArrow::acceptPoint(const TLPoint& point, bool clicked) {
    if (awaitingFirstPoint) {
        firstPoint = point;
        awaitingFirstPoint = 0;
    } else if (clicked && tooCloseToFirst(point, ToMapTolerance(1.0))) {
        restartTooClose();
        return false;
    } else if (!clicked && point == firstPoint) {
        Steps::Prompt(mBuddy, kPointPrompt);
        return false;
    }
    points.push_back(point);
    if (isWideType() && points.size() == 2)
        TLCmdArrowHelper().getThirdEgXY(points[0], points[1], lastPoint);
    else
        lastPoint = point;
    effectivePoints.push_back(lastPoint);
    Steps::Prompt(mBuddy, kPointPrompt);
    return true;
}

// ---- pointer ----

bool TLCmdDigitizeArrow::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy || !Steps::CanEdit(editor, layer)) return false;
    if (!Steps::IsPolygonLayer(layer)) {
        Steps::RefusePress(mBuddy);
        return false;
    }
    if (button != TLLeftButton) return true;
    // A click before any type was named draws the type last named, or a simple arrow.
    if (awaitingFirstPoint) inputState = AwaitingPoints;
    return acceptPoint(ToMapCoordinates(TLPoint(x, y), nullptr), true);
}

bool TLCmdDigitizeArrow::OnMouseUp(TLMouseButton, int, int) {
    return mBuddy && Steps::CanEdit(editor, layer);
}

bool TLCmdDigitizeArrow::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mBuddy) return false;
    // The edit layer may have changed since the last event.
    layer = editor ? dynamic_cast<TLFeatureLayer*>(editor->edit_layer()) : nullptr;
    if (!layer) return true;
    if (!Steps::CanEdit(editor, layer) || !Steps::IsPolygonLayer(layer)) return false;
    TLMapView* view = mBuddy->GetMapView();
    if (!view) return false;
    if (!rubberBand) rubberBand = Steps::MakeBand(view);

    cursorPoint = ToMapCoordinates(TLPoint(x, y), nullptr);
    // The symbol through the former pointer position stays in view where the new position
    // gives no outline (the pointer back on the last point of a short list).
    if (!points.empty()) {
        std::vector<TLPoint> outline;
        makeUpEntity(arrowType, candidateList(lastPoint), outline);
        rubberBand->Reset(TLRubberBand::PolygonBand);
        for (const TLPoint& p : outline) Steps::AddToBand(rubberBand, p);
        rubberBand->Update();
    }
    showCandidate(cursorPoint);
    lastPoint = cursorPoint;
    return true;
}

bool TLCmdDigitizeArrow::OnDblClick(TLMouseButton, int, int) {
    if (!mBuddy || !Steps::CanEdit(editor, layer)) return false;
    if (layer->GetLayerType() == TLLayer::PointLayer) return false;
    // The press of the double click has already added its control point.
    EndEntity();
    Steps::Prompt(mBuddy, kTypeMenu);
    return true;
}

// ---- typed input ----

bool TLCmdDigitizeArrow::processChildCmd(TLString text) {
    if (!mBuddy) return false;
    if (!Steps::CanEdit(editor, layer)) {
        Steps::RefuseTypedLine(mBuddy);
        return false;
    }
    if (text.isEmpty()) {
        Steps::Prompt(mBuddy, kTypeMenu);
        return false;
    }
    const double tolerance = ToMapTolerance(1.0);
    if (inputState == AwaitingType) {
        const int type = text.ToInt();
        if (text.CompareNoCase("E") == 0) {
            finish(tolerance);
        } else if (type >= SimpleArrow && type <= WideSwallowArrow) {
            arrowType = type;
            inputState = AwaitingPoints;
            Steps::Prompt(mBuddy, kPointPrompt);
        } else {
            Steps::Prompt(mBuddy, kTypeMenu);
            Steps::Message(mBuddy, "Point coordinate or command input error, please re-enter!");
        }
        return true;
    }
    // A typed end measures in map units, not in pixels as the end from the type menu does.
    if (text.CompareNoCase("E") == 0) {
        finish(1.0);
        return true;
    }
    double x = 0, y = 0;
    if (TLDrawCommonTool::ReadInputPoint(text, x, y)) return acceptPoint(TLPoint(x, y), false);
    Steps::Message(mBuddy, "Input point error!");
    Steps::Prompt(mBuddy, kPointPrompt);
    return true;
}

// The pointer's position, not the last control point, is what is compared with the first point.
void TLCmdDigitizeArrow::finish(double tolerance) {
    if (tooCloseToFirst(cursorPoint, tolerance)) {
        restartTooClose();
        return;
    }
    LastArrowGeometry();
    EndEntity();
    Steps::Prompt(mBuddy, kTypeMenu);
}

// ---- commit ----

bool TLCmdDigitizeArrow::EndEntity() {
    if (!rubberBand || rubberBand->GetCount() < 4) {
        // Too little to write: the input is dropped and the type menu starts afresh.
        inputState = AwaitingType;
        arrowType = SimpleArrow;
        points.clear();
        effectivePoints.clear();
        if (rubberBand) rubberBand->Reset(TLRubberBand::PolygonBand);
        if (mBuddy && mBuddy->GetMapView()) mBuddy->GetMapView()->RefreshOverlay();
        return false;
    }
    if (!editor || !editor->edit_layer() || !layer || !Steps::IsPolygonLayer(layer)) return false;
    TLRect rect;
    // The layer's selection is left as it stands.
    Steps::WriteBandFeature(mBuddy, editor, layer, rubberBand, rect);
    points.clear();
    effectivePoints.clear();
    rubberBand->Reset(TLRubberBand::PolygonBand);
    Steps::RefreshMap(mBuddy, rect);
    Reset();
    return true;
}

}  // namespace TMObjects
