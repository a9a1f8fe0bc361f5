#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tlsde/TLFeatureTable.h"
#include "tmgis/TMWorkspace.h"

namespace TMObjects {

// A scratch folder with data sources written through GDAL, and readers that look at what a
// data source holds on disk, past the host's own copy of it.
class DataFixture : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    std::string file(const std::string& name) const { return (mDir / name).string(); }
    const std::filesystem::path& dir() const { return mDir; }

    // demo.gpkg in EPSG:32633: "wells" (points, a field of each type the host knows, a binary
    // one it does not), "roads" (multilines, one of them a curve), "parcels" (polygons), "log"
    // (no geometry), "marks" (points, "code" NOT NULL and UNIQUE).
    std::string makeGeoPackage();
    // A Shapefile or GeoJSON file of polygons with "name" and "area" and two squares.
    std::string makeParcels(const std::string& name, const char* driver);
    // A GeoTIFF of two bands, 4 x 3 cells of 10 m from (500000, 5000030) down, no-data -9999.
    std::string makeGeoTiff();

    // What the layer holds on disk, by id: the geometry as WKT and every field as text.
    struct Stored {
        std::string wkt;
        std::map<std::string, std::string> values;
    };
    std::map<long long, Stored> readStored(const std::string& path, const std::string& layer);
    static std::string bytesOf(const std::string& path);

    std::unique_ptr<TMWorkspace> open(const std::string& path, bool editable = true);
    static TLFeatureTable& tableOf(TMWorkspace& workspace, const char* layer);
    static TLRefPtr<TLGeometry> geometry(const char* wkt);
    // A feature of that shape and nothing else, as a tool makes one.
    static TLFeature featureWith(const char* wkt);
    static std::string wktOf(const TLFeature* feature);

private:
    std::filesystem::path mDir;
};

}  // namespace TMObjects
