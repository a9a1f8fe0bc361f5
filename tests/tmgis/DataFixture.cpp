#include "DataFixture.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>
#include <stdlib.h>

#include <fstream>
#include <sstream>

#include "tlgeo/TLGeometryWkt.h"

namespace TMObjects {

namespace fs = std::filesystem;

namespace {

OGRSpatialReference utm33() {
    OGRSpatialReference reference;
    reference.importFromEPSG(32633);
    reference.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    return reference;
}

void addField(OGRLayer* layer, const char* name, OGRFieldType type,
              OGRFieldSubType subType = OFSTNone) {
    OGRFieldDefn field(name, type);
    field.SetSubType(subType);
    ASSERT_EQ(layer->CreateField(&field), OGRERR_NONE) << name;
}

void addFeature(OGRLayer* layer, long long fid, const char* wkt,
                const std::map<std::string, std::string>& values) {
    OGRFeature feature(layer->GetLayerDefn());
    feature.SetFID(fid);
    for (const auto& [name, value] : values) feature.SetField(name.c_str(), value.c_str());
    OGRGeometry* geometry = nullptr;
    ASSERT_EQ(OGRGeometryFactory::createFromWkt(wkt, nullptr, &geometry), OGRERR_NONE) << wkt;
    feature.SetGeometryDirectly(geometry);
    ASSERT_EQ(layer->CreateFeature(&feature), OGRERR_NONE) << wkt;
}

GDALDatasetUniquePtr create(const std::string& path, const char* driver) {
    GDALAllRegister();
    GDALDriver* format = GetGDALDriverManager()->GetDriverByName(driver);
    return GDALDatasetUniquePtr(format->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
}

}  // namespace

void DataFixture::SetUp() {
    std::string pattern = (fs::temp_directory_path() / "tmgis-XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    mDir = pattern;
}

void DataFixture::TearDown() {
    std::error_code ignored;
    fs::remove_all(mDir, ignored);
}

std::string DataFixture::makeGeoPackage() {
    const std::string path = file("demo.gpkg");
    GDALDatasetUniquePtr dataset = create(path, "GPKG");
    OGRSpatialReference reference = utm33();

    OGRLayer* wells = dataset->CreateLayer("wells", &reference, wkbPoint, nullptr);
    addField(wells, "name", OFTString);
    addField(wells, "lanes", OFTInteger, OFSTInt16);
    addField(wells, "count", OFTInteger);
    addField(wells, "ratio", OFTReal, OFSTFloat32);
    addField(wells, "depth", OFTReal);
    addField(wells, "serial", OFTInteger64);
    addField(wells, "drilled", OFTDate);
    addField(wells, "logged", OFTDateTime);
    addField(wells, "scan", OFTBinary);
    addFeature(wells, 1, "POINT (500010 5000020)",
               {{"name", "north"},
                {"lanes", "2"},
                {"count", "7"},
                {"ratio", "0.1"},
                {"depth", "12.25"},
                {"serial", "9000000000"},
                {"drilled", "2021-06-30"},
                {"logged", "2021-06-30T08:15:00Z"}});
    {
        OGRFeature second(wells->GetLayerDefn());
        second.SetFID(2);
        second.SetField("name", "south");
        GByte scan[] = {0xCA, 0xFE, 0x00, 0x01};
        second.SetField(second.GetFieldIndex("scan"), 4, scan);
        second.SetGeometryDirectly(new OGRPoint(500030, 5000040));
        EXPECT_EQ(wells->CreateFeature(&second), OGRERR_NONE);
    }

    OGRLayer* roads = dataset->CreateLayer("roads", &reference, wkbMultiLineString, nullptr);
    addField(roads, "name", OFTString);
    addFeature(roads, 1, "MULTILINESTRING ((500000 5000000, 500100 5000000, 500100 5000100))",
               {{"name", "ring road"}});
    OGRLayer* curves = dataset->CreateLayer("curves", &reference, wkbCircularString, nullptr);
    addField(curves, "name", OFTString);
    addFeature(curves, 1, "CIRCULARSTRING (500000 5000000, 500050 5000050, 500100 5000000)",
               {{"name", "bend"}});

    OGRLayer* parcels = dataset->CreateLayer("parcels", &reference, wkbPolygon, nullptr);
    addField(parcels, "owner", OFTString);
    addFeature(parcels, 1,
               "POLYGON ((500000 5000000, 500040 5000000, 500040 5000040, 500000 5000040, "
               "500000 5000000))",
               {{"owner", "Berg"}});

    OGRLayer* log = dataset->CreateLayer("log", nullptr, wkbNone, nullptr);
    addField(log, "entry", OFTString);

    OGRLayer* marks = dataset->CreateLayer("marks", &reference, wkbPoint, nullptr);
    OGRFieldDefn code("code", OFTString);
    code.SetNullable(FALSE);
    code.SetUnique(TRUE);
    EXPECT_EQ(marks->CreateField(&code), OGRERR_NONE);
    addFeature(marks, 1, "POINT (500000 5000000)", {{"code", "BM1"}});
    return path;
}

std::string DataFixture::makeParcels(const std::string& name, const char* driver) {
    const std::string path = file(name);
    GDALDatasetUniquePtr dataset = create(path, driver);
    OGRSpatialReference reference = utm33();
    OGRLayer* layer =
        dataset->CreateLayer(fs::path(name).stem().c_str(), &reference, wkbPolygon, nullptr);
    addField(layer, "name", OFTString);
    addField(layer, "area", OFTReal);
    addFeature(layer, 0, "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))",
               {{"name", "first"}, {"area", "100"}});
    addFeature(layer, 1, "POLYGON ((20 0, 30 0, 30 10, 20 10, 20 0))",
               {{"name", "second"}, {"area", "100"}});
    addFeature(layer, 2, "POLYGON ((40 0, 50 0, 50 10, 40 10, 40 0))",
               {{"name", "third"}, {"area", "100"}});
    return path;
}

std::string DataFixture::makeGeoTiff() {
    const std::string path = file("dem.tif");
    GDALAllRegister();
    GDALDriver* format = GetGDALDriverManager()->GetDriverByName("GTiff");
    GDALDatasetUniquePtr dataset(format->Create(path.c_str(), 4, 3, 2, GDT_Float32, nullptr));
    double transform[6] = {500000, 10, 0, 5000030, 0, -10};
    dataset->SetGeoTransform(transform);
    OGRSpatialReference reference = utm33();
    dataset->SetSpatialRef(&reference);
    for (int band = 1; band <= 2; ++band) dataset->GetRasterBand(band)->SetNoDataValue(-9999);
    return path;
}

std::map<long long, DataFixture::Stored> DataFixture::readStored(const std::string& path,
                                                                 const std::string& layer) {
    GDALAllRegister();
    std::map<long long, Stored> stored;
    GDALDatasetUniquePtr dataset(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR));
    if (!dataset) return stored;
    OGRLayer* source = dataset->GetLayerByName(layer.c_str());
    if (!source) return stored;
    for (auto& feature : *source) {
        Stored& entry = stored[feature->GetFID()];
        if (const OGRGeometry* g = feature->GetGeometryRef()) entry.wkt = g->exportToWkt();
        for (int i = 0; i < feature->GetFieldCount(); ++i)
            entry.values[feature->GetFieldDefnRef(i)->GetNameRef()] =
                feature->IsFieldSetAndNotNull(i) ? feature->GetFieldAsString(i) : "(null)";
    }
    return stored;
}

std::string DataFixture::bytesOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

std::unique_ptr<TMWorkspace> DataFixture::open(const std::string& path, bool editable) {
    TLString error;
    std::unique_ptr<TMWorkspace> workspace = TMWorkspace::Open(TLString(path), editable, error);
    EXPECT_TRUE(workspace) << error.toStdString();
    return workspace;
}

TLFeatureTable& DataFixture::tableOf(TMWorkspace& workspace, const char* layer) {
    auto* featureLayer = dynamic_cast<TLFeatureLayer*>(workspace.GetLayer(layer).get());
    if (!featureLayer) throw std::runtime_error(std::string("no feature layer ") + layer);
    return *featureLayer->GetDatasource();
}

TLFeature DataFixture::featureWith(const char* wkt) {
    TLFeature feature;
    feature.SetGeometry(geometry(wkt));
    return feature;
}

TLRefPtr<TLGeometry> DataFixture::geometry(const char* wkt) {
    return TLGeometryWkt::FromWkt(wkt);
}

std::string DataFixture::wktOf(const TLFeature* feature) {
    if (!feature || !feature->GetGeometry()) return "(none)";
    return TLGeometryWkt::ToWkt(feature->GetGeometry().get());
}

}  // namespace TMObjects
