#pragma once

#include "tlbase/TLPoint.h"
#include "tlbase/TLRect.h"
#include "tlbase/TLRefBase.h"
#include "tlgeo/TLGeoTypes.h"
#include "tlgeo/TLSerialize.h"

namespace TMObjects {

// Abstract base of the geometries. The virtual operations keep their order: tools and the host
// are compiled against this table.
//
// Operations with a geometry result give one of this library's own types: GEOS collections are
// flattened into the parts of one polyline, polygon or multipoint. When a result mixes
// dimensions (two polygons that overlap in one place and touch along an edge elsewhere), only
// the parts of the highest dimension are kept. An empty result is an empty geometry, never a null
// pointer; null means the operation failed (bad coordinates, a missing argument). An envelope
// takes part as the polygon of its four corners, and results made from it are polygons.
//
// The `tolerance` of Clip, Difference, Intersect and Union is a snapping distance: before the
// overlay, the vertices and edges of the other geometry that lie within `tolerance` of this
// geometry's vertices are moved onto them, so that near-coincident edges meet exactly and leave
// no slivers. Vertices farther away keep their coordinates. A tolerance of zero, below zero or
// NaN overlays exactly.
//
// open and save (from TLSerialize) are overridden by each concrete class after its own virtuals,
// so that the table above stays unbroken for the classes that continue it.
class TLGeometry : public TLRefBase, public TLSerialize {
public:
    enum GeoType {
        GeoUnknown = 0,
        GeoPoint = 2,
        GeoMultipoint = 3,  // only made by operations (line crossings, line boundaries) and WKT
        GeoEnvelope = 4,
        GeoPolyline = 11,
        GeoPolygon = 13,
    };

    ~TLGeometry() override;
    // The object itself: the host's handle of a geometry.
    virtual void* Ptr() const;
    virtual GeoType GetType() const = 0;
    virtual int GetDimension() const = 0;
    virtual bool IsEmpty() const = 0;
    // Structurally sound (every path two points or more, every ring closed with four points or
    // more) and valid as a simple feature. An empty geometry is valid.
    virtual bool IsValid() const;
    // Plane area: holes, told by containment, are subtracted. Zero for points and lines.
    virtual double GetArea() const;
    // Plane length; the perimeter of a polygon (all rings). Zero for points.
    virtual double GetLength() const;
    // NaN coordinates (TLPoint::Valid false) for an empty geometry.
    virtual TLPoint Centroid();
    // A point inside the geometry (on it, for a line); NaN when empty.
    virtual void LabelPoint(double& x, double& y);
    virtual TLPoint LabelPoint();
    virtual TLRect GetBound() = 0;
    virtual TLRefPtr<TLGeometry> Clone() = 0;
    // The coordinates as (x, y) pairs through all parts in order; the geometry keeps ownership
    // and the array may be written in place. False, with a null pointer and a count of 0, when
    // there are no points. The pointer lasts until points are added or removed.
    virtual bool GetRawPoints(double** points, int& count) = 0;
    // Copies an array of the same size as GetRawPoints gives back into the geometry.
    virtual bool UpdateRawPoints(double* points) = 0;
    // Round: round ends and joins; flat: flat ends, mitred joins; square: square ends, mitred
    // joins. A negative distance shrinks polygons. Always a polygon.
    virtual TLRefPtr<TLGeometry> Buffer(double distance, TmBufferType type);
    // The part of this geometry inside the rectangle.
    virtual TLRefPtr<TLGeometry> Clip(TLRect rect, double tolerance);
    virtual TLRefPtr<TLGeometry> Difference(TLGeometry* other, double tolerance);
    virtual TLRefPtr<TLGeometry> Intersect(TLGeometry* other, double tolerance);
    virtual TLRefPtr<TLGeometry> Union(TLGeometry* other, double tolerance);
    // Drops vertices within `tolerance` of the simplified shape, in place, without letting
    // parts cross or rings collapse. False, with nothing changed, for a structurally broken
    // geometry or when GEOS fails.
    virtual bool Simplify(double tolerance);
    // A polygon's rings as the paths of a polyline, in ring order; an envelope's outline; the
    // end points of a line (a multipoint, empty for closed lines); an empty point for a point.
    virtual TLRefPtr<TLGeometry> Boundary();
    // The relations of simple features; false when `other` is null or GEOS fails.
    virtual bool Contains(TLGeometry* other);
    virtual bool Crosses(TLGeometry* other);
    virtual bool Disjoint(TLGeometry* other);
    virtual bool Equals(TLGeometry* other);
    virtual bool Overlaps(TLGeometry* other);
    virtual bool Touches(TLGeometry* other);
    virtual bool Within(TLGeometry* other);
    // One of the relations above, Intersects, or the intersection of the two bounds;
    // TLSpatialRelUndefined gives false.
    virtual bool Relation(TLGeometry* other, TLSpatialRelEnum relation);
    // GeoHitVertex: the vertex nearest to `point`; GeoHitBoundary: the segment nearest to it,
    // `vertex` being the raw index of its start vertex over all parts. Only candidates no
    // farther than `tolerance` count, ties go to the lower raw index, and `part` is the index
    // of the part. A polygon ring left open still has its closing edge; an envelope counts as
    // the ring (xmin, ymin), (xmax, ymin), (xmax, ymax), (xmin, ymax) with raw indexes 0 to 3.
    // False, with -1 in both, when nothing is near enough.
    virtual bool HitTest(const TLPoint& point, double tolerance, GeoHitPartType type, int& part,
                         int& vertex);

    // Not virtual: host helpers.
    bool Intersects(TLGeometry* other);
    // The plane distance between the two; -1 when either is empty or null.
    double Distance(TLGeometry* other);
};

}  // namespace TMObjects
