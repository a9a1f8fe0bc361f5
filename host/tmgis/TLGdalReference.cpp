#include "tmgis/TLGdalReference.h"

#include <ogr_spatialref.h>

#include <string>

#include "tlsparef/TLCoordinateSystem.h"

namespace TMObjects {

TLRefPtr<TLCoordinateSystem> TLSystemOfGdalReference(const OGRSpatialReference* reference) {
    if (!reference) return TLRefPtr<TLCoordinateSystem>();
    // A GeoPackage table made without a system is given one of the format's two stand-ins; GDAL
    // reads the geographic one as WGS 84 longitude and latitude, which would have the map
    // project the table's coordinates as if they were degrees.
    const char* name = reference->GetName();
    if (name && (std::string(name) == "Undefined geographic SRS" ||
                 std::string(name) == "Undefined Cartesian SRS"))
        return TLRefPtr<TLCoordinateSystem>();
    const char* authority = reference->GetAuthorityName(nullptr);
    const char* code = reference->GetAuthorityCode(nullptr);
    if (authority && code) {
        TLRefPtr<TLCoordinateSystem> system = TLSpatialObjectFactory::LoadCoordinateSystem(
            TLString(std::string(authority) + ":" + code));
        if (system) return system;
    }
    char* wkt = nullptr;
    const char* const options[] = {"FORMAT=WKT2_2019", nullptr};
    if (reference->exportToWkt(&wkt, options) != OGRERR_NONE || !wkt) {
        CPLFree(wkt);
        return TLRefPtr<TLCoordinateSystem>();
    }
    TLRefPtr<TLCoordinateSystem> system =
        TLSpatialObjectFactory::LoadCoordinateSystem(TLString(std::string(wkt)));
    CPLFree(wkt);
    return system;
}

}  // namespace TMObjects
