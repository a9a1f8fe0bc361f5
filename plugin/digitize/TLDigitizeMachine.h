#pragma once

#include <algorithm>
#include <vector>

#include "digitize/TLDigitizeClickRules.h"
#include "digitize/TLDigitizeConstruction.h"
#include "digitize/TLDigitizeKey.h"
#include "digitize/TLDigitizeValues.h"
#include "digitize/TLSelectAssistTool.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlmap/TLDrawCommonTool.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLSnapReckon.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

// The input machine of the command-line digitizing commands: what a left click, a pointer move
// and a typed line do while a shape is under way, sub-command by sub-command, and the life cycle
// around it. The commands keep the state in their own plain fields; the machine only works on
// them, so that the line and polygon commands run the same steps and differ only where their
// closing rules and texts do.
//
// A `Tool` provides:
// - the fields mainBand, guideBand, assistBand, editor, layer, points, refStart, refEnd,
//   crossStart, crossEnd, pickStart, pickEnd, turnAngle, pointCount, childStep, childCmd,
//   snapTool, newPart, partFirst, lastPoint, livePoint, guideOff, and of TLTool mBuddy and
//   mActive;
// - its ChildCmd values by the names ccNone to ccParallelExtend (their numbers may differ);
// - kLayerType, the only kind of layer it draws on, and kRegisteredName for the command line;
// - kShapeBand, the band type its main and guide bands are reset to;
// - its texts: kInputLayerLine and kCommandLine (said on activation), kWrongLayer, kFirstPrompt,
//   kRetryFirstPrompt (after an unreadable first point or an empty line), kLengthPrompt (what YS
//   and LE ask for) and kParallelPrompt (what PL asks for);
// - kClickRules;
// - makeBands(), Reset(), CanEdit(), countPrompt(), typedPointPrompt(), SelectFeatureFilter(x, y),
//   setVerticalGuides(x1, y1, x2, y2, x3, y3), Switch2CC(cmd);
// - startPart(p), the state of a part opened by a typed point, and finish(), giveUp(), close()
//   and closeWithInterval() for the keys E, U, C and D, where the commands' closing rules part.
//
// In the comments A is the second last vertex and B the last.
template <class Tool>
class TLDigitizeMachine : public TLDigitizeValues<Tool> {
    using Steps = TLDigitizeSteps<Tool>;
    using Steps::a;
    using Steps::addClicked;
    using Steps::addVertex;
    using Steps::b;
    using Steps::clearChildState;
    using Steps::extendGuide;
    using Steps::message;
    using Steps::prompt;
    using Steps::resetGuide;
    using Steps::start;
    using Steps::t;
    using TLDigitizeValues<Tool>::value;

public:
    using Steps::kBadText;
    using Steps::kDirectionPrompt;
    using Steps::kDistancePrompt;

    explicit TLDigitizeMachine(Tool& tool) : TLDigitizeValues<Tool>(tool) {}

    // ---- life cycle ----

    // The tool is picked: it finds the edit layer, makes its bands and takes the command line.
    // On a layer of the wrong kind it says so and stays, refusing each later event.
    void activate() {
        t.mActive = true;
        t.Reset();
        t.points.clear();
        dropBands();
        if (!t.mBuddy || !t.mBuddy->GetMapView()) return;

        t.editor = t.mBuddy->GetMapView()->GetMap()->editor();
        t.layer = dynamic_cast<TLFeatureLayer*>(t.editor->edit_layer());
        if (!t.layer) {
            t.deactivate();
            return;
        }
        t.makeBands();
        t.mBuddy->RegisterTool(Tool::kRegisteredName, &t, true);

        if (rightLayer()) {
            message(Tool::kInputLayerLine);
            message(Tool::kCommandLine);
            prompt(Tool::kFirstPrompt);
        } else {
            prompt("Command:");
            message(Tool::kWrongLayer);
        }
    }

    // The tool is left, or leaves itself for want of a layer. The buddy is forgotten, so that
    // every later entry returns at once until the host runs Init again.
    void deactivate() {
        t.Reset();
        if (!t.points.empty()) t.points.clear();
        dropBands();
        if (t.mBuddy) {
            t.mBuddy->SetPrompt("");
            t.mBuddy->UnregisterTool(&t, false);
            t.mBuddy = nullptr;
        }
        t.TLTool::deactivate();
    }

    // What the bands show goes off the view with them.
    void dropBands() {
        for (TLRubberBand** band : {&t.mainBand, &t.guideBand, &t.assistBand}) {
            if (!*band) continue;
            (*band)->Clear();
            (*band)->Update();
            delete *band;
            *band = nullptr;
        }
        delete t.snapTool;
        t.snapTool = nullptr;
    }

