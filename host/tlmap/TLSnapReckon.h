#pragma once

namespace TMObjects {

// Static calculators used while dragging and picking. A calculator that answers false leaves
// its results untouched.
class TLSnapReckon {
public:
    // The foot on the line through the two points, also beyond them; false when they are equal.
    static bool getNotLinePlumb(double x1, double y1, double x2, double y2, double x, double y,
                                double& fx, double& fy);
    // The foot on the segment itself, ends included; false when it falls beyond either end or
    // the two points are equal.
    static bool getPlumb(double x1, double y1, double x2, double y2, double x, double y, double& fx,
                         double& fy);
    // As TLDrawCommonTool::FangWei: atan2(dy, dx), 0 for equal points.
    static double fangWei(double x1, double y1, double x2, double y2);
    static double calcDistance(double x1, double y1, double x2, double y2);
    // Whether (x, y) lies within `tolerance` of the segment, the boundary included. The nearest
    // point of the segment (an end when the foot falls beyond it) is written in either case,
    // unless an input is not finite.
    static bool ptNearLine(const double& x1, const double& y1, const double& x2, const double& y2,
                           const double& x, const double& y, const double& tolerance, double& fx,
                           double& fy);
};

}  // namespace TMObjects
