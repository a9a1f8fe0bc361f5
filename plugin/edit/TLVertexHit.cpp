#include "edit/TLVertexHit.h"

#include <cmath>

#include "data/CcurrencyFunc.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"

namespace TMObjects {

namespace {

bool insideBox(double vx, double vy, double x, double y, double tolerance) {
    return std::fabs(x - vx) < tolerance && std::fabs(y - vy) < tolerance;
}

// The first segment of one part within tolerance, as an index into that part; -1 when none.
int hitPartSegment(TLGeoPath* part, double x, double y, double tolerance) {
    double* xy = nullptr;
    int count = 0;
    if (!part || !part->GetRawPoints(&xy, count) || !xy) return -1;
    for (int i = 0; i + 1 < count; ++i) {
        const double* a = xy + 2 * i;
        double qx = 0.0, qy = 0.0;
        const double t = CcurrencyFunc::point_EdgeProject(x, y, a[0], a[1], a[2], a[3], &qx, &qy);
        if (t >= 0.0 && t <= 1.0 && CcurrencyFunc::calcPointSpace(x, y, qx, qy) <= tolerance)
            return i;
    }
    return -1;
}

template <class Geometry, class GetPart>
int hitPartsSegment(Geometry* geometry, int partCount, GetPart getPart, double x, double y,
                    double tolerance) {
    int before = 0;
    for (int p = 0; p < partCount; ++p) {
        TLRefPtr<TLGeoPath> part = (geometry->*getPart)(p);
        const int hit = hitPartSegment(part.get(), x, y, tolerance);
        if (hit >= 0) return before + hit;
        before += part ? part->GetPointCount() : 0;
    }
    return -1;
}

}  // namespace

int hitVertex(TLGeometry* geometry, double x, double y, double tolerance, double& outX,
              double& outY) {
    if (!geometry) return -1;
    const TLGeometry::GeoType type = geometry->GetType();
    if (type == TLGeometry::GeoPoint) {
        auto* point = static_cast<TLGeoPoint*>(geometry);
        if (point->IsEmpty() || !insideBox(point->GetX(), point->GetY(), x, y, tolerance))
            return -1;
        outX = point->GetX();
        outY = point->GetY();
        return 0;
    }
    if (type != TLGeometry::GeoPolyline && type != TLGeometry::GeoPolygon) return -1;
    double* xy = nullptr;
    int count = 0;
    if (!geometry->GetRawPoints(&xy, count) || !xy) return -1;
    for (int i = 0; i < count; ++i) {
        if (!insideBox(xy[2 * i], xy[2 * i + 1], x, y, tolerance)) continue;
        outX = xy[2 * i];
        outY = xy[2 * i + 1];
        return i;
    }
    return -1;
}

int hitSegment(TLGeometry* geometry, double x, double y, double tolerance) {
    if (!geometry) return -1;
    if (geometry->GetType() == TLGeometry::GeoPolyline) {
        auto* line = static_cast<TLGeoPolyline*>(geometry);
        TLRefPtr<TLGeoPath> (TLGeoPolyline::*getPath)(int) = &TLGeoPolyline::GetPath;
        return hitPartsSegment(line, line->GetPathCount(), getPath, x, y, tolerance);
    }
    if (geometry->GetType() == TLGeometry::GeoPolygon) {
        auto* polygon = static_cast<TLGeoPolygon*>(geometry);
        TLRefPtr<TLGeoRing> (TLGeoPolygon::*getRing)(int) = &TLGeoPolygon::GetRing;
        return hitPartsSegment(polygon, polygon->GetRingCount(), getRing, x, y, tolerance);
    }
    return -1;
}

}  // namespace TMObjects
