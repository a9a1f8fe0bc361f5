#pragma once

#include "TLPluginExport.h"

namespace TMObjects {

class TLGeometry;

// The hit tests by which the editing tools decide what a click meant. Coordinates and tolerance
// are in one system; results index the geometry's raw point array, over all its parts.

// The first vertex whose x and y both lie strictly within `tolerance` of the click (a square
// box, open at its edges), with its coordinates; -1 when none. A point geometry gives 0.
TL_ACTIONEX_EXPORT int hitVertex(TLGeometry* geometry, double x, double y, double tolerance,
                                 double& outX, double& outY);

// The start vertex of the first segment whose perpendicular foot lies on it and no farther than
// `tolerance` from the click (both bounds inclusive); -1 when none. Points give -1.
TL_ACTIONEX_EXPORT int hitSegment(TLGeometry* geometry, double x, double y, double tolerance);

}  // namespace TMObjects
