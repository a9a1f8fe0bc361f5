#include "tlgeo/TLGeosConverter.h"

#include <cmath>
#include <vector>

#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoMultiPoint.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlgeo/TLRingNesting.h"

namespace TMObjects {

namespace {

using GeometryPtr = TLGeosContext::GeometryPtr;

GEOSContextHandle_t handle() {
    return TLGeosContext::Handle();
}

// The points [first, first + n) of `parts`, then `extra` repeats of the point at `first`, which
// closes a ring or stretches a lone point into a line of zero length.
GEOSCoordSequence* makeSequence(const TLPartList& parts, int first, int n, int extra) {
    const bool hasZ = parts.HasZ();
    GEOSCoordSequence* seq = GEOSCoordSeq_create_r(handle(), unsigned(n + extra), hasZ ? 3 : 2);
    if (!seq) return nullptr;
    for (int i = 0; i < n + extra; ++i) {
        const int raw = first + (i < n ? i : 0);
        const TLPoint p = parts.Point(raw);
        if (hasZ)
            GEOSCoordSeq_setXYZ_r(handle(), seq, unsigned(i), p.x, p.y,
                                  parts.Z()[std::size_t(raw)]);
        else
            GEOSCoordSeq_setXY_r(handle(), seq, unsigned(i), p.x, p.y);
    }
    return seq;
}

GeometryPtr makeLine(const TLPartList& parts, int part) {
    const int n = parts.PartSize(part);
    GEOSCoordSequence* seq = makeSequence(parts, parts.PartStart(part), n, n == 1 ? 1 : 0);
    return GeometryPtr(seq ? GEOSGeom_createLineString_r(handle(), seq) : nullptr);
}

// Null when the ring cannot enclose anything.
GeometryPtr makeRing(const TLPartList& parts, int part) {
    const int n = parts.PartSize(part);
    const int extra = parts.IsPartClosed(part) ? 0 : 1;
    if (n + extra < 4) return nullptr;
    GEOSCoordSequence* seq = makeSequence(parts, parts.PartStart(part), n, extra);
    return GeometryPtr(seq ? GEOSGeom_createLinearRing_r(handle(), seq) : nullptr);
}

// A single member stands alone; several make a collection of `multiType`; none an empty one.
GeometryPtr makeCollection(std::vector<GeometryPtr> members, int multiType, GeometryPtr empty) {
    if (members.empty()) return empty;
    if (members.size() == 1) return std::move(members.front());
    std::vector<GEOSGeometry*> raw;
    for (auto& member : members) raw.push_back(member.release());
    return GeometryPtr(
        GEOSGeom_createCollection_r(handle(), multiType, raw.data(), unsigned(raw.size())));
}

GeometryPtr polylineToGeos(const TLPartList& parts) {
    std::vector<GeometryPtr> lines;
    for (int part = 0; part < parts.PartCount(); ++part) {
        if (parts.PartSize(part) == 0) continue;
        GeometryPtr line = makeLine(parts, part);
        if (!line) return nullptr;
        lines.push_back(std::move(line));
    }
    return makeCollection(std::move(lines), GEOS_MULTILINESTRING,
                          GeometryPtr(GEOSGeom_createEmptyLineString_r(handle())));
}

GeometryPtr polygonToGeos(const TLPartList& parts) {
    const TLRingNesting nesting(parts);
    std::vector<GeometryPtr> polygons;
    for (int shell = 0; shell < parts.PartCount(); ++shell) {
        if (nesting.Shell(shell) != shell) continue;
        GeometryPtr outer = makeRing(parts, shell);
        if (!outer) continue;
        std::vector<GEOSGeometry*> holes;
        for (int ring = 0; ring < parts.PartCount(); ++ring) {
            if (ring == shell || nesting.Shell(ring) != shell) continue;
            if (GeometryPtr hole = makeRing(parts, ring)) holes.push_back(hole.release());
        }
        GEOSGeometry* polygon = GEOSGeom_createPolygon_r(handle(), outer.release(), holes.data(),
                                                         unsigned(holes.size()));
        if (!polygon) return nullptr;
        polygons.emplace_back(polygon);
    }
    return makeCollection(std::move(polygons), GEOS_MULTIPOLYGON,
                          GeometryPtr(GEOSGeom_createEmptyPolygon_r(handle())));
}

GeometryPtr pointToGeos(const TLGeoPoint& point) {
    if (point.IsEmpty()) return GeometryPtr(GEOSGeom_createEmptyPoint_r(handle()));
    GEOSCoordSequence* seq = GEOSCoordSeq_create_r(handle(), 1, point.HasZ() ? 3 : 2);
    if (!seq) return nullptr;
    if (point.HasZ())
        GEOSCoordSeq_setXYZ_r(handle(), seq, 0, point.GetX(), point.GetY(), point.GetZ());
    else
        GEOSCoordSeq_setXY_r(handle(), seq, 0, point.GetX(), point.GetY());
    return GeometryPtr(GEOSGeom_createPoint_r(handle(), seq));
}

GeometryPtr multiPointToGeos(const TLPartList& parts) {
    std::vector<GeometryPtr> points;
    for (int i = 0; i < parts.PointCount(); ++i) {
        GEOSCoordSequence* seq = makeSequence(parts, i, 1, 0);
        if (!seq) return nullptr;
        points.emplace_back(GEOSGeom_createPoint_r(handle(), seq));
        if (!points.back()) return nullptr;
    }
    if (points.size() == 1) {
        std::vector<GEOSGeometry*> raw{points.front().release()};
        return GeometryPtr(GEOSGeom_createCollection_r(handle(), GEOS_MULTIPOINT, raw.data(), 1));
    }
    return makeCollection(std::move(points), GEOS_MULTIPOINT,
                          GeometryPtr(GEOSGeom_createEmptyCollection_r(handle(), GEOS_MULTIPOINT)));
}

TLPartList envelopeRing(const TLGeoEnvelope& envelope) {
    double x0, y0, x1, y1;
    envelope.QueryCoords(&x0, &y0, &x1, &y1);
    const double xy[] = {x0, y0, x1, y0, x1, y1, x0, y1, x0, y0};
    TLPartList ring;
    if (!envelope.IsEmpty()) ring.AddPart(xy, 5);
    return ring;
}

// The non-empty simple members of a GEOS geometry, by dimension.
struct Members {
    std::vector<const GEOSGeometry*> points, lines, polygons;
    int kinds() const { return !points.empty() + !lines.empty() + !polygons.empty(); }
};

void collect(const GEOSGeometry* g, Members& members) {
    const int type = GEOSGeomTypeId_r(handle(), g);
    if (type == GEOS_MULTIPOINT || type == GEOS_MULTILINESTRING || type == GEOS_MULTIPOLYGON ||
        type == GEOS_GEOMETRYCOLLECTION) {
        const int n = GEOSGetNumGeometries_r(handle(), g);
        for (int i = 0; i < n; ++i) collect(GEOSGetGeometryN_r(handle(), g, i), members);
        return;
    }
    if (GEOSisEmpty_r(handle(), g) != 0) return;
    if (type == GEOS_POINT) members.points.push_back(g);
    if (type == GEOS_LINESTRING || type == GEOS_LINEARRING) members.lines.push_back(g);
    if (type == GEOS_POLYGON) members.polygons.push_back(g);
}

void appendSequence(TLPartList& parts, const GEOSCoordSequence* seq) {
    unsigned size = 0;
    GEOSCoordSeq_getSize_r(handle(), seq, &size);
    parts.BeginPart();
    for (unsigned i = 0; i < size; ++i) {
        double x = 0, y = 0, z = 0;
        GEOSCoordSeq_getXY_r(handle(), seq, i, &x, &y);
        parts.Add(x, y);
        if (parts.HasZ() && GEOSCoordSeq_getZ_r(handle(), seq, i, &z) && std::isfinite(z))
            parts.Z().back() = z;
    }
}

void appendGeometry(TLPartList& parts, const GEOSGeometry* g) {
    appendSequence(parts, GEOSGeom_getCoordSeq_r(handle(), g));
}

TLRefPtr<TLGeometry> polygonFrom(const std::vector<const GEOSGeometry*>& polygons, bool hasZ) {
    TLRefPtr<TLGeoPolygon> result(new TLGeoPolygon);
    result->Parts().SetHasZ(hasZ);
    for (const GEOSGeometry* polygon : polygons) {
        appendGeometry(result->Parts(), GEOSGetExteriorRing_r(handle(), polygon));
        const int holes = GEOSGetNumInteriorRings_r(handle(), polygon);
        for (int i = 0; i < holes; ++i)
            appendGeometry(result->Parts(), GEOSGetInteriorRingN_r(handle(), polygon, i));
    }
    return result;
}

TLRefPtr<TLGeometry> polylineFrom(const std::vector<const GEOSGeometry*>& lines, bool hasZ) {
    TLRefPtr<TLGeoPolyline> result(new TLGeoPolyline);
    result->Parts().SetHasZ(hasZ);
    for (const GEOSGeometry* line : lines) appendGeometry(result->Parts(), line);
    return result;
}

TLRefPtr<TLGeometry> pointsFrom(const std::vector<const GEOSGeometry*>& points, bool hasZ) {
    TLPartList parts;
    parts.SetHasZ(hasZ);
    for (const GEOSGeometry* point : points) appendGeometry(parts, point);
    if (parts.PointCount() == 1) {
        TLRefPtr<TLGeoPoint> result(new TLGeoPoint(parts.Point(0).x, parts.Point(0).y));
        if (hasZ) result->Put_Z(parts.Z()[0]);
        return result;
    }
    TLRefPtr<TLGeoMultiPoint> result(new TLGeoMultiPoint);
    result->Parts() = parts;
    return result;
}

TLGeometry::GeoType emptyTypeOf(const GEOSGeometry* g, TLGeometry::GeoType fallback) {
    switch (GEOSGeomTypeId_r(handle(), g)) {
        case GEOS_POINT:
        case GEOS_MULTIPOINT:
            return TLGeometry::GeoPoint;
        case GEOS_LINESTRING:
        case GEOS_LINEARRING:
        case GEOS_MULTILINESTRING:
            return TLGeometry::GeoPolyline;
        case GEOS_POLYGON:
        case GEOS_MULTIPOLYGON:
            return TLGeometry::GeoPolygon;
        default:
            return fallback;
    }
}

TLRefPtr<TLGeometry> makeEmpty(TLGeometry::GeoType type) {
    switch (TLGeosConverter::ResultFamily(type)) {
        case TLGeometry::GeoPolyline:
            return TLRefPtr<TLGeometry>(new TLGeoPolyline);
        case TLGeometry::GeoPolygon:
            return TLRefPtr<TLGeometry>(new TLGeoPolygon);
        default:
            return TLRefPtr<TLGeometry>(new TLGeoPoint);
    }
}

}  // namespace

TLGeometry::GeoType TLGeosConverter::ResultFamily(TLGeometry::GeoType type) {
    switch (type) {
        case TLGeometry::GeoEnvelope:
        case TLGeometry::GeoPolygon:
            return TLGeometry::GeoPolygon;
        case TLGeometry::GeoPolyline:
            return TLGeometry::GeoPolyline;
        default:
            return TLGeometry::GeoPoint;
    }
}

TLGeosContext::GeometryPtr TLGeosConverter::ToGeos(const TLGeometry* geometry) {
    if (!geometry) return nullptr;
    if (auto* point = dynamic_cast<const TLGeoPoint*>(geometry)) return pointToGeos(*point);
    if (auto* line = dynamic_cast<const TLGeoPolyline*>(geometry))
        return polylineToGeos(line->Parts());
    if (auto* polygon = dynamic_cast<const TLGeoPolygon*>(geometry))
        return polygonToGeos(polygon->Parts());
    if (auto* envelope = dynamic_cast<const TLGeoEnvelope*>(geometry))
        return polygonToGeos(envelopeRing(*envelope));
    if (auto* points = dynamic_cast<const TLGeoMultiPoint*>(geometry))
        return multiPointToGeos(points->Parts());
    return nullptr;
}

TLRefPtr<TLGeometry> TLGeosConverter::FromGeos(const GEOSGeometry* geometry,
                                               TLGeometry::GeoType emptyType) {
    return fromGeos(geometry, emptyType, false);
}

TLRefPtr<TLGeometry> TLGeosConverter::FromGeosStrict(const GEOSGeometry* geometry) {
    return fromGeos(geometry, TLGeometry::GeoPoint, true);
}

TLRefPtr<TLGeometry> TLGeosConverter::fromGeos(const GEOSGeometry* geometry,
                                               TLGeometry::GeoType emptyType, bool strict) {
    if (!geometry) return nullptr;
    Members members;
    collect(geometry, members);
    if (strict && members.kinds() > 1) return nullptr;
    const bool hasZ = GEOSHasZ_r(handle(), geometry) == 1;
    if (!members.polygons.empty()) return polygonFrom(members.polygons, hasZ);
    if (!members.lines.empty()) return polylineFrom(members.lines, hasZ);
    if (!members.points.empty()) return pointsFrom(members.points, hasZ);
    return makeEmpty(emptyTypeOf(geometry, emptyType));
}

}  // namespace TMObjects
