#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlbase/TLString.h"

namespace TMObjects {

// The plane geometry of the plotted symbols: azimuths, Bezier and B-spline smoothing, and the
// outlines of arrows and flags. It keeps no state, so every result depends on the arguments
// alone. Output lists are appended to unless an operation says it clears them. Every length of
// an arrow is a proportion of the length of its control line, so the symbol scales with what is
// drawn. A side is the text "left"; any other text means right.
class TL_ACTIONEX_EXPORT TLCmdArrowHelper {
public:
    TLCmdArrowHelper() = default;
    ~TLCmdArrowHelper() = default;
    TLCmdArrowHelper& operator=(const TLCmdArrowHelper&) = default;

    // ---- measures ----

    double Distance(const TLPoint& a, const TLPoint& b);
    void getMidPoint(const TLPoint& a, const TLPoint& b, TLPoint& out);
    // The length of the path through all points; 0.0 below two points.
    double wholeDistance(const std::vector<TLPoint>& points);
    double getBaseLength(const std::vector<TLPoint>& points);

    // ---- angles and constructed points ----

    // The direction from `end` back to `start`, anticlockwise from +X, in [0, 2 pi]. NaN for two
    // equal points.
    double getAzimuthAngle(const TLPoint& start, const TLPoint& end);
    // The angle at b from the ray b-c round to the ray b-a, in [0, 2 pi).
    double getAngleOfThreePoints(const TLPoint& a, const TLPoint& b, const TLPoint& c);
    // The point at `distance` from `end`, turned by `angle` from the direction back to `start`:
    // anticlockwise with side "left", clockwise otherwise.
    void getThirdPoint(const TLPoint& start, const TLPoint& end, double angle, double distance,
                       const TLString& side, TLPoint& out);
    // The apex of the equilateral triangle on a and b.
    void getThirdEgXY(const TLPoint& a, const TLPoint& b, TLPoint& out);

    // ---- smoothing ----

    double getFactorial(double n);
    double getBinomialFactor(double n, double i);
    // The Bezier curve of all points as 101 samples ending on the last point; two points or
    // fewer are copied as they are.
    void getBezierPoints(const std::vector<TLPoint>& in, std::vector<TLPoint>& out);
    double getQuadricBSplineFactor(double k, double t);
    double getBSplineFFactor(double k, double n, double t);
    // The uniform B-spline of the given degree, 20 samples a span, pinned to the first and the
    // last point; short lists are copied as they are.
    void getBSplinePoints(const std::vector<TLPoint>& in, int degree, std::vector<TLPoint>& out);
    // A smooth closed curve through every point, one cubic span from point to point. The list is
    // extended by its first two points on the way, as the caller will see.
    void getAdvancedBezierPoints(std::vector<TLPoint>& points, std::vector<TLPoint>& out);

    // ---- arrows ----

    // Five points: neck left, head left, tip, head right, neck right.
    void getArrowHeadPoints(const std::vector<TLPoint>& points, double headHeightFactor,
                            double headWidthFactor, double neckHeightFactor, double neckWidthFactor,
                            std::vector<TLPoint>& out);
    // One left and one right edge point for each inner control point: all left ones, then all
    // right ones.
    void getArrowBodyPoints(const std::vector<TLPoint>& points, const TLPoint& neckLeft,
                            const TLPoint& neckRight, double tailWidthFactor, double leftFactor,
                            double rightFactor, std::vector<TLPoint>& out);
    // Tail left, the swallow point when asked for, tail right.
    void getArrowTailPoints(const std::vector<TLPoint>& points, double tailWidthFactor,
                            bool hasSwallowTail, double swallowTailFactor,
                            std::vector<TLPoint>& out);
    // The outline of a thin arrow from the tail round the head and back; closed with a swallow
    // tail, open from tail left to tail right without one. Fit mode "useBezierFit" smooths the
    // edges as Bezier curves, anything else as quadratic B-splines.
    void getArrowPlot(const std::vector<TLPoint>& points, bool hasSwallowTail,
                      double swallowTailFactor, const TLString& fitMode, double headHeightFactor,
                      double headWidthFactor, double neckHeightFactor, double neckWidthFactor,
                      double tailWidthFactor, std::vector<TLPoint>& out);
    // The closed outline of a wide arrow whose first two points are the corners of its tail.
    // Nothing below three points.
    void createWideStraightArrow(std::vector<TLPoint> points, std::vector<TLPoint>& out);
    // The same with a notch in the tail.
    void createWideSwallowArrow(std::vector<TLPoint> points, std::vector<TLPoint>& out);

    // ---- flags ----
    // `start` is the top of the pole, `end` the far lower corner; flags stay upright. Start and
    // end level or plumb leave the output as it was; otherwise it is cleared and refilled.

    void getTriangelFlagPoints(TLPoint start, TLPoint end, std::vector<TLPoint>& out);
    void getStraightFlagPoints(TLPoint start, TLPoint end, std::vector<TLPoint>& out);
    void getCurveFlagPoints(TLPoint start, TLPoint end, std::vector<TLPoint>& out);

private:
    // The two edges of a wide arrow, smoothed, and its head, as both wide arrows share them.
    void wideArrowParts(const std::vector<TLPoint>& points, std::vector<TLPoint>& spine,
                        std::vector<TLPoint>& head, std::vector<TLPoint>& leftEdge,
                        std::vector<TLPoint>& rightEdge);
    // The x of the pole's inner side for a thickness `t`, on the side the flag flies to.
    double poleInnerX(const TLPoint& middle, const TLPoint& farEnd, double t);
    // The cubic edge of a waving flag from `from` to `to`: a quarter in it swings one way by
    // `h`, three quarters in the other way.
    void wavingEdge(const TLPoint& from, const TLPoint& to, double f, double h,
                    std::vector<TLPoint>& out);
};

}  // namespace TMObjects