    // The red outline of every drawing band.
    static void drawingPen(TLRubberBand* band) {
        band->SetPenStyle(TLPen::SolidLine, 1.0, TLColor(255, 0, 0));
    }
    // The light red fill of every drawing band.
    static void drawingFill(TLRubberBand* band) {
        band->SetBrushStyle(TLBrush::SolidPattern, TLColor(255, 0, 0, 50));
    }

    // ---- pointer ----

    bool rightLayer() const { return t.layer->GetLayerType() == Tool::kLayerType; }

    // A typed line on a layer of the wrong kind.
    void refuseLayer() {
        message(Tool::kWrongLayer);
        prompt("Layer error");
    }

    // The dashed guide belongs to one pointer position: any press or typed line takes it away.
    void clearAssist() {
        if (!t.assistBand) return;
        t.assistBand->Reset(TLRubberBand::LineBand);
        t.assistBand->Update();
    }

    // What is drawn so far becomes a snap target, so that the shape can be closed onto itself.
    void cacheDrawn() {
        if (!t.snapTool || !t.snapTool->CanSnap()) return;
        if (t.mainBand->GetCount() == 1) {
            const TLPoint p = onlyPoint(*t.mainBand);
            TLRefPtr<TLGeoPoint> point(new TLGeoPoint(p.x, p.y));
            t.snapTool->CacheShapes(point.get());
            return;
        }
        TLRefPtr<TLGeometry> drawn = t.mainBand->AsGeometry();
        if (drawn) t.snapTool->CacheShapes(drawn.get());
    }

    // The dashed guide square to the last segment A-B at B, on the pointer's side, while the
    // pointer at `m` leaves B at a near-square angle.
    void verticalGuides(const TLPoint& a, const TLPoint& b, const TLPoint& m) {
        if (t.points.size() < 2 || !t.assistBand) return;
        t.assistBand->Reset(TLRubberBand::LineBand);
        TLPoint end;
        if (!TLDigitizeConstruction::VerticalGuideEnd(a, b, m, end)) return;
        t.assistBand->SetPenStyle(TLPen::DashLine, 1.0, TLColor(255, 0, 0));
        t.assistBand->AddPoint(b, 0);
        t.assistBand->AddPoint(end, 0);
        t.assistBand->Update();
    }

    // Before the first input step no sub-command can start; plain input always ends the step.
    void switchTo(typename Tool::ChildCmd cmd) {
        if (t.pointCount == 0) {
            t.childCmd = Tool::ccNone;
            return;
        }
        t.childCmd = cmd;
        if (cmd == Tool::ccNone) t.childStep = 0;
    }

    // ---- typed lines ----

    // One line of the command window: the first point, a key or a point while drawing, or the
    // value a sub-command waits for. True for every line that reached the grammar.
    bool typed(const TLString& text) {
        if (!t.mBuddy || !t.CanEdit()) return false;
        if (!rightLayer()) {
            refuseLayer();
            return false;
        }
        clearAssist();
        // Enter on an empty line finishes nothing.
        if (text.isEmpty()) {
            message(kBadText);
            prompt(Tool::kRetryFirstPrompt);
            return false;
        }
        if (t.pointCount == 0 && t.childStep == 0)
            typeFirstPoint(text);
        else if (t.childStep == 0)
            typeKeyOrPoint(text);
        else if (t.pointCount >= 1)
            value(text);
        return true;
    }

    // D, up to the commit: back to the first vertex around one computed corner, as along the
    // walls of a building, then the closing pair of the last guide end and the part's first
    // vertex.
    void closeAroundCorner() {
        if (t.points.size() > 2) {
            const TLPoint first = t.points.front();
            TLPoint corner;
            if (TLDrawCommonTool::CalculateSpacePoint(t.mainBand, t.points, first.x, first.y,
                                                      corner.x, corner.y)) {
                t.mainBand->AddPoint(corner, -1);
                t.lastPoint = corner;
                t.points.push_back(corner);
                t.mainBand->AddPoint(first, -1);
                t.lastPoint = first;
                t.livePoint = first;
                t.points.push_back(first);
                t.mainBand->Update();
            }
        }
        t.guideBand->Reset(Tool::kShapeBand);
        t.guideBand->Update();
        t.mainBand->AddPoint(t.livePoint, -1);
        t.mainBand->AddPoint(t.partFirst, -1);
    }

