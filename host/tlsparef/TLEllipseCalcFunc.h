#pragma once

#include <memory>

#include "tlbase/TLString.h"
#include "tlgeo/TLGeometry.h"

namespace TMObjects {

class TLGeometryProject;

// The ellipsoid named by a projection string, and the projection to undo before measuring.
class TLEllipseParameterNew {
public:
    TLEllipseParameterNew();
    // Takes the ellipsoid (and the projection, for projected coordinates) from a PROJ string or
    // WKT. Falls back to WGS 84 when the text names none.
    void calcParameter(TLString projection);

    double SemiMajorAxis() const { return mA; }
    double Flattening() const { return mF; }
    bool IsGeographic() const { return mGeographic; }
    const TLString& Projection() const { return mProjection; }
    // Turns coordinates of the projection's system into longitude and latitude in degrees;
    // geographic coordinates are already that. False when the point cannot be inverted.
    bool ToLonLat(double& x, double& y) const;

private:
    double mA;
    double mF;
    bool mGeographic = true;
    TLString mProjection;
    // Built once per calcParameter: measuring a line calls this for every segment.
    std::shared_ptr<TLGeometryProject> mToLonLat;
};

// Distances and areas on the ellipsoid (GeographicLib). Coordinates are in the system of the
// projection string: degrees for a geographic one, projected units otherwise. A distance is NaN
// when a point cannot be placed on the ellipsoid (a latitude beyond the pole, a projected point
// that does not invert); so is the area of a polygon with such a vertex.
class TLEllipseCalcFunc {
public:
    static double CalcEllipseDis(TLEllipseParameterNew& parameter, double x1, double y1, double x2,
                                 double y2);
    // Holes are subtracted and several outer rings summed; a ring is a hole when an odd number
    // of the other rings contain it. 0 for anything but a polygon.
    static double CalcEllipseAcreage(TLEllipseParameterNew& parameter, TLGeometry* geometry);
};

}  // namespace TMObjects
