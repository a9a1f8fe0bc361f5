#pragma once

#include "tlbase/TLPoint.h"

namespace TMObjects {

// The plane arithmetic of the double line commands: the offset of a vertex, the slope of a
// segment and the mitred corner where two offset lines meet. None of it guards against
// degenerate input: a segment of no length or two parallel lines give a point that is not
// finite, and the commands pass it on as it is.
class TLDoubleLineGeometry {
public:
    // `point` moved by `width` at right angles to the direction from `a` to `b`, on the
    // right-hand side of that direction for `side` 1 and on the left for -1. Worked through the
    // arctangent of the slope, so that a vertical direction comes out exact.
    static TLPoint Offset(double side, double width, const TLPoint& point, const TLPoint& a,
                          const TLPoint& b);
    // dy/dx from `a` to `b`. Where dx is exactly 0 a non-zero `guard` stands in for it, which
    // keeps the slope finite; a guard of 0 leaves the division as it is.
    static double Slope(const TLPoint& a, const TLPoint& b, double guard);
    // Where the line through `p` with slope `kp` meets the line through `q` with slope `kq`; y is
    // read off the second line.
    static TLPoint Corner(const TLPoint& p, double kp, const TLPoint& q, double kq);
};

}  // namespace TMObjects
