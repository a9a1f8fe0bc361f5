// Open to first picture and a snap query on a layer of 1,000,000 parcels (80 m squares on a
// 100 m grid over 100 km x 100 km), read from PostGIS by region and from a GeoPackage whole.
// Run under a throw-away server: scripts/postgis run build/bench/postgis/bench_postgis
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>

#include "tlmap/TLFeatureLayer.h"
#include "tlsde/TLFeatureTable.h"
#include "tlsde/TLSharedFeatureStore.h"
#include "tlsde/TLSpatialIndex.h"
#include "tmgis/TMWorkspace.h"

using namespace TMObjects;

namespace {

constexpr int kSide = 1000;  // parcels a row and a column

double seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

bool run(GDALDataset& db, const std::string& sql) {
    CPLErrorReset();
    OGRLayer* result = db.ExecuteSQL(sql.c_str(), nullptr, nullptr);
    if (result) db.ReleaseResultSet(result);
    if (CPLGetLastErrorType() != CE_Failure) return true;
    std::fprintf(stderr, "%s: %s\n", sql.c_str(), CPLGetLastErrorMsg());
    return false;
}

// What a user waits for: the layer opened, the features of a view of 5 km x 3 km (about 1,500
// parcels) found and their shapes at hand to draw, then the vertex under the pointer.
void measure(const char* label, const std::string& source) {
    std::unique_ptr<TMWorkspace> workspace;
    TLFeatureTable* table = nullptr;
    const double open = seconds([&] {
        TLString why;
        workspace = TMWorkspace::Open(TLString(source), true, why);
        if (!workspace) {
            std::fprintf(stderr, "%s\n", why.toStdString().c_str());
            std::exit(1);
        }
        auto* layer = dynamic_cast<TLFeatureLayer*>(workspace->GetLayers().front().get());
        table = layer->GetDatasource().get();
    });
    std::size_t shown = 0;
    const TLRect view(550000, 555000, 5050000, 5053000);
    const double picture = seconds([&] {
        for (int id : table->SearchBounds(view))
            if (table->PeekFeature(id)->GetGeometry()) ++shown;
    });
    bool snapped = false;
    TLPoint vertex;
    const double snap = seconds([&] {
        // 10 pixels at 2 m a pixel around a corner of a parcel well away from the view.
        const TLPoint p(580081, 5080079);
        TLSharedFeatureStore::Want(*table, TLRect(p.x - 20, p.x + 20, p.y - 20, p.y + 20));
        TLSegmentRef ref{};
        snapped = table->Index().NearestVertex(p, 20, ref, vertex);
    });
    std::printf(
        "%-10s open %7.3f s  first picture %7.3f s (%zu parcels)  snap %8.4f s (%s)  "
        "features read %d\n",
        label, open, picture, shown, snap, snapped ? "found" : "none", table->GetFeatureCount());
}

}  // namespace

int main() {
    const char* connection = std::getenv("TL_PG");
    if (!connection) {
        std::fprintf(stderr, "run under a server: scripts/postgis run %s\n",
                     "build/bench/postgis/bench_postgis");
        return 2;
    }
    GDALAllRegister();
    const std::string pg = connection;
    {
        GDALDatasetUniquePtr db(GDALDataset::Open(pg.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
        if (!db) return 1;
        const std::string n = std::to_string(kSide);
        const double made = seconds([&] {
            if (!run(*db, "DROP TABLE IF EXISTS parcels") ||
                !run(*db,
                     "CREATE TABLE parcels (fid serial PRIMARY KEY, owner text, "
                     "geom geometry(Polygon, 32633))") ||
                !run(*db, "INSERT INTO parcels (owner, geom) SELECT 'owner ' || (i * " + n +
                              " + j), ST_MakeEnvelope(500000 + 100 * i, 5000000 + 100 * j, "
                              "500080 + 100 * i, 5000080 + 100 * j, 32633) FROM "
                              "generate_series(0, " +
                              n + " - 1) i, generate_series(0, " + n + " - 1) j") ||
                !run(*db, "CREATE INDEX parcels_geom ON parcels USING gist (geom)") ||
                !run(*db, "ANALYZE parcels"))
                std::exit(1);
        });
        std::printf("1,000,000 parcels written to PostGIS in %.1f s\n", made);
    }
    const std::string gpkg =
        (std::filesystem::temp_directory_path() / "bench_parcels.gpkg").string();
    std::filesystem::remove(gpkg);
    const std::string copy = "ogr2ogr -f GPKG " + gpkg + " \"" + pg + "\" parcels";
    if (std::system(copy.c_str()) != 0) return 1;

    measure("PostGIS", pg);
    measure("GeoPackage", gpkg);
    std::filesystem::remove(gpkg);
    return 0;
}
