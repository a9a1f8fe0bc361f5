#include <cmath>

#include "data/CcurrencyFunc.h"

namespace TMObjects {

double CcurrencyFunc::point_EdgeSpace(double px, double py, double ax, double ay, double bx,
                                      double by, double* fx, double* fy) {
    const double dx = bx - ax, dy = by - ay;
    const double length2 = dx * dx + dy * dy;
    double t = length2 > 0.0 ? ((px - ax) * dx + (py - ay) * dy) / length2 : 0.0;
    t = std::fmin(1.0, std::fmax(0.0, t));
    // The ends themselves, not a + 1 * (b - a), so that a foot at an end is that end exactly.
    const double qx = t == 1.0 ? bx : ax + t * dx;
    const double qy = t == 1.0 ? by : ay + t * dy;
    if (fx) *fx = qx;
    if (fy) *fy = qy;
    return std::hypot(px - qx, py - qy);
}

}  // namespace TMObjects
