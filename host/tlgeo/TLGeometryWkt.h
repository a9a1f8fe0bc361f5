#pragma once

#include <cstddef>
#include <string>

#include "tlgeo/TLGeometry.h"

namespace TMObjects {

// Well-known text and binary for the host's own programs (session runner, data stores).
// Tools never call these.
class TLGeometryWkt {
public:
    // POINT, MULTIPOINT, LINESTRING, MULTILINESTRING, POLYGON, MULTIPOLYGON, with or without Z,
    // and collections of one dimension. A null pointer for bad text and for collections that
    // mix dimensions (the library has no geometry that could hold them whole).
    static TLRefPtr<TLGeometry> FromWkt(const std::string& wkt);
    // A polyline of one path prints as LINESTRING and of more as MULTILINESTRING; a polygon as
    // POLYGON, or MULTIPOLYGON when it has several outer rings, each followed by its holes; an
    // envelope as the POLYGON of its corners; an empty geometry as "<TYPE> EMPTY". Points keep
    // their order and rings their direction. `decimals` >= 0 prints that many decimals;
    // `decimals` < 0 prints the shortest text that reads back exactly (as TLString::Number).
    // An empty string for a null geometry.
    static std::string ToWkt(TLGeometry* geometry, int decimals = -1);
    // ISO WKB of either byte order; null as for FromWkt.
    static TLRefPtr<TLGeometry> FromWkb(const unsigned char* wkb, std::size_t size);
    // Little-endian ISO WKB, with Z when the geometry has Z; empty for a null geometry.
    static std::string ToWkb(TLGeometry* geometry);
};

}  // namespace TMObjects
