#pragma once

#include <cmath>

namespace TMObjects {

// The largest magnitude of a coordinate the host keeps, draws or stores: 10^15 map units. Beyond
// it no projection gives a meaningful answer, and sums, spans and squared distances of such
// coordinates leave the range where a view can be computed; a typed 1.7976931348623157e308 is
// a slip, not a place. A write with such a coordinate is refused with a message, as one with a
// coordinate that is no number, and a view that would show one is not taken.
constexpr double TLCoordinateLimit = 1e15;

inline bool TLUsableCoordinate(double value) {
    return std::isfinite(value) && std::fabs(value) <= TLCoordinateLimit;
}

}  // namespace TMObjects
