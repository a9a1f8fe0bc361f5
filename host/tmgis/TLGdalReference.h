#pragma once

#include "tlsparef/TLCoordinateSystem.h"

class OGRSpatialReference;

namespace TMObjects {

// The host's coordinate system of a GDAL reference: by the authority's code where there is one,
// since it names the system exactly, by the WKT otherwise. Null for no reference and for the
// GeoPackage's stand-ins of an undefined system: such a layer's coordinates are the map's.
TLRefPtr<TLCoordinateSystem> TLSystemOfGdalReference(const OGRSpatialReference* reference);

}  // namespace TMObjects
