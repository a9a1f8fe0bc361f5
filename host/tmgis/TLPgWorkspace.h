#pragma once

#include <string>
#include <vector>

#include "tlmap/TLFeatureLayer.h"

class GDALDataset;
class OGRLayer;

namespace TMObjects {

// The layers of a PostgreSQL/PostGIS database opened through GDAL's PostgreSQL driver: each
// table with a geometry column becomes a feature layer saved through a TLPgFeatureStore. A table
// without an id column (a view) is read-only, since its rows could not be told apart at a save.
class TLPgWorkspace {
public:
    // Tables of at most this many rows are read whole when opened; larger ones by region, as the
    // view and the tools ask for them.
    static int ReadWholeLimit();
    static void SetReadWholeLimit(int rows);

    // The feature layers of `dataset`, opened from `connection`; what was left out or read with
    // loss goes to `notes`.
    static void ReadLayers(GDALDataset& dataset, const std::string& connection, bool editable,
                           std::vector<TLRefPtr<TLLayer>>& layers, std::vector<TLString>& notes);

private:
    static TLRefPtr<TLFeatureLayer> readLayer(GDALDataset& dataset, OGRLayer& layer,
                                              const std::string& connection, bool editable,
                                              std::vector<TLString>& notes);
};

}  // namespace TMObjects
