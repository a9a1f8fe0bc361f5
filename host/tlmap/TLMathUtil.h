#pragma once

#include "tlbase/TLPoint.h"

namespace TMObjects {

class TLMathUtil {
public:
    // The angle at (x2, y2) between the rays to (x1, y1) and (x3, y3), in radians, 0 to pi; 0
    // when either ray has no length.
    static double Angle(const double& x1, const double& y1, const double& x2, const double& y2,
                        const double& x3, const double& y3);
    static double Distance(const TLPoint& a, const TLPoint& b);
};

}  // namespace TMObjects
