#pragma once

#include <vector>

#include "tlbase/TLPoint.h"

namespace TMObjects {

// The vertices of the arc and ring commands: whole degrees counter-clockwise from east about a
// centre, where the circle runs from west. The arithmetic is kept as the commands have always
// done it, the angle lost on the arc's wrapped run included, so that a drawn shape has the same
// vertices whether it was clicked or typed.
class TLArcSamples {
public:
    using Path = std::vector<TLPoint>;

    // The angles of the three points about the centre in degrees, counter-clockwise from east.
    // The first and third are ordered so that `start` is the smaller; `middle` stays the second
    // point's.
    struct Angles {
        double start = 0.0;
        double middle = 0.0;
        double end = 0.0;
    };

    // The point at `degrees` on the circle of `radius` about `centre`.
    static TLPoint Vertex(const TLPoint& centre, double radius, double degrees);
    // The angle of `p` about the centre, from 0 up to 360, with the cosine taken against the
    // radius given rather than the point's own distance.
    static double AngleOf(const TLPoint& centre, double radius, const TLPoint& p);
    static Angles ArcAngles(const TLPoint& centre, double radius, const TLPoint& first,
                            const TLPoint& second, const TLPoint& third);

    // The arc through the three points, always counter-clockwise: from `start` to `end` when the
    // second point lies between them, else from `end` round through east to `start`, restarting
    // at one degree. Empty when the points give no way round (a second point on the first or
    // third angle with both on one side of the centre, or no centre at all).
    static Path Arc(const TLPoint& centre, double radius, const Angles& angles,
                    const TLPoint& first, const TLPoint& third);

    // The 361 samples of the whole circle from 0 to 360 degrees, east first, counter-clockwise.
    static Path Ring(const TLPoint& centre, double radius);
    // The same samples mirrored about the centre's level, so that they run clockwise.
    static Path ReversedRing(const TLPoint& centre, double radius);
};

}  // namespace TMObjects
