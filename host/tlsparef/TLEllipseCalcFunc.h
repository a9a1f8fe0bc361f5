#pragma once

#include "tlbase/TLString.h"
#include "tlgeo/TLGeometry.h"

namespace TMObjects {

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

private:
    double mA;
    double mF;
    bool mGeographic = true;
    TLString mProjection;
};

// Distances and areas on the ellipsoid (GeographicLib). Coordinates are in the system of the
// projection string: degrees for a geographic one, projected units otherwise.
class TLEllipseCalcFunc {
public:
    static double CalcEllipseDis(TLEllipseParameterNew& parameter, double x1, double y1, double x2,
                                 double y2);
    static double CalcEllipseAcreage(TLEllipseParameterNew& parameter, TLGeometry* geometry);
};

}  // namespace TMObjects
