#pragma once

#include <QString>

namespace TMObjects {

// The data a cartographer brings, written for the tests in a folder: county polygons in NAD27
// geographic (EPSG:4267), census tracts in UTM zone 17N on NAD83 (EPSG:26917) over the same
// ground, and an elevation raster in the Dutch national grid (EPSG:28992) made with the GDAL
// command-line tools, as users make theirs.
class RealDataMix {
public:
    // "counties.gpkg": two counties side by side, "Avery" over -84.5..-84.0 and "Burke" over
    // -84.0..-83.5, both 35.0..35.5, with NAME and FIPS.
    static QString WriteCounties(const QString& folder);
    // "tracts.gpkg": tracts with TRACTCE required (NOT NULL) and POP; the first tract's first
    // vertex is kTractCorner.
    static QString WriteTracts(const QString& folder);
    // "heights.tif", 40 x 30 cells of 25 m from RD x 155000, y 463750 down, rising from west to
    // east; written as an ASCII grid and turned into a GeoTIFF by gdal_translate. Empty when the
    // tool is missing or failed.
    static QString WriteDutchRaster(const QString& folder);

    static constexpr double kTractCornerX = 727000.0;
    static constexpr double kTractCornerY = 3880000.0;
};

}  // namespace TMObjects
