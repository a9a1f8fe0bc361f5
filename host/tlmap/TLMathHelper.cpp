#include "tlmap/TLMathHelper.h"

#include <cmath>

namespace TMObjects {

double TLMathHelper::Angle(double x1, double y1, double x2, double y2, double x3, double y3) {
    return TLMathUtil::Angle(x1, y1, x2, y2, x3, y3);
}

void TLMathHelper::RotatePoint(double& x, double& y, double cx, double cy, double angle,
                               bool degrees) {
    const double radians = degrees ? angle * 3.141592653589793 / 180.0 : angle;
    if (!std::isfinite(radians)) return;
    const double c = std::cos(radians), s = std::sin(radians);
    const double dx = x - cx, dy = y - cy;
    x = cx + dx * c - dy * s;
    y = cy + dx * s + dy * c;
}

}  // namespace TMObjects
