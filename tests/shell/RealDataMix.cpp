#include "RealDataMix.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <QFile>
#include <QProcess>
#include <QTextStream>
#include <memory>

#include "ShellTestData.h"

namespace TMObjects {

namespace {

OGRPolygon* box(double x0, double y0, double x1, double y1) {
    auto* ring = new OGRLinearRing;
    ring->addPoint(x0, y0);
    ring->addPoint(x1, y0);
    ring->addPoint(x1, y1);
    ring->addPoint(x0, y1);
    ring->addPoint(x0, y0);
    auto* polygon = new OGRPolygon;
    polygon->addRingDirectly(ring);
    return polygon;
}

}  // namespace

QString RealDataMix::WriteCounties(const QString& folder) {
    const QString path = folder + "/counties.gpkg";
    std::unique_ptr<GDALDataset> dataset = ShellTestData::NewGeoPackage(path);
    if (!dataset) return QString();
    OGRSpatialReference nad27;
    nad27.importFromEPSG(4267);
    nad27.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    OGRLayer* counties = dataset->CreateLayer("counties", &nad27, wkbPolygon, nullptr);
    OGRFieldDefn name("NAME", OFTString), fips("FIPS", OFTString);
    counties->CreateField(&name);
    counties->CreateField(&fips);
    const auto add = [counties](const char* n, const char* f, OGRPolygon* shape) {
        std::unique_ptr<OGRFeature> feature(OGRFeature::CreateFeature(counties->GetLayerDefn()));
        feature->SetField("NAME", n);
        feature->SetField("FIPS", f);
        feature->SetGeometryDirectly(shape);
        return counties->CreateFeature(feature.get()) == OGRERR_NONE;
    };
    return add("Avery", "37011", box(-84.5, 35.0, -84.0, 35.5)) &&
                   add("Burke", "37023", box(-84.0, 35.0, -83.5, 35.5))
               ? path
               : QString();
}

QString RealDataMix::WriteTracts(const QString& folder) {
    const QString path = folder + "/tracts.gpkg";
    std::unique_ptr<GDALDataset> dataset = ShellTestData::NewGeoPackage(path);
    if (!dataset) return QString();
    OGRSpatialReference utm;
    utm.importFromEPSG(26917);
    OGRLayer* tracts = dataset->CreateLayer("tracts", &utm, wkbPolygon, nullptr);
    OGRFieldDefn code("TRACTCE", OFTString);
    code.SetNullable(FALSE);
    OGRFieldDefn population("POP", OFTInteger);
    tracts->CreateField(&code);
    tracts->CreateField(&population);
    const auto add = [tracts](const char* c, int pop, OGRPolygon* shape) {
        std::unique_ptr<OGRFeature> feature(OGRFeature::CreateFeature(tracts->GetLayerDefn()));
        feature->SetField("TRACTCE", c);
        feature->SetField("POP", pop);
        feature->SetGeometryDirectly(shape);
        return tracts->CreateFeature(feature.get()) == OGRERR_NONE;
    };
    const double x = kTractCornerX, y = kTractCornerY;
    return add("950100", 4210, box(x, y, x + 6000, y + 5000)) &&
                   add("950200", 3875, box(x + 6000, y, x + 12000, y + 5000))
               ? path
               : QString();
}

QString RealDataMix::WriteDutchRaster(const QString& folder) {
    const QString grid = folder + "/heights.asc";
    QFile file(grid);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) return QString();
    QTextStream out(&file);
    out << "ncols 40\nnrows 30\nxllcorner 155000\nyllcorner 463000\ncellsize 25\n"
           "NODATA_value -9999\n";
    for (int row = 0; row < 30; ++row) {
        for (int column = 0; column < 40; ++column) out << (column * 2 + row % 3) << ' ';
        out << '\n';
    }
    file.close();
    const QString raster = folder + "/heights.tif";
    QProcess translate;
    translate.start("gdal_translate", {"-q", "-a_srs", "EPSG:28992", "-of", "GTiff", grid, raster});
    if (!translate.waitForFinished(-1) || translate.exitCode() != 0) return QString();
    return raster;
}

}  // namespace TMObjects
