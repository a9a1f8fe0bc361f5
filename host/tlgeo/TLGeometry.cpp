#include "tlgeo/TLGeometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoMultiPoint.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlgeo/TLGeosConverter.h"

namespace TMObjects {

namespace {

using GeometryPtr = TLGeosContext::GeometryPtr;
using Predicate = char (*)(GEOSContextHandle_t, const GEOSGeometry*, const GEOSGeometry*);
using Overlay = GEOSGeometry* (*)(GEOSContextHandle_t, const GEOSGeometry*, const GEOSGeometry*);

GEOSContextHandle_t handle() {
    return TLGeosContext::Handle();
}

TLPoint nanPoint() {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    return TLPoint(nan, nan);
}

bool relate(const TLGeometry* a, const TLGeometry* b, Predicate predicate) {
    if (!b) return false;
    GeometryPtr ga = TLGeosConverter::ToGeos(a), gb = TLGeosConverter::ToGeos(b);
    return ga && gb && predicate(handle(), ga.get(), gb.get()) == 1;
}

TLGeometry::GeoType familyOfDimension(int dimension) {
    if (dimension >= 2) return TLGeometry::GeoPolygon;
    return dimension == 1 ? TLGeometry::GeoPolyline : TLGeometry::GeoPoint;
}

// `emptyDimension` says what an empty answer is: GEOS types its empty results, but an empty
// collection carries no dimension.
TLRefPtr<TLGeometry> overlay(const TLGeometry* self, const TLGeometry* other, double tolerance,
                             Overlay operation, int emptyDimension) {
    if (!other) return nullptr;
    GeometryPtr a = TLGeosConverter::ToGeos(self), b = TLGeosConverter::ToGeos(other);
    if (!a || !b) return nullptr;
    if (tolerance > 0.0) {
        GeometryPtr snapped(GEOSSnap_r(handle(), b.get(), a.get(), tolerance));
        if (snapped) b = std::move(snapped);
    }
    GeometryPtr result(operation(handle(), a.get(), b.get()));
    if (!result) return nullptr;
    return TLGeosConverter::FromGeos(result.get(), familyOfDimension(emptyDimension));
}

TLPoint pointOf(GEOSGeometry* point) {
    GeometryPtr owned(point);
    double x = 0, y = 0;
    if (!owned || GEOSisEmpty_r(handle(), owned.get()) != 0) return nanPoint();
    if (!GEOSGeomGetX_r(handle(), owned.get(), &x) || !GEOSGeomGetY_r(handle(), owned.get(), &y))
        return nanPoint();
    return TLPoint(x, y);
}

bool pathsSound(const TLPartList& parts) {
    for (int part = 0; part < parts.PartCount(); ++part)
        if (parts.PartSize(part) < 2) return false;
    return true;
}

bool ringsSound(const TLPartList& parts) {
    for (int ring = 0; ring < parts.PartCount(); ++ring)
        if (parts.PartSize(ring) < 4 || !parts.IsPartClosed(ring)) return false;
    return true;
}

// What GEOS cannot see: it is given closed, padded copies of rings and paths.
bool structurallySound(const TLGeometry* geometry) {
    if (auto* line = dynamic_cast<const TLGeoPolyline*>(geometry)) return pathsSound(line->Parts());
    if (auto* polygon = dynamic_cast<const TLGeoPolygon*>(geometry))
        return ringsSound(polygon->Parts());
    return true;
}

// The vertices that HitTest searches; points and envelopes are laid out in `scratch`.
const TLPartList* hitPartsOf(TLGeometry* geometry, TLPartList& scratch) {
    if (auto* line = dynamic_cast<TLGeoPolyline*>(geometry)) return &line->Parts();
    if (auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry)) return &polygon->Parts();
    if (auto* points = dynamic_cast<TLGeoMultiPoint*>(geometry)) return &points->Parts();
    if (auto* point = dynamic_cast<TLGeoPoint*>(geometry)) {
        if (!point->IsEmpty()) scratch.Add(point->GetX(), point->GetY());
    } else if (auto* envelope = dynamic_cast<TLGeoEnvelope*>(geometry)) {
        double x0, y0, x1, y1;
        envelope->QueryCoords(&x0, &y0, &x1, &y1);
        const double corners[] = {x0, y0, x1, y0, x1, y1, x0, y1};
        if (!envelope->IsEmpty()) scratch.AddPart(corners, 4);
    }
    return &scratch;
}

}  // namespace

