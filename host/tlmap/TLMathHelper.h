#pragma once

#include "tlbase/TLPoint.h"
#include "tlmap/TLMathUtil.h"  // callers reach TLMathUtil through this header too

namespace TMObjects {

class TLMathHelper {
public:
    // The angle at (x2, y2) between the rays to (x1, y1) and (x3, y3), in radians, 0 to pi; 0
    // when either ray has no length.
    static double Angle(double x1, double y1, double x2, double y2, double x3, double y3);
    // Rotates (x, y) about (cx, cy) counter-clockwise by `angle` (radians, or degrees when
    // `degrees` is true). A non-finite angle leaves the point where it is.
    static void RotatePoint(double& x, double& y, double cx, double cy, double angle, bool degrees);
};

}  // namespace TMObjects
