#pragma once

#include "tlbase/TLPoint.h"

namespace TMObjects {

class TLDisplayTransform;

// The plane constructions of the command-line digitizing tools that are their own and not the
// host's calculators: the dashed square guide, the micro-traverse angle of a click and the
// parallel references. Stateless, so that the line and polygon commands share them.
class TLDigitizeConstruction {
public:
    // The end of the dashed guide square to the segment from `a` to `b` at `b`, as long as the
    // pointer `m` is far from `b`, on the pointer's side. False while the pointer leaves `b` at an
    // angle to the segment outside 60 to 120 degrees, where no guide is shown.
    static bool VerticalGuideEnd(const TLPoint& a, const TLPoint& b, const TLPoint& m,
                                 TLPoint& end);

    // The micro-traverse angle in degrees that a click at `p` gives at the station `b` with the
    // back-sight `a`: below 180 for a click left of the line from `a` to `b`, above for one right
    // of it.
    static double MicroTraverseTurn(const TLPoint& a, const TLPoint& b, const TLPoint& p);

    // A second point of the line through `b` parallel to the picked segment: 100 map units away
    // in the segment's direction.
    static TLPoint ParallelThrough(const TLPoint& b, const TLPoint& pickStart,
                                   const TLPoint& pickEnd);

    // Where the guide of a parallel extension ends for the pointer at `m`: on the reference
    // line's slope through `b`, straight above or below the pointer.
    static TLPoint ParallelExtendGuide(const TLPoint& refStart, const TLPoint& refEnd,
                                       const TLPoint& b, const TLPoint& m);

    // The point `distance` away from `b` along the direction from `refStart` to `refEnd`; a
    // negative distance goes the other way.
    static TLPoint ParallelOffset(const TLPoint& b, const TLPoint& refStart, const TLPoint& refEnd,
                                  double distance);

    // The image conversion: a map point as device pixels of the transform.
    static TLPoint ImageForm(const TLDisplayTransform& transform, const TLPoint& p);

    // True when all four coordinates are 0, which is how a missing pick or reference shows.
    static bool AllZero(const TLPoint& start, const TLPoint& end);
};

}  // namespace TMObjects
