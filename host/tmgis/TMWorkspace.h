#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayer.h"

class GDALDataset;
class OGRLayer;

namespace TMObjects {

// An opened data source: a GeoPackage (the default store), a Shapefile, GeoJSON, a raster file,
// anything GDAL reads. Its vector layers become feature layers whose tables hold the features
// in the layer's coordinates and save through a TLOgrFeatureStore; its rasters become raster
// layers. The data source itself is closed again once read: each save opens it anew.
class TMWorkspace {
public:
    // Reads the data source. With `editable` the feature layers may be edited (and saved);
    // without, they are read-only. Null, with the reason in `error`, when GDAL cannot open it
    // or it holds no layer at all.
    static std::unique_ptr<TMWorkspace> Open(const TLString& path, bool editable, TLString& error);
    // Told while the features are read, on the caller's thread, every few thousand features and
    // once at the end: how many of the data source's features are read, of how many. Answering
    // false stops the reading; Open then answers null and says that it was cancelled.
    using Progress = std::function<bool(long long done, long long total)>;
    static std::unique_ptr<TMWorkspace> Open(const TLString& path, bool editable, TLString& error,
                                             const Progress& progress);

    const TLString& GetPath() const { return mPath; }
    // GDAL's short name of the format: "GPKG", "ESRI Shapefile", "GeoJSON", "GTiff", ...
    const TLString& GetDriverName() const { return mDriver; }
    // Feature layers first, in the data source's order, then rasters.
    const std::vector<TLRefPtr<TLLayer>>& GetLayers() const { return mLayers; }
    TLRefPtr<TLLayer> GetLayer(const TLString& name) const;
    // What was read with loss or left out, one line each: tables without geometry, features
    // whose geometry the host cannot hold, ids beyond the host's range; and what was put right
    // of a save that was killed (TLDataRecovery).
    const std::vector<TLString>& GetNotes() const { return mNotes; }

private:
    TMWorkspace() = default;
    // False when the progress listener asked to stop.
    bool tell(long long done);
    void readVectors(GDALDataset& dataset, bool editable);
    // The path of one layer's own data source: a folder of Shapefiles is a data source of many
    // layers in a format without transactions, but each of its layers can be saved alone.
    TLString storePathOf(GDALDataset& dataset, OGRLayer& layer) const;
    TLRefPtr<TLFeatureLayer> readVector(GDALDataset& dataset, OGRLayer& layer,
                                        const TLString& storePath, bool editable);
    TLFeatureLayer* makeLayer(OGRLayer& layer, const TLString& name,
                              TLRefPtr<TLFeatureTable> table) const;
    // The highest id the layer's table ever gave out, deleted rows included, where the format
    // keeps that count (a GeoPackage's sqlite_sequence); 0 where it does not.
    static long long highestIdEver(GDALDataset& dataset, OGRLayer& layer);
    void readRasters(GDALDataset& dataset);
    void addRaster(GDALDataset& dataset, const TLString& name, const TLString& source);

    TLString mPath;
    TLString mDriver;
    std::vector<TLRefPtr<TLLayer>> mLayers;
    std::vector<TLString> mNotes;
    Progress mProgress;
    long long mRead = 0, mTotal = 0;
    bool mCancelled = false;
};

}  // namespace TMObjects
