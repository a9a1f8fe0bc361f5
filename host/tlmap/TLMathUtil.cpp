#include "tlmap/TLMathUtil.h"

#include <cmath>

namespace TMObjects {

double TLMathUtil::Angle(const double& x1, const double& y1, const double& x2, const double& y2,
                         const double& x3, const double& y3) {
    const double ax = x1 - x2, ay = y1 - y2;
    const double bx = x3 - x2, by = y3 - y2;
    // atan2 of the cross and dot products stays accurate near 0 and pi, where acos of a
    // cosine loses half of its digits, and gives 0 instead of NaN for a ray of no length.
    const double angle = std::atan2(std::fabs(ax * by - ay * bx), ax * bx + ay * by);
    return std::isfinite(angle) ? angle : 0.0;
}

double TLMathUtil::Distance(const TLPoint& a, const TLPoint& b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

}  // namespace TMObjects
