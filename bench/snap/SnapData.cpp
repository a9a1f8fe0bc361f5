// Writes the layer and the query points the snap benchmark is measured on:
//   bench_snap_data OUT.gpkg QUERIES.txt [--lines N] [--vertices N] [--queries N]
// A GeoPackage layer "walks" in EPSG:3857 of N random walks (10,000 of 100 vertices by default:
// one million vertices) with steps of up to 100 m in x and y over a square of 100 km, and a text
// file of query points "x y", one a line, spread evenly over the same square.

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

namespace {

constexpr double kSide = 100000.0;
// Somewhere in central Europe in web Mercator metres, so that the figures look like real data.
constexpr double kX0 = 1500000.0;
constexpr double kY0 = 6000000.0;

struct Options {
    std::string gpkg, queries;
    int lines = 10000, vertices = 100, points = 20000;
};

bool parse(int argc, char** argv, Options& o) {
    int positional = 0;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        auto number = [&](int& into) {
            if (i + 1 >= argc) return false;
            into = std::atoi(argv[++i]);
            return into > 0;
        };
        if (a == "--lines") {
            if (!number(o.lines)) return false;
        } else if (a == "--vertices") {
            if (!number(o.vertices) || o.vertices < 2) return false;
        } else if (a == "--queries") {
            if (!number(o.points)) return false;
        } else if (positional == 0) {
            o.gpkg = a, ++positional;
        } else if (positional == 1) {
            o.queries = a, ++positional;
        } else {
            return false;
        }
    }
    return positional == 2;
}

bool writeLayer(const Options& o) {
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("GPKG");
    GDALDatasetUniquePtr ds(driver ? driver->Create(o.gpkg.c_str(), 0, 0, 0, GDT_Unknown, nullptr)
                                   : nullptr);
    if (!ds) return false;
    OGRSpatialReference srs;
    srs.importFromEPSG(3857);
    OGRLayer* layer = ds->CreateLayer("walks", &srs, wkbLineString, nullptr);
    if (!layer) return false;
    OGRFieldDefn name("name", OFTString);
    layer->CreateField(&name);
    std::mt19937 rng(7);
    std::uniform_real_distribution<double> start(0.0, kSide), step(-100.0, 100.0);
    if (ds->StartTransaction() != OGRERR_NONE) return false;
    for (int i = 0; i < o.lines; ++i) {
        OGRLineString line;
        line.setNumPoints(o.vertices);
        double x = start(rng), y = start(rng);
        for (int v = 0; v < o.vertices; ++v) {
            line.setPoint(v, kX0 + x, kY0 + y);
            x = std::clamp(x + step(rng), 0.0, kSide);
            y = std::clamp(y + step(rng), 0.0, kSide);
        }
        OGRFeature feature(layer->GetLayerDefn());
        feature.SetField(0, ("walk " + std::to_string(i + 1)).c_str());
        feature.SetGeometry(&line);
        if (layer->CreateFeature(&feature) != OGRERR_NONE) return false;
    }
    return ds->CommitTransaction() == OGRERR_NONE;
}

bool writeQueries(const Options& o) {
    std::FILE* out = std::fopen(o.queries.c_str(), "w");
    if (!out) return false;
    std::mt19937 rng(11);
    std::uniform_real_distribution<double> coordinate(0.0, kSide);
    for (int i = 0; i < o.points; ++i) {
        const double x = coordinate(rng), y = coordinate(rng);
        std::fprintf(out, "%.3f %.3f\n", kX0 + x, kY0 + y);
    }
    return std::fclose(out) == 0;
}

}  // namespace

int main(int argc, char** argv) {
    Options o;
    if (!parse(argc, argv, o)) {
        std::fprintf(stderr,
                     "usage: bench_snap_data OUT.gpkg QUERIES.txt [--lines N] [--vertices N] "
                     "[--queries N]\n");
        return 2;
    }
    GDALAllRegister();
    std::remove(o.gpkg.c_str());
    if (!writeLayer(o) || !writeQueries(o)) {
        std::fprintf(stderr, "bench_snap_data: cannot write %s or %s\n", o.gpkg.c_str(),
                     o.queries.c_str());
        return 1;
    }
    return 0;
}
