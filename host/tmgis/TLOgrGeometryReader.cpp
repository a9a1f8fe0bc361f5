#include "tmgis/TLOgrGeometryReader.h"

#include <ogr_geometry.h>

#include <cmath>
#include <memory>
#include <string>

#include "tlgeo/TLGeoMultiPoint.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlgeo/TLGeometryWkt.h"

namespace TMObjects {

namespace {

// GEOS takes Z from the first coordinate: a geometry whose first Z is not a number has none.
bool firstZFinite(const OGRSimpleCurve& curve) {
    return std::isfinite(curve.getZ(0));
}

// GEOS refuses a line of one point; an empty one would be left out of a multi-part shape.
bool plainLine(const OGRSimpleCurve& line) {
    return line.getNumPoints() >= 2;
}

// GEOS refuses a ring that is not closed in x and y or has fewer than four points.
bool plainRing(const OGRSimpleCurve* ring) {
    const int n = ring ? ring->getNumPoints() : 0;
    return n >= 4 && ring->getX(0) == ring->getX(n - 1) && ring->getY(0) == ring->getY(n - 1);
}

bool plainPolygon(const OGRPolygon& polygon) {
    if (!plainRing(polygon.getExteriorRing())) return false;
    for (int i = 0; i < polygon.getNumInteriorRings(); ++i)
        if (!plainRing(polygon.getInteriorRing(i))) return false;
    return true;
}

bool plainPoint(const OGRPoint& point) {
    return !point.IsEmpty() && std::isfinite(point.getX()) && std::isfinite(point.getY());
}

// Copies a curve into a new part; Z values that are not numbers become 0, as through GEOS.
void appendCurve(TLPartList& parts, const OGRSimpleCurve& curve) {
    const int n = curve.getNumPoints();
    double* xy = parts.AppendPart(n);
    if (!parts.HasZ()) {
        curve.getPoints(xy, 2 * sizeof(double), xy + 1, 2 * sizeof(double));
        return;
    }
    double* z = parts.Z().data() + (parts.Z().size() - std::size_t(n));
    curve.getPoints(xy, 2 * sizeof(double), xy + 1, 2 * sizeof(double), z, sizeof(double));
    for (int i = 0; i < n; ++i)
        if (!std::isfinite(z[i])) z[i] = 0.0;
}

int ringPoints(const OGRPolygon& polygon) {
    int n = polygon.getExteriorRing()->getNumPoints();
    for (int i = 0; i < polygon.getNumInteriorRings(); ++i)
        n += polygon.getInteriorRing(i)->getNumPoints();
    return n;
}

void appendPolygon(TLPartList& parts, const OGRPolygon& polygon) {
    appendCurve(parts, *polygon.getExteriorRing());
    for (int i = 0; i < polygon.getNumInteriorRings(); ++i)
        appendCurve(parts, *polygon.getInteriorRing(i));
}

TLRefPtr<TLGeometry> readLine(const OGRLineString& line) {
    if (!plainLine(line) || (line.Is3D() && !firstZFinite(line))) return nullptr;
    TLRefPtr<TLGeoPolyline> out(new TLGeoPolyline);
    out->Parts().SetHasZ(line.Is3D());
    out->Parts().Reserve(line.getNumPoints(), 1);
    appendCurve(out->Parts(), line);
    return out;
}

TLRefPtr<TLGeometry> readLines(const OGRMultiLineString& lines) {
    int points = 0;
    for (const OGRLineString* line : lines) {
        if (!plainLine(*line)) return nullptr;
        points += line->getNumPoints();
    }
    if (points == 0 || (lines.Is3D() && !firstZFinite(*lines.getGeometryRef(0)))) return nullptr;
    TLRefPtr<TLGeoPolyline> out(new TLGeoPolyline);
    out->Parts().SetHasZ(lines.Is3D());
    out->Parts().Reserve(points, lines.getNumGeometries());
    for (const OGRLineString* line : lines) appendCurve(out->Parts(), *line);
    return out;
}

TLRefPtr<TLGeometry> readPolygons(const OGRPolygon* const* polygons, int count, bool hasZ) {
    int points = 0, rings = 0;
    for (int i = 0; i < count; ++i) {
        if (!plainPolygon(*polygons[i])) return nullptr;
        points += ringPoints(*polygons[i]);
        rings += 1 + polygons[i]->getNumInteriorRings();
    }
    if (points == 0 || (hasZ && !firstZFinite(*polygons[0]->getExteriorRing()))) return nullptr;
    TLRefPtr<TLGeoPolygon> out(new TLGeoPolygon);
    out->Parts().SetHasZ(hasZ);
    out->Parts().Reserve(points, rings);
    for (int i = 0; i < count; ++i) appendPolygon(out->Parts(), *polygons[i]);
    return out;
}

TLRefPtr<TLGeometry> readPolygon(const OGRPolygon& polygon) {
    const OGRPolygon* one = &polygon;
    return readPolygons(&one, 1, polygon.Is3D());
}

TLRefPtr<TLGeometry> readMultiPolygon(const OGRMultiPolygon& multi) {
    std::vector<const OGRPolygon*> polygons;
    polygons.reserve(std::size_t(multi.getNumGeometries()));
    for (const OGRPolygon* polygon : multi) polygons.push_back(polygon);
    return readPolygons(polygons.data(), int(polygons.size()), multi.Is3D());
}

double zOf(const OGRPoint& point) {
    return std::isfinite(point.getZ()) ? point.getZ() : 0.0;
}

TLRefPtr<TLGeometry> readPoint(const OGRPoint& point) {
    if (!plainPoint(point) || (point.Is3D() && !std::isfinite(point.getZ()))) return nullptr;
    TLRefPtr<TLGeoPoint> out(new TLGeoPoint(point.getX(), point.getY()));
    if (point.Is3D()) out->Put_Z(point.getZ());
    return out;
}

// One point stands alone, as GEOS gives it; several keep a part each.
TLRefPtr<TLGeometry> readPoints(const OGRMultiPoint& points) {
    for (const OGRPoint* point : points)
        if (!plainPoint(*point)) return nullptr;
    const int n = points.getNumGeometries();
    if (n == 0) return nullptr;
    const bool hasZ = points.Is3D();
    if (hasZ && !std::isfinite(points.getGeometryRef(0)->getZ())) return nullptr;
    if (n == 1) return readPoint(*points.getGeometryRef(0));
    TLRefPtr<TLGeoMultiPoint> out(new TLGeoMultiPoint);
    TLPartList& parts = out->Parts();
    parts.SetHasZ(hasZ);
    parts.Reserve(n, n);
    for (const OGRPoint* point : points) {
        double* xy = parts.AppendPart(1);
        xy[0] = point->getX();
        xy[1] = point->getY();
        if (hasZ) parts.Z().back() = zOf(*point);
    }
    return out;
}

// The geometry read straight from OGR's arrays; null when it is not one of the plain shapes.
TLRefPtr<TLGeometry> direct(const OGRGeometry& geometry) {
    if (geometry.IsMeasured()) return nullptr;
    switch (wkbFlatten(geometry.getGeometryType())) {
        case wkbPoint:
            return readPoint(*geometry.toPoint());
        case wkbLineString:
            return readLine(*geometry.toLineString());
        case wkbPolygon:
            return readPolygon(*geometry.toPolygon());
        case wkbMultiPoint:
            return readPoints(*geometry.toMultiPoint());
        case wkbMultiLineString:
            return readLines(*geometry.toMultiLineString());
        case wkbMultiPolygon:
            return readMultiPolygon(*geometry.toMultiPolygon());
        default:
            return nullptr;
    }
}

}  // namespace

TLRefPtr<TLGeometry> TLOgrGeometryReader::Read(const OGRGeometry* geometry) {
    if (!geometry) return TLRefPtr<TLGeometry>();
    if (TLRefPtr<TLGeometry> read = direct(*geometry)) return read;
    return ReadThroughGeos(geometry);
}

TLRefPtr<TLGeometry> TLOgrGeometryReader::ReadThroughGeos(const OGRGeometry* geometry) {
    if (!geometry) return TLRefPtr<TLGeometry>();
    std::unique_ptr<OGRGeometry> linear;
    if (geometry->hasCurveGeometry()) {
        linear.reset(geometry->getLinearGeometry());
        if (!linear) return TLRefPtr<TLGeometry>();
        geometry = linear.get();
    }
    std::string wkb(std::size_t(geometry->WkbSize()), '\0');
    auto* bytes = reinterpret_cast<unsigned char*>(wkb.data());
    if (geometry->exportToWkb(wkbNDR, bytes, wkbVariantIso) != OGRERR_NONE)
        return TLRefPtr<TLGeometry>();
    return TLGeometryWkt::FromWkb(bytes, wkb.size());
}

}  // namespace TMObjects
