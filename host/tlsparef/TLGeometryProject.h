#pragma once

#include <memory>

#include "tlbase/TLPoint.h"
#include "tlgeo/TLGeometry.h"
#include "tlsparef/TLCoordinateSystem.h"

namespace TMObjects {

class TLGeoPoint;
class TLGeoPolyline;
class TLParaConvertBase;  // datum conversion parameters; PROJ chooses its own pipeline

// Projects geometries in place from one coordinate system into another.
class TLGeometryProject {
public:
    TLGeometryProject();
    ~TLGeometryProject();
    TLGeometryProject(const TLGeometryProject&) = delete;
    TLGeometryProject& operator=(const TLGeometryProject&) = delete;

    bool SetPrj(TLCoordinateSystem* from, TLCoordinateSystem* to, TLParaConvertBase* params);
    bool ProjTmGeometry(TLGeometry* geometry);
    bool ProjTmGeometry(TLGeometry* geometry, TLGeometry::GeoType type);
    bool ProjKqGeometry(TLGeometry* geometry) { return ProjTmGeometry(geometry); }
    bool ProjTmPoint(TLGeoPoint* point);
    bool ProjTmPolyline(TLGeoPolyline* line);
    bool ProjPoint(TLPoint& point);
    bool ProjXY(double& x, double& y);
    // The bounds of the rectangle after projection, its edges densified so that curved images
    // are covered. All-or-nothing like the rest: false leaves the four values unchanged.
    bool ProjBounds(double& xmin, double& ymin, double& xmax, double& ymax);

private:
    bool projectRaw(TLGeometry* geometry);
    bool projectEnvelope(TLGeometry* geometry);
    struct Impl;
    std::unique_ptr<Impl> mImpl;
};

}  // namespace TMObjects
