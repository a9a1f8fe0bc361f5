#pragma once

#include "tlbase/TLPoint.h"

namespace TMObjects {

class TLMathHelper {
public:
    // The angle at (x2, y2) between the rays to (x1, y1) and (x3, y3), in radians, 0 to pi.
    static double Angle(double x1, double y1, double x2, double y2, double x3, double y3);
    // Rotates (x, y) about (cx, cy) counter-clockwise by `angle` (radians, or degrees when
    // `degrees` is true).
    static void RotatePoint(double& x, double& y, double cx, double cy, double angle, bool degrees);
};

class TLMathUtil {
public:
    static double Angle(const double& x1, const double& y1, const double& x2, const double& y2,
                        const double& x3, const double& y3);
    static double Distance(const TLPoint& a, const TLPoint& b);
};

}  // namespace TMObjects
