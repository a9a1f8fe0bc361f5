// The host's data readers on any bytes: the first byte chooses the format (GeoPackage, Shapefile,
// GeoJSON, GeoTIFF), the rest is the file. Opening it gives a workspace or a reason, never a
// crash; a workspace's layers are read through, features and raster cells.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>
#include <unistd.h>

#include <cpl_vsi.h>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "FuzzTarget.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLRasterLayer.h"
#include "tlsde/TLFeatureTable.h"
#include "tmgis/TMWorkspace.h"

namespace {

namespace fs = std::filesystem;

const char* const kNames[] = {"data.gpkg", "data.shp", "data.geojson", "data.tif"};
const char* const kDrivers[] = {"GPKG", "ESRI Shapefile", "GeoJSON", "GTiff"};

const fs::path& folder() {
    static const fs::path made = [] {
        const fs::path path = fs::temp_directory_path() / ("tlfuzz-" + std::to_string(getpid()));
        fs::create_directories(path);
        return path;
    }();
    return made;
}

std::string bytesOf(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

void readThrough(TMObjects::TMWorkspace& workspace) {
    for (const auto& layer : workspace.GetLayers()) {
        if (auto* features = dynamic_cast<TMObjects::TLFeatureLayer*>(layer.get())) {
            const TMObjects::TLFeatureTable* table = features->GetDatasource().get();
            for (int id : table->GetIds()) table->PeekFeature(id);
        }
    }
}

// A small data source of each format, made with GDAL: a few features or cells to mutate.
std::string seedOf(int format) {
    GDALAllRegister();
    const fs::path path = folder() / ("seed-" + std::string(kNames[format]));
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(kDrivers[format]);
    if (format == 3) {
        GDALDatasetUniquePtr raster(driver->Create(path.c_str(), 4, 3, 1, GDT_Float32, nullptr));
        double transform[6] = {500000, 10, 0, 5000030, 0, -10};
        raster->SetGeoTransform(transform);
        float cells[12] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, -9999};
        if (raster->GetRasterBand(1)->RasterIO(GF_Write, 0, 0, 4, 3, cells, 4, 3, GDT_Float32, 0,
                                               0) != CE_None)
            return {};
    } else {
        GDALDatasetUniquePtr vector(driver->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
        OGRLayer* layer = vector->CreateLayer("data", nullptr, wkbPolygon, nullptr);
        OGRFieldDefn name("name", OFTString);
        layer->CreateField(&name);
        for (int i = 0; i < 3; ++i) {
            OGRFeature feature(layer->GetLayerDefn());
            feature.SetField("name", ("parcel " + std::to_string(i)).c_str());
            OGRGeometry* shape = nullptr;
            const std::string wkt = "POLYGON ((" + std::to_string(i) + " 0, " + std::to_string(i) +
                                    " 1, " + std::to_string(i + 1) + " 1, " + std::to_string(i) +
                                    " 0))";
            OGRGeometryFactory::createFromWkt(wkt.c_str(), nullptr, &shape);
            feature.SetGeometryDirectly(shape);
            if (layer->CreateFeature(&feature) != OGRERR_NONE) return {};
        }
    }
    // A Shapefile's seed is its .shp; the .shx and .dbf written beside each input stay valid.
    return std::string(1, char(format)) + bytesOf(path);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1) return 0;
    static const std::vector<std::string> seeds = FuzzSeeds();  // also the Shapefile's partners
    const int format = data[0] % 4;
    const fs::path path = folder() / kNames[format];
    {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data + 1), std::streamsize(size - 1));
    }
    if (format == 1)
        for (const char* ext : {".shx", ".dbf"})
            fs::copy_file(folder() / (std::string("seed-data") + ext),
                          folder() / (std::string("data") + ext),
                          fs::copy_options::overwrite_existing);
    TMObjects::TLString error;
    CPLPushErrorHandler(CPLQuietErrorHandler);
    auto workspace = TMObjects::TMWorkspace::Open(TMObjects::TLString(path.string()), false, error);
    if (workspace)
        readThrough(*workspace);
    else if (error.toStdString().empty())
        __builtin_trap();  // a data source that cannot be read is refused with a reason
    CPLPopErrorHandler();
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(folder(), ignored))
        if (entry.path().filename().string().rfind("seed-", 0) != 0) fs::remove_all(entry, ignored);
    return 0;
}

std::vector<std::string> FuzzSeeds() {
    std::vector<std::string> seeds;
    for (int format = 0; format < 4; ++format) seeds.push_back(seedOf(format));
    return seeds;
}