    // U with two or more vertices: the last one goes, always from the first part of the band,
    // also while a later part is drawn.
    void takeBackLast() {
        t.mainBand->RemoveLastPoint(0);
        t.lastPoint = t.points[t.points.size() - 2];
        t.livePoint = t.lastPoint;
        t.points.pop_back();
    }

    // A left click while a part is under way. Sub-commands that wait for a typed value ignore
    // the click; the others take it as their pick, direction or vertex.
    void click(const TLPoint& p) {
        switch (t.childCmd) {
            case Tool::ccNone:
                clickVertex(p);
                break;
            case Tool::ccVertical:
            case Tool::ccParallel:
                if (t.childStep == 1) pickReference(p);
                break;
            case Tool::ccInterval:
                clickInterval(p);
                break;
            case Tool::ccExtend:
                clickExtend(p);
                break;
            case Tool::ccSpecifyLength:
                // The click wins over the distance that was asked for.
                addClicked(p);
                clearChildState();
                t.countPrompt();
                break;
            case Tool::ccMicroTraverse:
                clickDirection(p);
                break;
            case Tool::ccParallelExtend:
                if (t.childStep == 1)
                    pickParallel(p);
                else if (t.childStep == 2)
                    pickExtension(p);
                break;
            default:  // ccOffset and ccChangeLength take typed values only
                break;
        }
    }

    // The guide from the last vertex towards the pointer at `m` (snapped), by sub-command. The
    // guide band holds the last vertex already. Where a construction point is shown, it is
    // passed through the image conversion first, so that the guide joins a map point to a device
    // point; that is how these guides have always been drawn and it is kept. Each end the guide
    // reaches becomes livePoint, the direction LE measures along.
    void guide(const TLPoint& m, const TLDisplayTransform& transform) {
        const std::size_t count = t.points.size();
        switch (t.childCmd) {
            case Tool::ccNone:
                if (count >= 2) t.setVerticalGuides(a().x, a().y, b().x, b().y, m.x, m.y);
                if (count >= 1) extendGuide(m);
                break;
            case Tool::ccOffset:
                extendGuide(m);
                break;
            case Tool::ccMicroTraverse:
            case Tool::ccSpecifyLength:
                if (count >= 1) extendGuide(m);
                break;
            case Tool::ccInterval: {
                TLPoint corner;
                if (TLDrawCommonTool::CalculateSpacePoint(t.mainBand, t.points, m.x, m.y, corner.x,
                                                          corner.y))
                    extendGuide(TLDigitizeConstruction::ImageForm(transform, corner));
                extendGuide(m);
                break;
            }
            case Tool::ccExtend: {
                TLPoint foot;
                if (count < 2)
                    extendGuide(m);
                else if (TLSnapReckon::getNotLinePlumb(a().x, a().y, b().x, b().y, m.x, m.y, foot.x,
                                                       foot.y))
                    extendGuide(TLDigitizeConstruction::ImageForm(transform, foot));
                break;
            }
            case Tool::ccParallelExtend:
                if (t.childStep == 2 && !TLDigitizeConstruction::AllZero(t.refStart, t.refEnd) &&
                    count >= 1)
                    extendGuide(
                        TLDigitizeConstruction::ParallelExtendGuide(t.refStart, t.refEnd, b(), m));
                break;
            default:
                // CZ and PL would draw at a second step, which they never reach: while they
                // wait for a pick or a distance the guide stays empty. CL draws no guide.
                break;
        }
    }

    // A key that starts a sub-command: its first step and what it asks for. Those that wait for
    // typed input hold the guide still, so that LE can measure along it.
    void enter(TLDigitizeKey::Key key) {
        switch (key) {
            case TLDigitizeKey::Interval:
                start(Tool::ccInterval, "Please specify a point [mouse click or X (y)]:", true);
                break;
            case TLDigitizeKey::Extension:
                start(Tool::ccExtend, Tool::kLengthPrompt, false);
                break;
            case TLDigitizeKey::Parallel:
                start(Tool::ccParallel, Tool::kParallelPrompt, false);
                break;
            case TLDigitizeKey::ParallelExtend:
                start(Tool::ccParallelExtend, "Select parallel lines:", false);
                break;
            case TLDigitizeKey::Vertical:
                start(Tool::ccVertical, "Perpendicular to the other line [select line]:", false);
                break;
            case TLDigitizeKey::MicroTraverse:
                start(Tool::ccMicroTraverse, kDirectionPrompt, true);
                break;
            case TLDigitizeKey::SpecifyLength:
                start(Tool::ccSpecifyLength, Tool::kLengthPrompt, true);
                break;
            case TLDigitizeKey::Offset:
                start(Tool::ccOffset, "input offset coordinate:", true);
                break;
            case TLDigitizeKey::ModifyLength:
                start(Tool::ccChangeLength, "please input length:", true);
                break;
            default:
                break;
        }
    }

