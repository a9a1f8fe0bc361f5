#pragma once

#include <string>

#include "tlgeo/TLGeometry.h"

namespace TMObjects {

// Well-known text and binary for the host's own programs (session runner, data stores).
// Tools never call these.
class TLGeometryWkt {
public:
    // POINT, LINESTRING, MULTILINESTRING, POLYGON, MULTIPOLYGON; a null pointer for bad text.
    static TLRefPtr<TLGeometry> FromWkt(const std::string& wkt);
    // `decimals` < 0 prints the shortest text that reads back exactly.
    static std::string ToWkt(TLGeometry* geometry, int decimals = -1);
    static TLRefPtr<TLGeometry> FromWkb(const unsigned char* wkb, std::size_t size);
    static std::string ToWkb(TLGeometry* geometry);
};

}  // namespace TMObjects
