#include "ShellTestData.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <memory>

namespace TMObjects {

namespace {

bool addFeature(OGRLayer* layer, OGRGeometry* geometry, const char* name) {
    std::unique_ptr<OGRFeature> feature(OGRFeature::CreateFeature(layer->GetLayerDefn()));
    feature->SetField("name", name);
    feature->SetGeometryDirectly(geometry);
    return layer->CreateFeature(feature.get()) == OGRERR_NONE;
}

OGRLineString* line(double x0, double y0, double x1, double y1) {
    auto* l = new OGRLineString;
    l->addPoint(x0, y0);
    l->addPoint(x1, y1);
    return l;
}

OGRPolygon* square(double x0, double y0, double size) {
    auto* ring = new OGRLinearRing;
    ring->addPoint(x0, y0);
    ring->addPoint(x0 + size, y0);
    ring->addPoint(x0 + size, y0 + size);
    ring->addPoint(x0, y0 + size);
    ring->addPoint(x0, y0);
    auto* polygon = new OGRPolygon;
    polygon->addRingDirectly(ring);
    return polygon;
}

OGRLayer* makeLayer(GDALDataset* dataset, const char* name, OGRwkbGeometryType type,
                    OGRSpatialReference* srs) {
    OGRLayer* layer = dataset->CreateLayer(name, srs, type, nullptr);
    OGRFieldDefn field("name", OFTString);
    layer->CreateField(&field);
    return layer;
}

}  // namespace

std::unique_ptr<GDALDataset> ShellTestData::NewGeoPackage(const QString& path) {
    GDALAllRegister();
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("GPKG");
    return std::unique_ptr<GDALDataset>(
        driver->Create(path.toUtf8().constData(), 0, 0, 0, GDT_Unknown, nullptr));
}

QString ShellTestData::WriteGeoPackage(const QString& folder) {
    const QString path = folder + "/shell.gpkg";
    std::unique_ptr<GDALDataset> dataset = NewGeoPackage(path);
    if (!dataset) return QString();
    OGRSpatialReference srs;
    srs.importFromEPSG(3857);
    OGRLayer* wells = makeLayer(dataset.get(), "wells", wkbPoint, &srs);
    OGRLayer* roads = makeLayer(dataset.get(), "roads", wkbLineString, &srs);
    OGRLayer* parcels = makeLayer(dataset.get(), "parcels", wkbPolygon, &srs);
    const bool written = addFeature(wells, new OGRPoint(200, 200), "north") &&
                         addFeature(wells, new OGRPoint(500, 500), "centre") &&
                         addFeature(wells, new OGRPoint(800, 300), "east") &&
                         addFeature(roads, line(100, 100, 900, 100), "south road") &&
                         addFeature(roads, line(100, 900, 900, 900), "north road") &&
                         addFeature(parcels, square(300, 600, 150), "plot");
    return written ? path : QString();
}

QString ShellTestData::WriteWells(const QString& folder, const char* driverName, const char* file) {
    GDALAllRegister();
    const QString path = folder + "/" + file;
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(driverName);
    std::unique_ptr<GDALDataset> dataset(
        driver->Create(path.toUtf8().constData(), 0, 0, 0, GDT_Unknown, nullptr));
    if (!dataset) return QString();
    OGRSpatialReference srs;
    srs.importFromEPSG(3857);
    OGRLayer* wells = makeLayer(dataset.get(), "wells", wkbPoint, &srs);
    const bool written = addFeature(wells, new OGRPoint(200, 200), "north") &&
                         addFeature(wells, new OGRPoint(500, 500), "centre") &&
                         addFeature(wells, new OGRPoint(800, 300), "east");
    return written ? path : QString();
}

QString ShellTestData::WriteRaster(const QString& folder) {
    GDALAllRegister();
    const QString path = folder + "/slope.tif";
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("GTiff");
    std::unique_ptr<GDALDataset> dataset(
        driver->Create(path.toUtf8().constData(), 10, 10, 1, GDT_Float32, nullptr));
    double transform[6] = {0, 100, 0, 1000, 0, -100};
    dataset->SetGeoTransform(transform);
    OGRSpatialReference srs;
    srs.importFromEPSG(3857);
    dataset->SetSpatialRef(&srs);
    float cells[100];
    for (int row = 0; row < 10; ++row)
        for (int column = 0; column < 10; ++column) cells[row * 10 + column] = float(column * 10);
    cells[0] = -1;
    GDALRasterBand* band = dataset->GetRasterBand(1);
    band->SetNoDataValue(-1);
    if (band->RasterIO(GF_Write, 0, 0, 10, 10, cells, 10, 10, GDT_Float32, 0, 0, nullptr) !=
        CE_None)
        return QString();
    return path;
}

QString ShellTestData::WriteSites(const QString& folder) {
    const QString path = folder + "/sites.gpkg";
    std::unique_ptr<GDALDataset> dataset = NewGeoPackage(path);
    if (!dataset) return QString();
    OGRSpatialReference srs;
    srs.importFromEPSG(3857);
    OGRLayer* sites = dataset->CreateLayer("sites", &srs, wkbPoint, nullptr);
    OGRFieldDefn owner("owner", OFTString);
    owner.SetNullable(FALSE);
    OGRFieldDefn area("area", OFTReal);
    OGRFieldDefn visits("visits", OFTInteger);
    if (sites->CreateField(&owner) != OGRERR_NONE || sites->CreateField(&area) != OGRERR_NONE ||
        sites->CreateField(&visits) != OGRERR_NONE)
        return QString();
    const auto add = [sites](double x, double y, const char* name, double size, int count) {
        std::unique_ptr<OGRFeature> feature(OGRFeature::CreateFeature(sites->GetLayerDefn()));
        feature->SetField("owner", name);
        feature->SetField("area", size);
        feature->SetField("visits", count);
        feature->SetGeometryDirectly(new OGRPoint(x, y));
        return sites->CreateFeature(feature.get()) == OGRERR_NONE;
    };
    return add(100, 100, "Ames", 12.5, 3) && add(300, 300, "Bell", 7, 10) ? path : QString();
}

}  // namespace TMObjects
