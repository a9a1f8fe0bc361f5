#pragma once

#include <vector>

#include "tlbase/TLPoint.h"

namespace TMObjects {

// The vertices of the circle and ellipse commands, in map coordinates and in the order their
// band shows them. The arithmetic is kept exactly as the commands have always done it, odd steps
// included (single-precision radii, a fixed ellipse step), so that a drawn shape has the same
// vertices whatever the input path.
class TLCurveSamples {
public:
    using Ring = std::vector<TLPoint>;

    // The distance between two points as the commands take a radius: the square in double
    // precision, its root in single precision.
    static double SinglePrecisionDistance(const TLPoint& a, const TLPoint& b);
    // Whether a circle of this radius is too small to draw; NaN is not.
    static bool IsTooSmall(double radius);

    // The circle from its west end by whole degrees, through south, east and north, to 360
    // degrees, then the first vertex again: 362 points.
    static Ring Circle(const TLPoint& centre, double radius);
    // The same circle starting one degree past west, its first vertex twice: the clicked
    // two-point circle has always been drawn so. 362 points, none at west.
    static Ring CircleFromOneDegree(const TLPoint& centre, double radius);
    // The 361 vertices of the circle by whole degrees that starts at `start`, at the radius
    // given; the preview of a circle through the pointer.
    static Ring CircleThrough(const TLPoint& centre, double radius, const TLPoint& start);
    // The centre of the circle through three points, from the crossing of two chord bisectors.
    // Points that make no circle (collinear, or a chord without height) give infinite or NaN
    // coordinates.
    static TLPoint ThreePointCentre(const TLPoint& p1, const TLPoint& p2, const TLPoint& p3);

    // The ellipse about `centre` with semi-axes `a` along the direction `angle` (radians,
    // anticlockwise from +x) and `b` across it, sampled by one fixed step: 158 samples and the
    // first again, whatever the size. Semi-axes that are both zero give the centre alone.
    static Ring Ellipse(const TLPoint& centre, double a, double b, double angle);
    // The direction from `centre` to `axisEnd` from 0 up to 2 pi, anticlockwise from +x; within
    // 0.0001 radian of a quadrant's start it is that start.
    static double AxisAngle(const TLPoint& centre, const TLPoint& axisEnd);
};

}  // namespace TMObjects
