#include "TLDemRaster.h"

#include <gdal_priv.h>
#include <ogr_spatialref.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <sstream>

namespace TMObjects {

namespace {

constexpr double kLeft = 500000.0;
constexpr double kBottom = 5000000.0;

bool number(const std::string& text, double& value) {
    char* end = nullptr;
    value = std::strtod(text.c_str(), &end);
    return !text.empty() && end == text.c_str() + text.size();
}

std::vector<std::string> split(const std::string& text, char by) {
    std::vector<std::string> parts;
    std::stringstream in(text);
    for (std::string part; std::getline(in, part, by);) parts.push_back(part);
    return parts;
}

// The shape's numbers after its name: "plane:0.1:0.2" gives {0.1, 0.2}.
bool shapeNumbers(const std::string& shape, std::size_t count, std::vector<double>& values) {
    const std::vector<std::string> parts = split(shape, ':');
    if (parts.size() != count + 1) return false;
    values.resize(count);
    for (std::size_t i = 0; i < count; ++i)
        if (!number(parts[i + 1], values[i])) return false;
    return true;
}

}  // namespace

bool TLDemRaster::Parse(const std::vector<std::string>& words, std::string& error) {
    const char* usage =
        "dem PATH plane:A:B|cone:H:R|flat:Z COLUMNS ROWS CELL [type=T] [nodata=V] [hole=C,R]...";
    double c = 0, r = 0;
    if (words.size() < 5 || !number(words[2], c) || !number(words[3], r) ||
        !number(words[4], cell) || c < 1 || r < 1 || !(cell > 0)) {
        error = std::string("expected ") + usage;
        return false;
    }
    shape = words[1];
    columns = int(c);
    rows = int(r);
    std::vector<double> values;
    const std::string kind = shape.substr(0, shape.find(':'));
    if (!((kind == "plane" && shapeNumbers(shape, 2, values)) ||
          (kind == "cone" && shapeNumbers(shape, 2, values)) ||
          (kind == "flat" && shapeNumbers(shape, 1, values)))) {
        error = "unknown shape \"" + shape + "\": " + usage;
        return false;
    }
    for (std::size_t i = 5; i < words.size(); ++i) {
        const std::string& option = words[i];
        const std::size_t eq = option.find('=');
        const std::string key = option.substr(0, eq),
                          value = eq == std::string::npos ? "" : option.substr(eq + 1);
        const std::vector<std::string> place = split(value, ',');
        double hc = 0, hr = 0;
        if (key == "type" && GDALGetDataTypeByName(value.c_str()) != GDT_Unknown) {
            type = value;
        } else if (key == "nodata" && number(value, noData)) {
            hasNoData = true;
        } else if (key == "hole" && place.size() == 2 && number(place[0], hc) &&
                   number(place[1], hr)) {
            holes.emplace_back(int(hc), int(hr));
        } else {
            error = "unknown option \"" + option + "\": " + usage;
            return false;
        }
    }
    if (!holes.empty() && !hasNoData) {
        error = "a hole needs a no-data value: nodata=V";
        return false;
    }
    return true;
}

double TLDemRaster::HeightAt(double x, double y) const {
    std::vector<double> v;
    if (shapeNumbers(shape, 2, v) && shape.rfind("plane", 0) == 0)
        return 100.0 + v[0] * (x - kLeft) + v[1] * (y - kBottom);
    if (shapeNumbers(shape, 2, v) && shape.rfind("cone", 0) == 0) {
        const double cx = kLeft + columns * cell / 2, cy = kBottom + rows * cell / 2;
        return std::max(0.0, v[0] * (1.0 - std::hypot(x - cx, y - cy) / v[1]));
    }
    shapeNumbers(shape, 1, v);
    return v.empty() ? 0.0 : v[0];
}

bool TLDemRaster::Write(const std::string& path, std::string& error) const {
    GDALAllRegister();
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("GTiff");
    GDALDatasetUniquePtr dataset(driver->Create(path.c_str(), columns, rows, 1,
                                                GDALGetDataTypeByName(type.c_str()), nullptr));
    if (!dataset) {
        error = "cannot write " + path + ": " + CPLGetLastErrorMsg();
        return false;
    }
    double transform[6] = {kLeft, cell, 0, kBottom + rows * cell, 0, -cell};
    dataset->SetGeoTransform(transform);
    OGRSpatialReference reference;
    reference.importFromEPSG(32633);
    dataset->SetSpatialRef(&reference);
    std::vector<double> heights(std::size_t(columns) * rows);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c)
            heights[std::size_t(r) * columns + c] =
                HeightAt(kLeft + (c + 0.5) * cell, kBottom + (rows - r - 0.5) * cell);
    for (const auto& [c, r] : holes)
        if (c >= 0 && c < columns && r >= 0 && r < rows)
            heights[std::size_t(r) * columns + c] = noData;
    GDALRasterBand* band = dataset->GetRasterBand(1);
    if (hasNoData) band->SetNoDataValue(noData);
    if (band->RasterIO(GF_Write, 0, 0, columns, rows, heights.data(), columns, rows, GDT_Float64, 0,
                       0, nullptr) != CE_None) {
        error = "cannot write the heights of " + path + ": " + CPLGetLastErrorMsg();
        return false;
    }
    return true;
}

}  // namespace TMObjects