TLGeometry::~TLGeometry() = default;

void* TLGeometry::Ptr() const {
    return const_cast<TLGeometry*>(this);
}

bool TLGeometry::IsValid() const {
    if (!structurallySound(this)) return false;
    GeometryPtr g = TLGeosConverter::ToGeos(this);
    return g && GEOSisValid_r(handle(), g.get()) == 1;
}

double TLGeometry::GetArea() const {
    return 0.0;
}

double TLGeometry::GetLength() const {
    return 0.0;
}

TLPoint TLGeometry::Centroid() {
    GeometryPtr g = TLGeosConverter::ToGeos(this);
    return g ? pointOf(GEOSGetCentroid_r(handle(), g.get())) : nanPoint();
}

void TLGeometry::LabelPoint(double& x, double& y) {
    const TLPoint p = LabelPoint();
    x = p.x;
    y = p.y;
}

TLPoint TLGeometry::LabelPoint() {
    GeometryPtr g = TLGeosConverter::ToGeos(this);
    return g ? pointOf(GEOSPointOnSurface_r(handle(), g.get())) : nanPoint();
}

TLRefPtr<TLGeometry> TLGeometry::Buffer(double distance, TmBufferType type) {
    if (!std::isfinite(distance)) return nullptr;
    GeometryPtr g = TLGeosConverter::ToGeos(this);
    if (!g) return nullptr;
    int cap = GEOSBUF_CAP_ROUND, join = GEOSBUF_JOIN_ROUND;
    if (type == TmBufferFlat) cap = GEOSBUF_CAP_FLAT, join = GEOSBUF_JOIN_MITRE;
    if (type == TmBufferSquare) cap = GEOSBUF_CAP_SQUARE, join = GEOSBUF_JOIN_MITRE;
    const int quadrantSegments = 8;
    const double mitreLimit = 5.0;
    GeometryPtr result(GEOSBufferWithStyle_r(handle(), g.get(), distance, quadrantSegments, cap,
                                             join, mitreLimit));
    return result ? TLGeosConverter::FromGeos(result.get(), GeoPolygon) : nullptr;
}

TLRefPtr<TLGeometry> TLGeometry::Clip(TLRect rect, double tolerance) {
    TLGeoEnvelope window(rect);
    return Intersect(&window, tolerance);
}

TLRefPtr<TLGeometry> TLGeometry::Difference(TLGeometry* other, double tolerance) {
    return overlay(this, other, tolerance, &GEOSDifference_r, GetDimension());
}

TLRefPtr<TLGeometry> TLGeometry::Intersect(TLGeometry* other, double tolerance) {
    if (!other) return nullptr;
    return overlay(this, other, tolerance, &GEOSIntersection_r,
                   std::min(GetDimension(), other->GetDimension()));
}

TLRefPtr<TLGeometry> TLGeometry::Union(TLGeometry* other, double tolerance) {
    if (!other) return nullptr;
    return overlay(this, other, tolerance, &GEOSUnion_r,
                   std::max(GetDimension(), other->GetDimension()));
}

bool TLGeometry::Simplify(double tolerance) {
    if (std::isnan(tolerance) || !structurallySound(this)) return false;
    TLPartList* parts = nullptr;
    if (auto* line = dynamic_cast<TLGeoPolyline*>(this)) parts = &line->Parts();
    if (auto* polygon = dynamic_cast<TLGeoPolygon*>(this)) parts = &polygon->Parts();
    // Points and envelopes have nothing to drop.
    if (!parts || tolerance <= 0.0 || IsEmpty()) return true;

    GeometryPtr g = TLGeosConverter::ToGeos(this);
    if (!g) return false;
    GeometryPtr simple(GEOSTopologyPreserveSimplify_r(handle(), g.get(), tolerance));
    if (!simple) return false;
    TLRefPtr<TLGeometry> result = TLGeosConverter::FromGeos(simple.get(), GetType());
    if (!result || result->GetType() != GetType()) return false;
    const bool hasZ = parts->HasZ();
    if (auto* line = dynamic_cast<TLGeoPolyline*>(result.get())) *parts = line->Parts();
    if (auto* polygon = dynamic_cast<TLGeoPolygon*>(result.get())) *parts = polygon->Parts();
    if (!hasZ) parts->SetHasZ(false);
    return true;
}

