#include <algorithm>
#include <cmath>

#include "data/CcurrencyFunc.h"

namespace TMObjects {

namespace {

struct Meeting {
    double* x;
    double* y;
    int put(int code, double px, double py) const {
        if (x) *x = px;
        if (y) *y = py;
        return code;
    }
};

bool near(double px, double py, double qx, double qy, double tolerance) {
    return std::hypot(px - qx, py - qy) <= tolerance;
}

// The distance of p from the infinite line through a and b (of positive length).
double lineDistance(double px, double py, double ax, double ay, double bx, double by) {
    return std::fabs((bx - ax) * (py - ay) - (by - ay) * (px - ax)) / std::hypot(bx - ax, by - ay);
}

double along(double px, double py, double ax, double ay, double bx, double by) {
    const double dx = bx - ax, dy = by - ay;
    return ((px - ax) * dx + (py - ay) * dy) / (dx * dx + dy * dy);
}

double cross(double ux, double uy, double vx, double vy) {
    return ux * vy - uy * vx;
}

}  // namespace

int CcurrencyFunc::edge_edge(double ax, double ay, double bx, double by, double cx, double cy,
                             double dx, double dy, double* x, double* y, double tolerance) {
    const Meeting meet{x, y};
    const double tol = std::isfinite(tolerance) ? std::max(tolerance, 0.0) : 0.0;
    const double lengthAB = std::hypot(bx - ax, by - ay);
    const double lengthCD = std::hypot(dx - cx, dy - cy);

    if (lengthAB > tol && lengthCD > tol && lineDistance(cx, cy, ax, ay, bx, by) <= tol &&
        lineDistance(dx, dy, ax, ay, bx, by) <= tol) {
        const double tc = along(cx, cy, ax, ay, bx, by), td = along(dx, dy, ax, ay, bx, by);
        const double lo = std::max(0.0, std::min(tc, td)), hi = std::min(1.0, std::max(tc, td));
        if ((hi - lo) * lengthAB > tol)
            return meet.put(-1234, ax + lo * (bx - ax), ay + lo * (by - ay));
    }

    if (near(ax, ay, cx, cy, tol)) return meet.put(13, ax, ay);
    if (near(ax, ay, dx, dy, tol)) return meet.put(14, ax, ay);
    if (near(bx, by, cx, cy, tol)) return meet.put(23, bx, by);
    if (near(bx, by, dx, dy, tol)) return meet.put(24, bx, by);

    if (point_EdgeSpace(ax, ay, cx, cy, dx, dy, nullptr, nullptr) <= tol)
        return meet.put(1, ax, ay);
    if (point_EdgeSpace(bx, by, cx, cy, dx, dy, nullptr, nullptr) <= tol)
        return meet.put(2, bx, by);
    if (point_EdgeSpace(cx, cy, ax, ay, bx, by, nullptr, nullptr) <= tol)
        return meet.put(3, cx, cy);
    if (point_EdgeSpace(dx, dy, ax, ay, bx, by, nullptr, nullptr) <= tol)
        return meet.put(4, dx, dy);

    const double o1 = cross(bx - ax, by - ay, cx - ax, cy - ay);
    const double o2 = cross(bx - ax, by - ay, dx - ax, dy - ay);
    const double o3 = cross(dx - cx, dy - cy, ax - cx, ay - cy);
    const double o4 = cross(dx - cx, dy - cy, bx - cx, by - cy);
    if (((o1 < 0 && o2 > 0) || (o1 > 0 && o2 < 0)) && ((o3 < 0 && o4 > 0) || (o3 > 0 && o4 < 0))) {
        const double t = o3 / (o3 - o4);
        return meet.put(1234, ax + t * (bx - ax), ay + t * (by - ay));
    }
    return 0;
}

}  // namespace TMObjects
