#pragma once

#include <vector>

#include "tlbase/TLPoint.h"
#include "tlbase/TLString.h"

namespace TMObjects {

class TLRubberBand;

// Static calculators of the digitizing commands: typed input and the constructions of surveying.
class TLDrawCommonTool {
public:
    // Two numbers separated by a comma, x first; blanks around each number, a sign, decimals
    // and an exponent are allowed; false on anything else.
    static bool ReadInputPoint(const TLString& text, double& x, double& y);
    // True when the whole text (blanks around it allowed) is one number.
    static bool CheckStrIsDouble(const TLString& text);
    static bool CheckStrIsLength(TLString text);
    static void GetLenFromStr(TLString text, double& length);
    static double Distance(double x1, double y1, double x2, double y2);
    static double Distance(TLPoint a, TLPoint b);
    // The direction from the first point to the second, in radians, as atan2(dy, dx); 0 for equal
    // points.
    static double FangWei(double x1, double y1, double x2, double y2);
    static double PointDistanceLine(double x1, double y1, double x2, double y2, double x, double y);
    // The foot of the perpendicular from (x, y) on the line through the two points, also beyond
    // them; false when the two points are equal.
    static bool GetNotLinePlumb(double x1, double y1, double x2, double y2, double x, double y,
                                double& fx, double& fy);
    static bool CalculateDistancePoint(const double& x1, const double& y1, const double& x2,
                                       const double& y2, const double& length, double& x,
                                       double& y);
    static bool CalculateExtendPoint(TLPoint* a, TLPoint* b, const double& length, double& x,
                                     double& y);
    static bool ChangeLength(TLPoint a, TLPoint b, TLPoint& out, double length);
    static bool CalculateMicroPoint(const double& x1, const double& y1, const double& x2,
                                    const double& y2, const double& angle, const double& distance,
                                    double& x, double& y);
    static bool CalculateIntersectPoint(const double& ax, const double& ay, const double& bx,
                                        const double& by, const double& cx, const double& cy,
                                        const double& dx, const double& dy, double& x, double& y);
    static bool CalculateSpacePoint(TLRubberBand* band, std::vector<TLPoint> points,
                                    const double& x, const double& y, double& ox, double& oy);
    static void ComputePoint(double angle, TLPoint centre, double radius, double startAngle,
                             TLPoint& out);
    static void GetIntersectPoint(TLPoint a, TLPoint b, TLPoint c, TLPoint& cornerB,
                                  TLPoint& cornerD);
};

}  // namespace TMObjects
