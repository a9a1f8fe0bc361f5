#pragma once

namespace TMObjects {

// Static calculators used while dragging.
class TLSnapReckon {
public:
    static bool getNotLinePlumb(double x1, double y1, double x2, double y2, double x, double y,
                                double& fx, double& fy);
    // The foot on the segment itself; false when it falls beyond either end.
    static bool getPlumb(double x1, double y1, double x2, double y2, double x, double y,
                         double& fx, double& fy);
    static double fangWei(double x1, double y1, double x2, double y2);
    static double calcDistance(double x1, double y1, double x2, double y2);
    // Whether (x, y) lies within `tolerance` of the segment, and the nearest point on it.
    static bool ptNearLine(const double& x1, const double& y1, const double& x2, const double& y2,
                           const double& x, const double& y, const double& tolerance, double& fx,
                           double& fy);
};

}  // namespace TMObjects