    // FX: the vertices in the opposite order, drawing on from what was the first one. All parts
    // become one.
    void reverse() {
        t.points = std::vector<TLPoint>(t.points.rbegin(), t.points.rend());
        t.mainBand->Clear();
        for (std::size_t i = 0; i < t.points.size(); ++i)
            t.mainBand->AddPoint(t.points[i], i == 0 ? t.mainBand->GetGeometryCount() : -1);
        t.mainBand->Update();
        if (!t.points.empty()) t.lastPoint = t.points.back();
        t.guideBand->Reset(Tool::kShapeBand);
        t.guideBand->AddPoint(t.lastPoint, 0);
        t.guideBand->AddPoint(t.livePoint, 0);
        t.guideBand->Update();
        t.countPrompt();
    }

private:
    // A typed first point outside the view is brought into it at the same scale: the view
    // centres on a square of this half size around it, in map units.
    static constexpr double kPanHalfSize = 5.0;

    // The only point of a band that holds one point in all.
    static TLPoint onlyPoint(const TLRubberBand& band) {
        for (int part = 0; part < band.GetGeometryCount(); ++part)
            if (band.GetPointCount(part) == 1) return band.GetPoint(0, part);
        return TLPoint();
    }

    // ---- typed points and keys ----

    // The first vertex of a shape, typed. A point outside the view brings the view to it.
    void typeFirstPoint(const TLString& text) {
        TLPoint p;
        if (!TLDrawCommonTool::ReadInputPoint(text, p.x, p.y)) {
            message(kBadText);
            prompt(Tool::kRetryFirstPrompt);
            return;
        }
        t.newPart = false;
        t.partFirst = p;
        t.mainBand->AddPoint(p, t.mainBand->GetGeometryCount());
        t.lastPoint = p;
        t.livePoint = p;
        t.points.push_back(p);
        t.mainBand->Update();
        ++t.pointCount;

        TLMapView* view = t.mBuddy->GetMapView();
        if (!view->GetVisibleRect().PtInRect(p))
            view->PanToBound(TLRect(p.x - kPanHalfSize, p.x + kPanHalfSize, p.y - kPanHalfSize,
                                    p.y + kPanHalfSize));
        t.countPrompt();
    }

    void typeKeyOrPoint(const TLString& text) {
        const TLDigitizeKey::Key key = TLDigitizeKey::Parse(text);
        switch (key) {
            case TLDigitizeKey::NoKey:
                typePoint(text);
                break;
            case TLDigitizeKey::Finish:
                t.finish();
                break;
            case TLDigitizeKey::GiveUp:
                t.giveUp();
                break;
            case TLDigitizeKey::Close:
                t.close();
                break;
            case TLDigitizeKey::CloseInterval:
                t.closeWithInterval();
                break;
            case TLDigitizeKey::Reversion:
                reverse();
                break;
            default:
                enter(key);
                break;
        }
    }

    // A coordinate pair while drawing. It ends any sub-command, and while a new part is due it
    // opens that part.
    void typePoint(const TLString& text) {
        clearChildState();
        TLPoint p;
        if (!TLDrawCommonTool::ReadInputPoint(text, p.x, p.y)) {
            message(kBadText);
            t.countPrompt();
            return;
        }
        if (t.newPart) {
            t.startPart(p);
            t.mainBand->AddPoint(p, t.mainBand->GetGeometryCount());
        } else {
            t.mainBand->AddPoint(p, -1);
        }
        t.points.push_back(p);
        t.lastPoint = p;
        t.livePoint = p;
        t.mainBand->Update();
        ++t.pointCount;

        // A typed point far away brings the last segment into view.
        TLMapView* view = t.mBuddy->GetMapView();
        if (!view->GetVisibleRect().PtInRect(p) && t.points.size() > 1) {
            const TLPoint& from = a();
            view->ZoomToBound(TLRect(std::min(from.x, p.x), std::max(from.x, p.x),
                                     std::min(from.y, p.y), std::max(from.y, p.y)));
        }
        t.typedPointPrompt();
    }

    // ---- picks ----

