#pragma once

#include "tlgeo/TLGeometry.h"
#include "tlgeo/TLGeosContext.h"
#include "tlgeo/TLPartList.h"

namespace TMObjects {

// Turns the library's geometries into GEOS geometries of the calling thread's context and back.
//
// Into GEOS: a polyline gives a LineString or MultiLineString (a path of one point becomes a
// line of zero length), a polygon a Polygon or MultiPolygon with its rings grouped by
// containment, an envelope the Polygon of its corners. Rings are closed on the way; rings that
// cannot enclose anything (fewer than four points once closed) and their holes are left out,
// since GEOS cannot hold them and they have no area.
//
// Back from GEOS: collections are flattened into the parts of one geometry.
class TLGeosConverter {
public:
    // Null for a null geometry or when GEOS refuses the coordinates.
    static TLGeosContext::GeometryPtr ToGeos(const TLGeometry* geometry);

    // For the results of operations: when dimensions mix, the highest one is kept. An empty
    // result keeps the type GEOS gives it; an empty collection becomes an empty geometry of
    // `emptyType`.
    static TLRefPtr<TLGeometry> FromGeos(const GEOSGeometry* geometry,
                                         TLGeometry::GeoType emptyType);
    // For data read from text or bytes: null when dimensions mix, since nothing may be dropped.
    static TLRefPtr<TLGeometry> FromGeosStrict(const GEOSGeometry* geometry);

    // The kind an operation's result takes for a geometry of this type: envelopes give polygons.
    static TLGeometry::GeoType ResultFamily(TLGeometry::GeoType type);

private:
    static TLRefPtr<TLGeometry> fromGeos(const GEOSGeometry* geometry,
                                         TLGeometry::GeoType emptyType, bool strict);
};

}  // namespace TMObjects
