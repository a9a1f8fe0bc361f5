#pragma once

#include <vector>

#include "tlgeo/TLGeosContext.h"

namespace TMObjects {

class CvectorEntityBase;
class CvectorEntityData;

// The entities of the data library as GEOS geometries of the calling thread's context, and back,
// for the polygon operations.
class CEntityGeos {
public:
    using GeometryPtr = TLGeosContext::GeometryPtr;

    // A polygon entity's rings as a Polygon or MultiPolygon, rings grouped by containment; an
    // invalid shape (a ring crossing itself, a bow tie) is made valid first. Null for an entity
    // that is no polygon or encloses nothing.
    static GeometryPtr PolygonOf(const CvectorEntityBase* entity);
    // The paths of a line entity, or the rings of a polygon entity, as linework.
    static GeometryPtr LinesOf(const CvectorEntityBase* entity);
    // Makes the entity a polygon of the GEOS polygon's rings: the outer ring first,
    // counter-clockwise, then the holes, clockwise, each starting at its least vertex (smallest
    // x, then smallest y); Z values are not kept.
    static bool FillPolygon(const GEOSGeometry* polygon, CvectorEntityBase* entity);
    // Clones of the single polygons of a geometry (a Polygon, the parts of a MultiPolygon or a
    // collection), empty ones left out.
    static std::vector<GeometryPtr> SinglePolygons(const GEOSGeometry* geometry);
    // The plane area of a GEOS geometry; 0 for null.
    static double Area(const GEOSGeometry* geometry);
};

}  // namespace TMObjects
