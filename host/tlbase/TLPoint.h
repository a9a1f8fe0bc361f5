#pragma once

#include <cmath>

namespace TMObjects {

// A point in the plane: a pair of doubles. Tools read x and y directly.
class TLPoint {
public:
    TLPoint() = default;
    TLPoint(double px, double py) : x(px), y(py) {}

    double X() const { return x; }
    double Y() const { return y; }
    void setX(double v) { x = v; }
    void setY(double v) { y = v; }
    bool Valid() const { return std::isfinite(x) && std::isfinite(y); }
    double SqrDist(const TLPoint& o) const { return SqrDist(o.x, o.y); }
    double SqrDist(double ox, double oy) const {
        const double dx = x - ox, dy = y - oy;
        return dx * dx + dy * dy;
    }

    double x = 0.0;
    double y = 0.0;
};

inline bool operator==(const TLPoint& a, const TLPoint& b) {
    return a.x == b.x && a.y == b.y;
}
inline bool operator!=(const TLPoint& a, const TLPoint& b) {
    return !(a == b);
}

}  // namespace TMObjects
