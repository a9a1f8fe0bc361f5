#include "TLDemoData.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <cmath>
#include <filesystem>
#include <map>
#include <vector>

namespace TMObjects {

namespace {

struct Field {
    const char* name;
    OGRFieldType type;
    OGRFieldSubType subType = OFSTNone;
    bool required = false;
};

struct Row {
    const char* wkt;
    std::map<std::string, std::string> values;
};

bool addLayer(GDALDataset& dataset, const char* name, OGRwkbGeometryType type,
              OGRSpatialReference& reference, const std::vector<Field>& fields,
              const std::vector<Row>& rows) {
    OGRLayer* layer = dataset.CreateLayer(name, &reference, type, nullptr);
    if (!layer) return false;
    for (const Field& f : fields) {
        OGRFieldDefn field(f.name, f.type);
        field.SetSubType(f.subType);
        // A benchmark without its survey code is no benchmark: the store itself insists.
        field.SetNullable(!f.required);
        field.SetUnique(f.required);
        if (layer->CreateField(&field) != OGRERR_NONE) return false;
    }
    for (const Row& row : rows) {
        OGRFeature feature(layer->GetLayerDefn());
        for (const auto& [field, value] : row.values)
            feature.SetField(field.c_str(), value.c_str());
        OGRGeometry* geometry = nullptr;
        if (OGRGeometryFactory::createFromWkt(row.wkt, &reference, &geometry) != OGRERR_NONE)
            return false;
        feature.SetGeometryDirectly(geometry);
        if (layer->CreateFeature(&feature) != OGRERR_NONE) return false;
    }
    return true;
}

bool addVectors(GDALDataset& dataset, OGRSpatialReference& reference) {
    return addLayer(dataset, "wells", wkbPoint, reference,
                    {{"name", OFTString}, {"depth", OFTReal}, {"drilled", OFTDate}},
                    {{"POINT (500120 5000480)",
                      {{"name", "Alder"}, {"depth", "42.5"}, {"drilled", "2019-04-12"}}},
                     {"POINT (500310 5000150)",
                      {{"name", "Birch"}, {"depth", "18.75"}, {"drilled", "2020-09-01"}}},
                     {"POINT (500655 5000390)",
                      {{"name", "Cedar"}, {"depth", "63"}, {"drilled", "2022-03-17"}}}}) &&
           addLayer(dataset, "roads", wkbLineString, reference,
                    {{"name", OFTString}, {"lanes", OFTInteger, OFSTInt16}},
                    {{"LINESTRING (500000 5000300, 500250 5000320, 500520 5000290, "
                      "500800 5000310)",
                      {{"name", "Mill Road"}, {"lanes", "2"}}},
                     {"LINESTRING (500400 5000000, 500420 5000200, 500380 5000600)",
                      {{"name", "Quarry Lane"}, {"lanes", "1"}}}}) &&
           addLayer(dataset, "parcels", wkbPolygon, reference,
                    {{"parcel_no", OFTInteger64}, {"owner", OFTString}, {"area", OFTReal}},
                    {{"POLYGON ((500050 5000350, 500250 5000350, 500250 5000550, "
                      "500050 5000550, 500050 5000350))",
                      {{"parcel_no", "1001"}, {"owner", "Hansen"}, {"area", "40000"}}},
                     {"POLYGON ((500450 5000050, 500700 5000050, 500700 5000250, "
                      "500450 5000250, 500450 5000050))",
                      {{"parcel_no", "1002"}, {"owner", "Okafor"}, {"area", "50000"}}}}) &&
           addLayer(dataset, "benchmarks", wkbPoint, reference,
                    {{"code", OFTString, OFSTNone, true}, {"height", OFTReal}},
                    {{"POINT (500200 5000100)", {{"code", "BM-01"}, {"height", "312.4"}}},
                     {"POINT (500600 5000500)", {{"code", "BM-02"}, {"height", "298.1"}}}});
}

// One hill, 80 m above a plain at 250 m, centred on the map.
bool addElevation(const std::string& path, OGRSpatialReference& reference) {
    const int columns = 80, rows = 60;
    GDALDriver* memory = GetGDALDriverManager()->GetDriverByName("MEM");
    GDALDatasetUniquePtr grid(memory->Create("", columns, rows, 1, GDT_Float32, nullptr));
    double transform[6] = {500000, 10, 0, 5000600, 0, -10};
    grid->SetGeoTransform(transform);
    grid->SetSpatialRef(&reference);
    std::vector<float> heights(std::size_t(columns * rows));
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c) {
            const double x = 5 + 10.0 * c - 400, y = 5 + 10.0 * r - 300;
            heights[std::size_t(r * columns + c)] =
                float(250 + 80 * std::exp(-(x * x + y * y) / (2 * 150.0 * 150.0)));
        }
    if (grid->GetRasterBand(1)->RasterIO(GF_Write, 0, 0, columns, rows, heights.data(), columns,
                                         rows, GDT_Float32, 0, 0) != CE_None)
        return false;
    const char* options[] = {"APPEND_SUBDATASET=YES", "RASTER_TABLE=dem", nullptr};
    GDALDriver* geopackage = GetGDALDriverManager()->GetDriverByName("GPKG");
    GDALDatasetUniquePtr written(geopackage->CreateCopy(
        path.c_str(), grid.get(), FALSE, const_cast<char**>(options), nullptr, nullptr));
    return written != nullptr;
}

}  // namespace

std::map<std::string, TLLayer::LayerType> TLDemoData::Layers() {
    return {{"wells", TLLayer::PointLayer},
            {"roads", TLLayer::LineLayer},
            {"parcels", TLLayer::PolygonLayer},
            {"benchmarks", TLLayer::PointLayer},
            {"dem", TLLayer::RasterLayer}};
}

bool TLDemoData::Write(const std::string& path, std::string& error) {
    GDALAllRegister();
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
    OGRSpatialReference reference;
    reference.importFromEPSG(32633);
    reference.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    GDALDriver* geopackage = GetGDALDriverManager()->GetDriverByName("GPKG");
    {
        GDALDatasetUniquePtr dataset(
            geopackage->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
        if (!dataset || !addVectors(*dataset, reference)) {
            error = "cannot write the demo layers to " + path + ": " + CPLGetLastErrorMsg();
            return false;
        }
    }
    if (!addElevation(path, reference)) {
        error = "cannot write the demo elevation to " + path + ": " + CPLGetLastErrorMsg();
        return false;
    }
    return true;
}

}  // namespace TMObjects
