#pragma once

#include <memory>

#include "tlmap/TLRasterDataset.h"

class GDALDataset;

namespace TMObjects {

// A raster read through GDAL: a raster file, or a GDAL subdataset name such as
// "GPKG:/data/demo.gpkg:dem". The file is opened read-only on first need and kept open while the
// dataset or its raster lives; statistics of its bands are computed once and kept.
class TLGdalRasterDataset : public TLRasterDataset {
public:
    TLGdalRasterDataset(const TLString& source, const TLString& name);
    ~TLGdalRasterDataset() override;

    // Null, with nothing else done, when GDAL cannot open `source` as a raster.
    static TLRefPtr<TLGdalRasterDataset> Open(const TLString& source, const TLString& name);

    TLString GetName() const override { return mName; }
    TLRefPtr<TLRasterProps> GetRaster() override;
    const TLString& GetSource() const { return mSource; }

    // The opened file; null when it cannot be opened.
    GDALDataset* gdal();

private:
    struct Handle;
    TLString mSource;
    TLString mName;
    std::unique_ptr<Handle> mHandle;
    bool mTried = false;
};

}  // namespace TMObjects
