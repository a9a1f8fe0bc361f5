#pragma once

#include <string>

#include "tlgeo/TLGeometry.h"

namespace TMObjects {

// Compares a geometry with an expected one written as WKT: the same kind and parts, and each
// vertex, in order, within a tolerance of the expected one. Rings keep their direction, so a
// ring drawn the other way round is a different ring.
class TLGeometryMatch {
public:
    // False with the reason in `why`: the expected text does not read as a geometry, the kind or
    // the parts differ, or the first vertex that lies too far.
    static bool Matches(TLGeometry* actual, const std::string& expectedWkt, double tolerance,
                        std::string& why);
};

}  // namespace TMObjects
