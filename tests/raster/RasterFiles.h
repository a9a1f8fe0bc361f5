#pragma once

#include <functional>
#include <string>

namespace TMObjects {

// GeoTIFFs written cell by cell for the raster tests, in EPSG:32633 with the top-left corner at
// (`left`, `top`) and square cells of `cell` metres.
struct RasterSpec {
    int columns = 4;
    int rows = 3;
    int bands = 1;
    // A GDAL type name: "Byte", "Int16", "Float32", "Float64", ...
    std::string type = "Float32";
    double left = 500000.0;
    double top = 5000030.0;
    double cell = 10.0;
    bool hasNoData = false;
    double noData = -9999.0;
    // The cell of a band at a column and row.
    std::function<double(int band, int column, int row)> value = [](int, int c, int r) {
        return 10.0 * r + c;
    };
};

// Writes the raster; the path on success, empty (and a test failure) otherwise.
std::string WriteRaster(const std::string& path, const RasterSpec& spec);

// A fresh scratch folder for one test.
std::string ScratchFolder(const std::string& name);

}  // namespace TMObjects
