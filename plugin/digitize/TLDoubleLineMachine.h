#pragma once

#include <QString>
#include <cmath>
#include <vector>

#include "TLToolText.h"
#include "digitize/TLDoubleLineGeometry.h"
#include "digitize/TLShapeCommandSteps.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLDrawCommonTool.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsymbol/TLUnitTypes.h"

namespace TMObjects {

// What the left and right double line commands do: the user clicks one line and types widths,
// and the command builds the parallel line beside it vertex by vertex, each inner vertex the
// mitre where the previous offset line meets the next. Both lines are written together as two
// line features in one undoable step.
//
// The commands keep their state in their own fields and the machine works on them. A `Tool`
// provides the fields mainBand, offsetBand, tempMainBand, tempOffsetBand, lastPoint,
// cursorPoint, editor, layer, mainPoints, offsetPoints, widthRecords, pointCount, offsetWidth,
// enteredWidth, segStart, segEnd, offsetCorner, offsetEnd, calcPoint, slopeOdd, slopeEven,
// previewCorner, previewEnd and snapTool, its Reset(), and the constants where the two commands
// part:
// - kSide: 1 when the computed line lies right of the digitizing direction, -1 when left;
// - kClickGuard: the divisor that stands in for dx 0 in the slope of a clicked segment, 0 for
//   none; kMoveNewGuard and kMoveOldGuard: the same for the slopes of the preview, the first
//   for the segment to the pointer while the vertex count is even, the second for the last
//   clicked segment;
// - kDrawsSnapOnClick: the snap marker is drawn again on a press; kCachesDrawnLine: after every
//   other vertex the lines under way become snap targets;
// - kQuietDoubleClick: a double click drops a line of one vertex before anything else, and
//   refuses, without a word, only a point layer (a pair finished on a polygon layer goes in);
// - kRegisteredName, kCommandLine (said on activation and after each finished pair) and
//   kDoubleClickLine (said after a pair finished by a double click, with the width).
template <class Tool>
class TLDoubleLineMachine {
    using Steps = TLShapeCommandSteps;
    using Geometry = TLDoubleLineGeometry;

public:
    static constexpr const char* kWidthPrompt = "Please input width(m):";
    static constexpr const char* kGoOnPrompt = "Input width(m)/Give up(U)/Finish(E):";
    static constexpr const char* kInputLayerLine = "The current input layer is:*******line*******";
    static constexpr const char* kWrongLayer =
        "The current layer is not a line layer. Please select the line layer editor!";
    static constexpr const char* kTooClose = "The distance between the two points is too close!";
    static constexpr const char* kBadWidth = "Width input error, please re-enter!";
    static constexpr double kInitialWidth = 10.0;

    explicit TLDoubleLineMachine(Tool& tool) : t(tool) {}

    // ---- life cycle ----

    void activate() {
        t.mActive = true;
        t.Reset();
        dropBands();
        if (!t.mBuddy || !t.mBuddy->GetMapView()) return;
        if (!Steps::FindEditLayer(t.mBuddy, t.editor, t.layer)) {
            t.deactivate();
            return;
        }
        scaleWidthToMap();
        makeBands();
        t.snapTool = Steps::MakeSnapTool(t.mBuddy);
        t.mBuddy->RegisterTool(Tool::kRegisteredName, &t, true);
        if (isLineLayer()) {
            Steps::Message(t.mBuddy, kInputLayerLine);
            Steps::Message(t.mBuddy, Tool::kCommandLine);
            Steps::Prompt(t.mBuddy, kWidthPrompt);
        } else {
            Steps::Prompt(t.mBuddy, "Command:");
            Steps::Message(t.mBuddy, kWrongLayer);
        }
    }

    void deactivate() {
        t.Reset();
        dropBands();
        Steps::Leave(&t, t.mBuddy);
        t.TLTool::deactivate();
    }