TLRefPtr<TLGeometry> TLGeometry::Boundary() {
    TLRefPtr<TLGeoPolyline> outline(new TLGeoPolyline);
    if (auto* polygon = dynamic_cast<TLGeoPolygon*>(this)) {
        outline->Parts() = polygon->Parts();
        return outline;
    }
    if (GetType() == GeoEnvelope) {
        TLPartList corners;
        const TLPartList* ring = hitPartsOf(this, corners);
        if (ring->PointCount() > 0) {
            outline->Parts().AddPart(ring->Raw(), ring->PointCount());
            outline->Parts().CloseRings();
        }
        return outline;
    }
    if (GetDimension() == 0) return TLRefPtr<TLGeometry>(new TLGeoPoint);
    GeometryPtr g = TLGeosConverter::ToGeos(this);
    GeometryPtr ends(g ? GEOSBoundary_r(handle(), g.get()) : nullptr);
    return ends ? TLGeosConverter::FromGeos(ends.get(), GeoPoint) : nullptr;
}

bool TLGeometry::Contains(TLGeometry* other) {
    return relate(this, other, &GEOSContains_r);
}

bool TLGeometry::Crosses(TLGeometry* other) {
    return relate(this, other, &GEOSCrosses_r);
}

bool TLGeometry::Disjoint(TLGeometry* other) {
    return relate(this, other, &GEOSDisjoint_r);
}

bool TLGeometry::Equals(TLGeometry* other) {
    return relate(this, other, &GEOSEquals_r);
}

bool TLGeometry::Overlaps(TLGeometry* other) {
    return relate(this, other, &GEOSOverlaps_r);
}

bool TLGeometry::Touches(TLGeometry* other) {
    return relate(this, other, &GEOSTouches_r);
}

bool TLGeometry::Within(TLGeometry* other) {
    return relate(this, other, &GEOSWithin_r);
}

bool TLGeometry::Relation(TLGeometry* other, TLSpatialRelEnum relation) {
    if (!other) return false;
    switch (relation) {
        case TLSpatialRelIntersects:
            return Intersects(other);
        case TLSpatialRelEnvelopeIntersects:
            return GetBound().Intersects(other->GetBound());
        case TLSpatialRelTouches:
            return Touches(other);
        case TLSpatialRelOverlaps:
            return Overlaps(other);
        case TLSpatialRelCrosses:
            return Crosses(other);
        case TLSpatialRelWithin:
            return Within(other);
        case TLSpatialRelContains:
            return Contains(other);
        case TLSpatialRelDisjoint:
            return Disjoint(other);
        case TLSpatialRelEquals:
            return Equals(other);
        default:
            return false;
    }
}

bool TLGeometry::HitTest(const TLPoint& point, double tolerance, GeoHitPartType type, int& part,
                         int& vertex) {
    part = vertex = -1;
    TLPartList scratch;
    const TLPartList* parts = hitPartsOf(this, scratch);
    if (type == GeoHitVertex) return parts->NearestVertex(point, tolerance, part, vertex);
    if (type == GeoHitBoundary) {
        const bool closeRings = GetType() == GeoPolygon || GetType() == GeoEnvelope;
        return parts->NearestSegment(point, tolerance, closeRings, part, vertex);
    }
    return false;
}

bool TLGeometry::Intersects(TLGeometry* other) {
    return relate(this, other, &GEOSIntersects_r);
}

double TLGeometry::Distance(TLGeometry* other) {
    if (!other || IsEmpty() || other->IsEmpty()) return -1.0;
    GeometryPtr a = TLGeosConverter::ToGeos(this), b = TLGeosConverter::ToGeos(other);
    double distance = -1.0;
    if (!a || !b || !GEOSDistance_r(handle(), a.get(), b.get(), &distance)) return -1.0;
    return distance;
}

}  // namespace TMObjects
