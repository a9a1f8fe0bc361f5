#pragma once

#include <QString>
#include <memory>

class GDALDataset;

namespace TMObjects {

// Small data sources written with GDAL for the shell's tests, in EPSG:3857 around 0..1000:
// "wells" (points at 200,200, 500,500 and 800,300), "roads" (a line from 100,100 to 900,100,
// another from 100,900 to 900,900) and "parcels" (the square 300..450 x 600..750).
// Each answers the path written, or an empty string when GDAL failed to write.
class ShellTestData {
public:
    // A new, empty GeoPackage at `path`; null when GDAL cannot make it.
    static std::unique_ptr<GDALDataset> NewGeoPackage(const QString& path);
    static QString WriteGeoPackage(const QString& folder);
    // Only the wells, in a file of the named GDAL driver ("ESRI Shapefile", "GeoJSON").
    static QString WriteWells(const QString& folder, const char* driverName, const char* file);
    // A 10 x 10 single-band GeoTIFF over 0..1000 x 0..1000 whose cells grow from 0 (left) to
    // 90 (right), with no data in the top-left cell.
    static QString WriteRaster(const QString& folder);
    // "sites.gpkg": a point layer "sites" in EPSG:3857 whose field "owner" is required (NOT
    // NULL, no default), with "area" (real) and "visits" (integer) beside it; two sites, at
    // 100,100 (owner "Ames", area 12.5, visits 3) and 300,300 (owner "Bell", area 7, visits 10).
    static QString WriteSites(const QString& folder);
};

}  // namespace TMObjects