    // Each pair starts afresh, except for the width the arithmetic uses: the next pair is drawn
    // at the width typed last, while the width on record goes back to the first one.
    void reset() {
        t.pointCount = 0;
        t.enteredWidth = kInitialWidth;
        t.segStart = t.segEnd = t.offsetCorner = t.offsetEnd = t.calcPoint = TLPoint();
        t.slopeOdd = t.slopeEven = 0.0;
        t.mainPoints.clear();
        t.offsetPoints.clear();
        for (TLRubberBand* band : bands()) {
            if (!band) continue;
            band->Reset(TLRubberBand::LineBand);
            // Repainted at once, so that a dropped or written pair does not linger on the view.
            band->Update();
        }
        t.widthRecords.clear();
        t.widthRecords.push_back(widthRecord(0, kInitialWidth));
        if (t.snapTool) t.snapTool->Reset();
    }

    // ---- pointer ----

    bool mouseDown(TLMouseButton button, int x, int y) {
        if (!t.mBuddy) return false;
        if (!Steps::CanEdit(t.editor, t.layer)) return false;
        const double tolerance = t.ToMapTolerance(1.0);
        if (!isLineLayer()) {
            refuseLayer();
            return false;
        }
        if (button != TLLeftButton) return true;
        if (!hasBands()) return false;

        const TLPoint click = Steps::PressPoint(t, t.snapTool, x, y);
        if (Tool::kDrawsSnapOnClick) Steps::DrawSnapMarker(t.mBuddy, t.snapTool);
        // The prompt tells the state before this click: the first one still asks for a width.
        Steps::Prompt(t.mBuddy, t.pointCount != 0 ? kGoOnPrompt : kWidthPrompt);
        if (onLastVertex(click, tolerance)) {
            // A vertex on top of the last one would give no direction: the pair under way is
            // given up as a whole.
            t.Reset();
            Steps::Message(t.mBuddy, kTooClose);
            return false;
        }
        const int before = t.pointCount;
        addVertex(click);
        const bool odd = before % 2 == 1;
        if (Tool::kCachesDrawnLine && odd) {
            Steps::CacheDrawnShape(t.snapTool, t.mainBand);
            Steps::CacheDrawnShape(t.snapTool, t.offsetBand);
        }
        return odd;
    }

    bool mouseMove(int x, int y) {
        if (!t.mBuddy || !t.editor) return false;
        t.layer = dynamic_cast<TLFeatureLayer*>(t.editor->edit_layer());
        if (!t.layer) return true;
        if (!t.layer->IsValid() || !t.layer->IsEditable() || !isLineLayer()) return false;
        if (!hasBands()) return false;

        const TLPoint cursor = Steps::MovePoint(t, t.mBuddy, t.snapTool, x, y);
        t.mainBand->Update();
        t.offsetBand->Update();
        t.tempMainBand->Reset(TLRubberBand::LineBand);
        t.tempOffsetBand->Reset(TLRubberBand::LineBand);
        if (t.pointCount == 0) {
            Steps::DrawSnapMarker(t.mBuddy, t.snapTool);
            return false;
        }
        const double newGuard = t.pointCount % 2 == 0 ? Tool::kMoveNewGuard : 1e-6;
        showPreview(cursor, t.previewCorner, newGuard, Tool::kMoveOldGuard, t.tempMainBand,
                    t.tempOffsetBand);
        Steps::DrawSnapMarker(t.mBuddy, t.snapTool);
        return true;
    }

    // The preview again after a vertex was given up. The corner starts from the last fixed
    // vertex, since the preview's own corner may lie on the offset line just taken away.
    void drawTempRubberBand(double x, double y, TLRubberBand* bandA, TLRubberBand* bandB) {
        if (t.pointCount == 0 || !bandA || !bandB) return;
        const double newGuard = t.pointCount % 2 == 0 ? 1e-5 : 1e-6;
        const TLPoint start = t.pointCount > 1 ? t.offsetPoints.back() : t.previewCorner;
        showPreview(TLPoint(x, y), start, newGuard, 1e-5, bandA, bandB);
    }

    bool doubleClick() {
        if (Tool::kQuietDoubleClick && t.pointCount == 1) {
            t.Reset();
            return false;
        }
        if (!t.mBuddy) return false;
        if (!Steps::CanEdit(t.editor, t.layer)) return false;
        if (Tool::kQuietDoubleClick ? t.layer->GetLayerType() == TLLayer::PointLayer
                                    : !isLineLayer()) {
            if (!Tool::kQuietDoubleClick) refuseLayer();
            return false;
        }
        if (t.pointCount == 1) {
            t.Reset();
            return false;
        }
        if (!hasBands()) return false;
        // Without a vertex the pair is written all the same: an empty line, and a line of the
        // end vertex alone. The store refuses the empty one when it is saved; the command does
        // not ask.
        // The end vertex as the last click placed it, at the width of that moment.
        addOffsetVertex(t.offsetEnd);
        finish();
        // The width said is the one on record, which the finished pair has set back.
        const QString said =
            QObject::tr(Tool::kDoubleClickLine) + QString::number(t.enteredWidth, 'g', 6);
        t.mBuddy->AppendMessage(toTLString(said));
        Steps::Prompt(t.mBuddy, kWidthPrompt);
        return true;
    }

