#pragma once

#include <string>
#include <vector>

namespace TMObjects {

// Elevation rasters made for a session: GeoTIFFs in EPSG:32633 whose lower-left corner is
// (500000, 5000000), with square cells, heights of a simple shape at the cell centres.
//
//   plane:A:B   z = 100 + A (x - 500000) + B (y - 5000000)
//   cone:H:R    a cone H high and R wide at its foot, standing on 0 in the raster's middle
//   flat:Z      z = Z everywhere
// Options: type=Byte|Int16|UInt16|Int32|UInt32|Float32|Float64 (Float32 by default), nodata=V
// (the bands' no-data value), hole=COL,ROW (that cell holds the no-data value; needs nodata).
struct TLDemRaster {
    std::string shape;
    int columns = 0;
    int rows = 0;
    double cell = 0.0;
    std::string type = "Float32";
    bool hasNoData = false;
    double noData = 0.0;
    std::vector<std::pair<int, int>> holes;

    // Reads "SHAPE COLUMNS ROWS CELL [OPTION...]" from `words`; false with the reason.
    bool Parse(const std::vector<std::string>& words, std::string& error);
    bool Write(const std::string& path, std::string& error) const;
    double HeightAt(double x, double y) const;
};

}  // namespace TMObjects
