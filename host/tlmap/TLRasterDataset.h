#pragma once

#include "tlbase/TLRefBase.h"
#include "tlbase/TLString.h"
#include "tlmap/TLRasterProps.h"

namespace TMObjects {

// An opened raster of a store: a file, or one raster of a GeoPackage. Its raster keeps it alive.
class TLRasterDataset : public TLRefBase {
public:
    ~TLRasterDataset() override;
    virtual TLString GetName() const = 0;
    // The raster's cells; null when the store cannot be read any more.
    virtual TLRefPtr<TLRasterProps> GetRaster() = 0;
};

}  // namespace TMObjects