    // ---- typed input ----

    bool typed(const TLString& text) {
        if (!t.mBuddy) return false;
        if (!Steps::CanEdit(t.editor, t.layer) || !isLineLayer()) {
            refuseLayer();
            return false;
        }
        if (text.isEmpty() || !hasBands()) return false;

        const bool number = TLDrawCommonTool::CheckStrIsDouble(text);
        if (t.pointCount == 0) {
            if (number)
                changeWidth(text);
            else
                Steps::Message(t.mBuddy, kBadWidth);
            Steps::Prompt(t.mBuddy, kWidthPrompt);
            return true;
        }
        if (number) {
            changeWidth(text);
            Steps::Prompt(t.mBuddy, kGoOnPrompt);
            return true;
        }
        if (text.CompareNoCase("E") == 0) return finishTyped();
        if (text.CompareNoCase("U") == 0) return giveUp();
        // Any other word while a line is under way is passed over.
        return true;
    }

    // ---- arithmetic ----

    void jisuan(double x, double y, double ax, double ay, double bx, double by) {
        t.calcPoint = Geometry::Offset(Tool::kSide, t.offsetWidth, TLPoint(x, y), TLPoint(ax, ay),
                                       TLPoint(bx, by));
    }

    // The offset of `b`, for the direction from `a` to `b`, at the width of this moment.
    TLPoint caculateFouthyPoint(const TLPoint& a, const TLPoint& b) {
        jisuan(b.x, b.y, a.x, a.y, b.x, b.y);
        return t.calcPoint;
    }

    // ---- commit ----

    bool endEntity(TLRect& rect) {
        if (!t.mBuddy || !t.editor || !t.layer) return false;
        TLLayerEditBuffer* buffer = t.layer->layer_edit_buffer();
        TLRefPtr<TLCoordinateSystem> reference = t.layer->GetSpatialReference();
        t.editor->StartOperation("add feature");
        addLineFeature(buffer, reference.get(), t.mainPoints, rect);
        addLineFeature(buffer, reference.get(), t.offsetPoints, rect);
        t.editor->CommitOperation(true);
        Steps::Message(t.mBuddy, Tool::kCommandLine);
        return true;
    }

private:
    std::vector<TLRubberBand*> bands() const {
        return {t.mainBand, t.offsetBand, t.tempMainBand, t.tempOffsetBand};
    }
    bool hasBands() const {
        return t.mainBand && t.offsetBand && t.tempMainBand && t.tempOffsetBand;
    }

    void makeBands() {
        t.mainBand = makeBand(TLColor(255, 0, 50));
        t.offsetBand = makeBand(TLColor(255, 255, 255));
        t.tempMainBand = makeBand(TLColor(255, 255, 255));
        t.tempOffsetBand = makeBand(TLColor(255, 255, 255));
    }

    TLRubberBand* makeBand(const TLColor& fill) {
        auto* band = new TLRubberBand(t.mBuddy->GetMapView(), TLRubberBand::LineBand);
        band->SetPenStyle(TLPen::SolidLine, 1.0, TLColor(255, 0, 0));
        band->SetBrushStyle(TLBrush::SolidPattern, fill);
        return band;
    }

    void dropBands() {
        Steps::DropBand(t.mainBand);
        Steps::DropBand(t.offsetBand);
        Steps::DropBand(t.tempMainBand);
        Steps::DropBand(t.tempOffsetBand);
        Steps::DropSnapTool(t.snapTool);
    }

    // ---- layer ----

    bool isLineLayer() const { return t.layer->GetLayerType() == TLLayer::LineLayer; }
    void refuseLayer() {
        Steps::Message(t.mBuddy, kWrongLayer);
        Steps::Prompt(t.mBuddy, "Layer error");
    }

