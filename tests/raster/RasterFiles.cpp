#include "RasterFiles.h"

#include <gdal_priv.h>
#include <gtest/gtest.h>
#include <ogr_spatialref.h>

#include <unistd.h>

#include <filesystem>
#include <vector>

namespace TMObjects {

std::string WriteRaster(const std::string& path, const RasterSpec& spec) {
    GDALAllRegister();
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("GTiff");
    const GDALDataType type = GDALGetDataTypeByName(spec.type.c_str());
    GDALDatasetUniquePtr dataset(
        driver->Create(path.c_str(), spec.columns, spec.rows, spec.bands, type, nullptr));
    if (!dataset) {
        ADD_FAILURE() << "cannot write " << path;
        return std::string();
    }
    double transform[6] = {spec.left, spec.cell, 0, spec.top, 0, -spec.cell};
    dataset->SetGeoTransform(transform);
    OGRSpatialReference reference;
    reference.importFromEPSG(32633);
    dataset->SetSpatialRef(&reference);
    std::vector<double> cells(std::size_t(spec.columns) * spec.rows);
    for (int band = 1; band <= spec.bands; ++band) {
        for (int r = 0; r < spec.rows; ++r)
            for (int c = 0; c < spec.columns; ++c)
                cells[std::size_t(r) * spec.columns + c] = spec.value(band, c, r);
        GDALRasterBand* b = dataset->GetRasterBand(band);
        if (spec.hasNoData) b->SetNoDataValue(spec.noData);
        if (b->RasterIO(GF_Write, 0, 0, spec.columns, spec.rows, cells.data(), spec.columns,
                        spec.rows, GDT_Float64, 0, 0, nullptr) != CE_None)
            ADD_FAILURE() << "cannot write the cells of " << path;
    }
    return path;
}

std::string ScratchFolder(const std::string& name) {
    const auto dir = std::filesystem::temp_directory_path() /
                     ("tlraster-" + name + "-" + std::to_string(::getpid()));
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir);
    return dir.string();
}

}  // namespace TMObjects
