#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tlsde/TLFeatureStore.h"

class GDALDataset;
class OGRLayer;

namespace TMObjects {

class TLGdalCall;

// A table's store in a layer of an OGR data source: a GeoPackage by default, or any format GDAL
// writes. Commit writes all pending changes or none:
// - a format with transactions (GeoPackage, SQLite) gets one transaction, rolled back on the
//   first change the store refuses;
// - a format without them (Shapefile, GeoJSON) is written afresh, whole, beside the original, and
//   the new files are renamed over the old ones only once they are complete. A data source that
//   holds several layers in such a format is refused, since rewriting it could lose the others.
// The data source is opened for each commit only, so that other programs can use the file
// between saves.
class TLOgrFeatureStore : public TLFeatureStore {
public:
    TLOgrFeatureStore(const TLString& path, const TLString& layerName);
    ~TLOgrFeatureStore() override;

    TLString GetWorkspaceType() const override;
    TLString GetPath() const override { return mPath; }
    const TLString& GetLayerName() const { return mLayerName; }
    // The store's id of a table's feature: the same number, unless the store numbers features
    // itself (a Shapefile renumbers them when it is rewritten).
    long long StoredId(int id) const;
    // The geometry of a table's feature as the data source holds it now, as ISO WKT of the
    // layer's own kind (a point saved into a multipoint layer reads MULTIPOINT). False with the
    // reason when there is no such feature or no data source.
    bool StoredWkt(int id, std::string& wkt, std::string& error) const;

    bool Commit(const TLFeatureTable& table, const std::vector<TLFeatureChange>& changes,
                TLString& error) override;

    // Writes one change to an OGR layer, inside the caller's transaction: a delete (of a feature
    // that is gone already, too), a new feature under `storedId`, or a stored feature brought to
    // the change. `createdId` gets the id the store gave a new feature.
    static bool ApplyChange(OGRLayer& layer, const TLFeatureChange& change, long long storedId,
                            long long& createdId, std::string& why);

private:
    bool commitInTransaction(GDALDataset& dataset, OGRLayer& layer,
                             const std::vector<TLFeatureChange>& changes, TLGdalCall& gdal,
                             TLString& error);
    bool commitByRewrite(const TLFeatureTable& table, const std::vector<TLFeatureChange>& changes,
                         TLString& error);
    // Writes the table's features in id order into `target`: stored ones as the store has them
    // with the table's changes laid over, new ones from the table.
    bool writeAll(const TLFeatureTable& table, const std::set<int>& changed,
                  const std::set<int>& created, OGRLayer& source, OGRLayer& target,
                  bool singleMeansSingle, std::map<int, long long>& ids, std::string& why);
    TLString failure(int id, const std::string& why) const;

    TLString mPath;
    TLString mLayerName;
    // Table id -> store id, only where the two differ.
    std::map<int, long long> mStoredIds;
};

}  // namespace TMObjects
