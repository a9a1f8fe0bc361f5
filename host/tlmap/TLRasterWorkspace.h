#pragma once

#include <functional>
#include <map>

#include "tlbase/TLRefBase.h"
#include "tlbase/TLString.h"
#include "tlmap/TLRasterDataset.h"

namespace TMObjects {

// A store of rasters: a folder of raster files, or a database. Rasters are opened by name.
class TLRasterWorkspace : public TLRefBase {
public:
    ~TLRasterWorkspace() override;
    // The raster of that name; null when there is none or it cannot be read.
    virtual TLRefPtr<TLRasterDataset> OpenRasterDataset(const TLString& name) = 0;

    // Connection properties by key ("FILEPATH", "DATABASE", "SERVER", ...).
    using Properties = std::map<TLString, TLString>;
    using Factory = std::function<TLRefPtr<TLRasterWorkspace>(const Properties&)>;
    // The workspace of a type ("RasterFile": a folder of raster files, by "FILEPATH") opened on
    // the properties; null for a type no library of the host has registered, or when the store
    // cannot be opened. The data libraries register their types when they are loaded.
    static TLRefPtr<TLRasterWorkspace> Open(const TLString& type, const Properties& properties);
    static bool RegisterType(const TLString& type, Factory factory);
};

}  // namespace TMObjects