    // ---- width ----

    // Widths are typed in metres and drawn in the unit the map is shown in. On a map in metres
    // the width goes back to the first one with each activation; on any other map the width
    // held is converted again, as it has always been.
    void scaleWidthToMap() {
        if (mapInMetres())
            t.offsetWidth = kInitialWidth;
        else
            t.offsetWidth *= metresToMap();
    }

    void changeWidth(const TLString& text) {
        t.enteredWidth = text.ToDouble();
        t.offsetWidth = mapInMetres() ? t.enteredWidth : t.enteredWidth * metresToMap();
        const QString said =
            QObject::tr("Width changed to %1 m.").arg(t.enteredWidth, 0, 'g', -1, QLatin1Char(' '));
        t.mBuddy->AppendMessage(toTLString(said));
        t.widthRecords.push_back(widthRecord(int(t.mainPoints.size()), t.enteredWidth));
    }

    TLUnitType mapUnit() const { return t.mBuddy->GetMapView()->GetMap()->GetMapDisplayUnit(); }
    bool mapInMetres() const { return mapUnit() == TLUnitMeter; }
    double metresToMap() const {
        return TLUnitTypes::fromUnitToUnitFactor(TLMeters,
                                                 TLUnitTypes::TLUnitTypeToTLUnitTypes(mapUnit()));
    }

    // Which width held from which vertex on: the count of vertices clicked, then the width.
    static TLString widthRecord(int vertices, double width) {
        TLString record;
        record.Format("%d,%f", vertices, width);
        return record;
    }

    // ---- vertices ----

    bool onLastVertex(const TLPoint& click, double tolerance) const {
        return t.pointCount >= 1 && std::fabs(click.x - t.lastPoint.x) < tolerance &&
               std::fabs(click.y - t.lastPoint.y) < tolerance;
    }

    TLPoint offsetOf(const TLPoint& p, const TLPoint& a, const TLPoint& b) {
        jisuan(p.x, p.y, a.x, a.y, b.x, b.y);
        return t.calcPoint;
    }

    // A clicked vertex, and the offset vertex it fixes: none for the first, the start of the
    // offset line for the second, and for every later one the corner where the offset line of
    // the segment before meets the offset line of the new one. The corner is worked from the
    // slopes of the last two segments, which the two slope fields hold by turns.
    void addVertex(const TLPoint& p) {
        const int n = t.pointCount;
        t.mainPoints.push_back(p);
        Steps::AddToBand(t.mainBand, p);
        t.lastPoint = p;
        t.cursorPoint = p;
        // The preview's corner lies on the offset line of the segment before and stands in for
        // the fixed vertex, which may lie on an older line after a width change.
        if (n > 0) t.offsetCorner = t.previewCorner;
        if (n == 0) {
            t.segStart = p;
        } else if (n == 1) {
            t.segEnd = p;
            t.offsetCorner = offsetOf(t.segStart, t.segStart, t.segEnd);
            t.offsetEnd = offsetOf(t.segEnd, t.segStart, t.segEnd);
            t.slopeOdd = Geometry::Slope(t.segStart, t.segEnd, Tool::kClickGuard);
            addOffsetVertex(t.offsetCorner);
        } else {
            t.segStart = t.segEnd;
            t.segEnd = p;
            const double slope = Geometry::Slope(t.segStart, t.segEnd, Tool::kClickGuard);
            t.offsetEnd = offsetOf(t.segEnd, t.segStart, t.segEnd);
            if (n % 2 == 1) {
                t.slopeOdd = slope;
                t.offsetCorner =
                    Geometry::Corner(t.offsetEnd, t.slopeOdd, t.offsetCorner, t.slopeEven);
            } else {
                t.slopeEven = slope;
                t.offsetCorner =
                    Geometry::Corner(t.offsetCorner, t.slopeOdd, t.offsetEnd, t.slopeEven);
            }
            addOffsetVertex(t.offsetCorner);
        }
        t.mainBand->Update();
        ++t.pointCount;
    }

    void addOffsetVertex(const TLPoint& p) {
        t.offsetPoints.push_back(p);
        // The offset line is one part, also after its vertices were all given up.
        Steps::AddToBand(t.offsetBand, p);
        t.offsetBand->Update();
    }

