#include "tlsparef/TLEllipseCalcFunc.h"

#include <cmath>
#include <limits>

#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/PolygonArea.hpp>

#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLRingNesting.h"

namespace TMObjects {

namespace {

using GeographicLib::Geodesic;
using GeographicLib::PolygonArea;

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

Geodesic geodesicOf(const TLEllipseParameterNew& parameter) {
    return Geodesic(parameter.SemiMajorAxis(), parameter.Flattening());
}

// The unsigned geodesic area of one ring; NaN when a vertex cannot be placed on the ellipsoid.
double ringArea(const TLEllipseParameterNew& parameter, const Geodesic& geodesic,
                const TLPartList& parts, int ring) {
    PolygonArea polygon(geodesic, false);
    const int start = parts.PartStart(ring);
    for (int i = 0; i < parts.PartSize(ring); ++i) {
        TLPoint p = parts.Point(start + i);
        if (!parameter.ToLonLat(p.x, p.y)) return kNotANumber;
        polygon.AddPoint(p.y, p.x);
    }
    double perimeter = 0.0, area = 0.0;
    polygon.Compute(false, true, perimeter, area);
    return std::fabs(area);
}

}  // namespace

double TLEllipseCalcFunc::CalcEllipseDis(TLEllipseParameterNew& parameter, double x1, double y1,
                                         double x2, double y2) {
    if (!parameter.ToLonLat(x1, y1) || !parameter.ToLonLat(x2, y2)) return kNotANumber;
    double distance = 0.0;
    geodesicOf(parameter).Inverse(y1, x1, y2, x2, distance);
    return distance;
}

double TLEllipseCalcFunc::CalcEllipseAcreage(TLEllipseParameterNew& parameter,
                                             TLGeometry* geometry) {
    auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry);
    if (!polygon) return 0.0;
    const TLPartList& parts = polygon->Parts();
    const Geodesic geodesic = geodesicOf(parameter);
    // Nesting is judged in the input plane: projection keeps which ring lies inside which.
    const TLRingNesting nesting(parts);
    double total = 0.0;
    for (int ring = 0; ring < parts.PartCount(); ++ring) {
        const double area = ringArea(parameter, geodesic, parts, ring);
        if (std::isnan(area)) return kNotANumber;
        total += nesting.IsHole(ring) ? -area : area;
    }
    return std::fabs(total);
}

}  // namespace TMObjects