    // The segment under the pointer; on a hit the edit layer's features there are highlighted.
    bool pick(const TLPoint& p, TLPoint& start, TLPoint& end) {
        double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
        TLSelectAssistTool().PickSegment(t.mBuddy, &p.x, &p.y, &x1, &y1, &x2, &y2);
        if (TLDigitizeConstruction::AllZero(TLPoint(x1, y1), TLPoint(x2, y2))) return false;
        start = TLPoint(x1, y1);
        end = TLPoint(x2, y2);
        highlight(p);
        return true;
    }

    void highlight(const TLPoint& p) {
        t.layer->ClearSelect(false);
        t.layer->SelectFeatures(t.SelectFeatureFilter(p.x, p.y), 0, 0);
        t.mBuddy->GetMapView()->Refresh(nullptr, TLMapCache::SelectionCache, TLRect());
    }

    // CZ and PL: the picked segment becomes the reference; the distance is typed next, at the
    // same step. A command may set its count here, which only decides the prompt that follows
    // the distance.
    void pickReference(const TLPoint& p) {
        TLPoint start, end;
        if (!pick(p, start, end)) return;
        t.refStart = start;
        t.refEnd = end;
        if (Tool::kClickRules.countAfterReferencePick > 0)
            t.pointCount = Tool::kClickRules.countAfterReferencePick;
        prompt(kDistancePrompt);
    }

    // PY, first pick: the reference becomes the line through B parallel to the picked segment.
    // Where the command counts the pick as an input step, although no vertex was added, only
    // the prompt shows it.
    void pickParallel(const TLPoint& p) {
        if (t.points.empty()) return;
        if (!pick(p, t.pickStart, t.pickEnd)) return;
        t.refStart = b();
        t.refEnd = TLDigitizeConstruction::ParallelThrough(b(), t.pickStart, t.pickEnd);
        if (Tool::kClickRules.parallelPickCounts) ++t.pointCount;
        ++t.childStep;
        prompt("Please choose extension line:");
    }

    // PY, second pick: the vertex is where the parallel meets the picked line.
    void pickExtension(const TLPoint& p) {
        if (!pick(p, t.crossStart, t.crossEnd)) return;
        if (t.pickStart == t.crossStart && t.pickEnd == t.crossEnd) {
            prompt(
                "Parallel lines and extension lines coincid,please select extension lines "
                "again:");
            return;
        }
        TLPoint crossing;
        if (!TLDrawCommonTool::CalculateIntersectPoint(
                t.refStart.x, t.refStart.y, t.refEnd.x, t.refEnd.y, t.crossStart.x, t.crossStart.y,
                t.crossEnd.x, t.crossEnd.y, crossing.x, crossing.y))
            return;
        if (Tool::kClickRules.highlightCrossing) highlight(p);
        addVertex(crossing);
        clearChildState();
        t.countPrompt();
    }

    // ---- clicks ----

    // Plain input: the click is the next vertex.
    void clickVertex(const TLPoint& p) {
        if (Tool::kClickRules.clickClearsGuide) t.guideBand->Reset(Tool::kShapeBand);
        addClicked(p);
        if (Tool::kClickRules.clickClearsGuide) t.guideBand->Update();
        t.countPrompt();
    }

    // J: the corner that squares the path to the click, then the click itself. Without a
    // corner the sub-command stays for the next click.
    void clickInterval(const TLPoint& p) {
        TLPoint corner;
        if (TLDrawCommonTool::CalculateSpacePoint(t.mainBand, t.points, p.x, p.y, corner.x,
                                                  corner.y)) {
            addVertex(corner);
            clearChildState();
            if (Tool::kClickRules.promptAfterCorner) t.countPrompt();
        }
        // The guide goes back to a line whatever the command draws; the next move redraws it.
        addVertex(p);
        resetGuide(TLRubberBand::LineBand);
        t.guideOff = false;
        t.countPrompt();
    }

    // YS: the foot of the click on the last segment's line, which lengthens or shortens it.
    void clickExtend(const TLPoint& p) {
        if (t.points.size() < 2) {
            addClicked(p);
            t.countPrompt();
            return;
        }
        TLPoint foot;
        if (!TLDrawCommonTool::GetNotLinePlumb(a().x, a().y, b().x, b().y, p.x, p.y, foot.x,
                                               foot.y))
            return;
        addClicked(foot);
        clearChildState();
        t.countPrompt();
    }

    // AS: the click gives the turn; the distance is typed at the third step.
    void clickDirection(const TLPoint& p) {
        if (t.childStep != 1 || t.points.size() < 2) return;
        t.turnAngle = TLDigitizeConstruction::MicroTraverseTurn(a(), b(), p);
        t.childStep += 2;
        prompt(kDistancePrompt);
    }
};

}  // namespace TMObjects
