#include <cmath>

#include "data/CcurrencyFunc.h"

namespace TMObjects {

// Mode 0 bounds the foot to the segment a-b and gives the distance to the segment; any other mode
// takes the whole line through a and b. A line of no length (a equals b) has its foot at a.
double CcurrencyFunc::point_LineSpace(double px, double py, double ax, double ay, double bx,
                                      double by, double* fx, double* fy, int mode) {
    const double dx = bx - ax, dy = by - ay;
    const double length2 = dx * dx + dy * dy;
    double t = length2 > 0.0 ? ((px - ax) * dx + (py - ay) * dy) / length2 : 0.0;
    if (mode == 0) t = std::fmin(1.0, std::fmax(0.0, t));
    // The ends themselves, not a rounded sum, when the foot is on them.
    const double qx = t == 0.0 ? ax : t == 1.0 ? bx : ax + t * dx;
    const double qy = t == 0.0 ? ay : t == 1.0 ? by : ay + t * dy;
    if (fx) *fx = qx;
    if (fy) *fy = qy;
    return std::hypot(px - qx, py - qy);
}

}  // namespace TMObjects
