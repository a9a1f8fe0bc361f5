#include "data/CcurrencyFunc.h"

#include <cmath>

namespace TMObjects {

double CcurrencyFunc::point_EdgeProject(double px, double py, double ax, double ay, double bx,
                                        double by, double* qx, double* qy) {
    const double dx = bx - ax;
    const double dy = by - ay;
    const double lengthSquared = dx * dx + dy * dy;
    double t = 0.0;
    if (lengthSquared > 0.0) t = ((px - ax) * dx + (py - ay) * dy) / lengthSquared;
    if (qx) *qx = ax + t * dx;
    if (qy) *qy = ay + t * dy;
    return t;
}

double CcurrencyFunc::calcPointSpace(double x1, double y1, double x2, double y2) {
    return std::hypot(x2 - x1, y2 - y1);
}

}  // namespace TMObjects
