#include "digitize/TLDoubleLineGeometry.h"

#include <cmath>

namespace TMObjects {

TLPoint TLDoubleLineGeometry::Offset(double side, double width, const TLPoint& point,
                                     const TLPoint& a, const TLPoint& b) {
    // atan folds the direction into the right half-plane; the test on x turns it back.
    const double t = std::atan((b.y - a.y) / (b.x - a.x));
    const double w = side * width;
    if (a.x > b.x) return TLPoint(point.x - std::sin(t) * w, point.y + std::cos(t) * w);
    return TLPoint(point.x + std::sin(t) * w, point.y - std::cos(t) * w);
}

double TLDoubleLineGeometry::Slope(const TLPoint& a, const TLPoint& b, double guard) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    if (dx == 0.0 && guard != 0.0) return dy / guard;
    return dy / dx;
}

TLPoint TLDoubleLineGeometry::Corner(const TLPoint& p, double kp, const TLPoint& q, double kq) {
    const double x = (kp * p.x + (q.y - p.y) - kq * q.x) / (kp - kq);
    return TLPoint(x, (x - q.x) * kq + q.y);
}

}  // namespace TMObjects
