#pragma once

#include "tlbase/TLPoint.h"
#include "tlbase/TLRect.h"
#include "tlbase/TLRefBase.h"
#include "tlgeo/TLGeoTypes.h"
#include "tlgeo/TLSerialize.h"

namespace TMObjects {

// Abstract base of the geometries. The virtual operations keep their order: tools and the host
// are compiled against this table.
class TLGeometry : public TLRefBase, public TLSerialize {
public:
    enum GeoType {
        GeoUnknown = 0,
        GeoPoint = 2,
        GeoEnvelope = 4,
        GeoPolyline = 11,
        GeoPolygon = 13,
    };

    ~TLGeometry() override;
    virtual void* Ptr() const;
    virtual GeoType GetType() const = 0;
    virtual int GetDimension() const = 0;
    virtual bool IsEmpty() const = 0;
    virtual bool IsValid() const;
    virtual double GetArea() const;
    virtual double GetLength() const;
    virtual TLPoint Centroid();
    virtual void LabelPoint(double& x, double& y);
    virtual TLPoint LabelPoint();
    virtual TLRect GetBound() = 0;
    virtual TLRefPtr<TLGeometry> Clone() = 0;
    // The coordinates as (x, y) pairs through all parts in order; the geometry keeps ownership
    // and the array may be written in place.
    virtual bool GetRawPoints(double** points, int& count) = 0;
    virtual bool UpdateRawPoints(double* points) = 0;
    virtual TLRefPtr<TLGeometry> Buffer(double distance, TmBufferType type);
    virtual TLRefPtr<TLGeometry> Clip(TLRect rect, double tolerance);
    virtual TLRefPtr<TLGeometry> Difference(TLGeometry* other, double tolerance);
    virtual TLRefPtr<TLGeometry> Intersect(TLGeometry* other, double tolerance);
    virtual TLRefPtr<TLGeometry> Union(TLGeometry* other, double tolerance);
    virtual bool Simplify(double tolerance);
    virtual TLRefPtr<TLGeometry> Boundary();
    virtual bool Contains(TLGeometry* other);
    virtual bool Crosses(TLGeometry* other);
    virtual bool Disjoint(TLGeometry* other);
    virtual bool Equals(TLGeometry* other);
    virtual bool Overlaps(TLGeometry* other);
    virtual bool Touches(TLGeometry* other);
    virtual bool Within(TLGeometry* other);
    virtual bool Relation(TLGeometry* other, TLSpatialRelEnum relation);
    // Finds the part and vertex (GeoHitVertex) or segment start (GeoHitBoundary) within
    // `tolerance` of `point`; `vertex` is a raw index over all parts.
    virtual bool HitTest(const TLPoint& point, double tolerance, GeoHitPartType type, int& part,
                         int& vertex);

    // Not virtual: host helpers.
    bool Intersects(TLGeometry* other);
    double Distance(TLGeometry* other);

    bool open(TLFileFunc& file) override;
    bool save(TLFileFunc& file) const override;
};

}  // namespace TMObjects