    // The last clicked segment extended to the pointer, and beside it the offset line to the
    // floating corner and on to the offset of the pointer. The corner is worked from `start`,
    // any point on the offset line of the last clicked segment.
    void showPreview(const TLPoint& cursor, const TLPoint& start, double newGuard, double oldGuard,
                     TLRubberBand* mainPreview, TLRubberBand* offsetPreview) {
        Steps::AddToBand(mainPreview, t.lastPoint);
        if (t.pointCount == 1) {
            t.previewCorner = offsetOf(t.lastPoint, t.lastPoint, cursor);
            t.previewEnd = offsetOf(cursor, t.lastPoint, cursor);
            Steps::AddToBand(offsetPreview, t.previewCorner);
        } else {
            const double newSlope = Geometry::Slope(t.lastPoint, cursor, newGuard);
            t.previewEnd = offsetOf(cursor, t.lastPoint, cursor);
            const std::size_t n = t.mainPoints.size();
            const double oldSlope =
                Geometry::Slope(t.mainPoints.at(n - 2), t.mainPoints.at(n - 1), oldGuard);
            t.previewCorner = Geometry::Corner(start, oldSlope, t.previewEnd, newSlope);
            Steps::AddToBand(offsetPreview, t.offsetPoints.back());
            Steps::AddToBand(offsetPreview, t.previewCorner);
        }
        Steps::AddToBand(offsetPreview, t.previewEnd);
        offsetPreview->Update();
        Steps::AddToBand(mainPreview, cursor);
        t.cursorPoint = cursor;
        mainPreview->Update();
    }

    // ---- keys ----

    // "E": the end vertex is the offset of the last vertex at the width typed last.
    bool finishTyped() {
        if (t.pointCount < 2) return false;
        const std::size_t n = t.mainPoints.size();
        addOffsetVertex(caculateFouthyPoint(t.mainPoints.at(n - 2), t.mainPoints.at(n - 1)));
        finish();
        Steps::Prompt(t.mBuddy, kWidthPrompt);
        return true;
    }

    // "U": the last clicked vertex goes, and with it the offset vertex it fixed.
    bool giveUp() {
        if (t.pointCount < 2) return false;
        t.mainBand->RemoveLastPoint(0);
        t.mainPoints.pop_back();
        t.lastPoint = t.mainPoints.back();
        --t.pointCount;
        if (t.pointCount > 1)
            t.segEnd = t.lastPoint;
        else if (t.pointCount == 1)
            t.segStart = t.lastPoint;
        t.offsetBand->RemoveLastPoint(0);
        t.offsetPoints.pop_back();
        if (!t.offsetPoints.empty()) t.offsetCorner = t.offsetPoints.back();
        t.mainBand->Update();
        t.offsetBand->Update();
        for (TLRubberBand* band : {t.tempMainBand, t.tempOffsetBand}) {
            band->Clear();
            band->Update();
        }
        drawTempRubberBand(t.cursorPoint.x, t.cursorPoint.y, t.tempMainBand, t.tempOffsetBand);
        Steps::Prompt(t.mBuddy, kGoOnPrompt);
        return true;
    }

    // Both lines are written, the pair is dropped and the map redrawn where they went.
    void finish() {
        TLRect rect;
        t.EndEntity(rect);
        t.Reset();
        Steps::RefreshMap(t.mBuddy, rect);
    }

    // One line feature of `points`, built in map coordinates and projected into the layer's.
    void addLineFeature(TLLayerEditBuffer* buffer, TLCoordinateSystem* reference,
                        const std::vector<TLPoint>& points, TLRect& rect) {
        std::vector<double> xy;
        xy.reserve(points.size() * 2);
        for (const TLPoint& p : points) {
            xy.push_back(p.x);
            xy.push_back(p.y);
        }
        TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline);
        line->AddPoints(xy.data(), int(points.size()));
        line->EndEntity();
        // The bound is taken before the projection: the view refreshes in map coordinates.
        rect.Union(line->GetBound());
        t.mBuddy->GetMapView()->GetDisplay()->ToGeometry(reference, line.get());
        TLFeature feature;
        feature.SetGeometry(line);
        buffer->AddFeature(feature, true, true);
    }

    Tool& t;
};

}  // namespace TMObjects
