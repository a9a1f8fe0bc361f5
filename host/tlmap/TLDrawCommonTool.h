#pragma once

#include <vector>

#include "tlbase/TLPoint.h"
#include "tlbase/TLString.h"

namespace TMObjects {

class TLRubberBand;

// Static calculators of the digitizing commands: typed input and the constructions of surveying.
// Angles are radians unless a line says otherwise. A calculator that answers false leaves its
// results untouched; one that answers a double never answers a NaN for finite input.
class TLDrawCommonTool {
public:
    // Two numbers separated by a comma, x first; blanks around each number, a sign, decimals
    // and an exponent are allowed; false on anything else (also on nan, inf and hex).
    static bool ReadInputPoint(const TLString& text, double& x, double& y);
    // True when the whole text (blanks around it allowed) is one number.
    static bool CheckStrIsDouble(const TLString& text);
    // A length is typed as one plain number, sign allowed: the callers refuse the
    // non-positive ones themselves, silently.
    static bool CheckStrIsLength(TLString text);
    // The value of such a length; 0 for a text that is none.
    static void GetLenFromStr(TLString text, double& length);
    static double Distance(double x1, double y1, double x2, double y2);
    static double Distance(TLPoint a, TLPoint b);
    // The direction from the first point to the second, in radians, as atan2(dy, dx); 0 for equal
    // points.
    static double FangWei(double x1, double y1, double x2, double y2);
    // The perpendicular distance from (x, y) to the line through the two points, signed:
    // positive on the right of the direction from the first point to the second, negative on
    // its left. For equal points it is the plain distance to that point.
    static double PointDistanceLine(double x1, double y1, double x2, double y2, double x, double y);
    // The foot of the perpendicular from (x, y) on the line through the two points, also beyond
    // them; false when the two points are equal.
    static bool GetNotLinePlumb(double x1, double y1, double x2, double y2, double x, double y,
                                double& fx, double& fy);
    // The point at the signed `length` from the first point towards the second; false for equal
    // points.
    static bool CalculateDistancePoint(const double& x1, const double& y1, const double& x2,
                                       const double& y2, const double& length, double& x,
                                       double& y);
    // The point at the signed `length` beyond `b` on the ray from `a` through `b`; false for
    // null or equal points.
    static bool CalculateExtendPoint(TLPoint* a, TLPoint* b, const double& length, double& x,
                                     double& y);
    // The new end of the segment from `a` through `b` when it is given `length`; false for equal
    // points and for a length that is not positive.
    static bool ChangeLength(TLPoint a, TLPoint b, TLPoint& out, double length);
    // The next point of a micro-traverse: from (x2, y2) at `distance`, in the direction met by
    // turning clockwise by `angle` degrees from the back-sight towards (x1, y1). So 180 goes
    // straight on, 90 turns left and 270 turns right. False for equal points.
    static bool CalculateMicroPoint(const double& x1, const double& y1, const double& x2,
                                    const double& y2, const double& angle, const double& distance,
                                    double& x, double& y);
    // The crossing of the line through A and B with the line through C and D; false when they
    // are parallel or one of them has equal points.
    static bool CalculateIntersectPoint(const double& ax, const double& ay, const double& bx,
                                        const double& by, const double& cx, const double& cy,
                                        const double& dx, const double& dy, double& x, double& y);
    // The corner left out of an interval: from the last point of `points` the path turns square
    // to (ox, oy), and square again on to (x, y), as along the walls of a building. The
    // direction comes from the last two distinct points of the band's last part (of the whole
    // list when `band` is null). False when they do not fix a direction, or when (x, y) lies
    // on one of the two legs already, so that no corner is needed.
    static bool CalculateSpacePoint(TLRubberBand* band, std::vector<TLPoint> points,
                                    const double& x, const double& y, double& ox, double& oy);
    // (x, y) turned counter-clockwise by `angle` about `pivot`: the next vertex of a regular
    // polygon, from the previous one about the centre or about the current vertex.
    static void ComputePoint(double angle, TLPoint pivot, double x, double y, TLPoint& out);
    // The two other corners of the rectangle with the diagonal from `a` to `c` whose edge from
    // `a` to `cornerB` lies on the line from `a` through `edgePoint`. With `edgePoint` equal to
    // `a` the rectangle collapses onto the diagonal: `cornerB` is `a` and `cornerD` is `c`.
    static void GetIntersectPoint(TLPoint a, TLPoint edgePoint, TLPoint c, TLPoint& cornerB,
                                  TLPoint& cornerD);
};

}  // namespace TMObjects
