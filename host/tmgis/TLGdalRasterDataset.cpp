#include "tmgis/TLGdalRasterDataset.h"

#include <gdal_priv.h>

#include "tmgis/TLGdalCall.h"
#include "tmgis/TLGdalRasterProps.h"

namespace TMObjects {

struct TLGdalRasterDataset::Handle {
    GDALDatasetUniquePtr dataset;
};

TLGdalRasterDataset::TLGdalRasterDataset(const TLString& source, const TLString& name)
    : mSource(source), mName(name), mHandle(new Handle) {}

TLGdalRasterDataset::~TLGdalRasterDataset() = default;

TLRefPtr<TLGdalRasterDataset> TLGdalRasterDataset::Open(const TLString& source,
                                                        const TLString& name) {
    TLRefPtr<TLGdalRasterDataset> dataset(new TLGdalRasterDataset(source, name));
    if (!dataset->gdal()) return TLRefPtr<TLGdalRasterDataset>();
    return dataset;
}

GDALDataset* TLGdalRasterDataset::gdal() {
    if (!mTried) {
        mTried = true;
        TLGdalCall call;
        mHandle->dataset.reset(
            GDALDataset::Open(mSource.toStdString().c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY));
        if (mHandle->dataset && mHandle->dataset->GetRasterCount() == 0) mHandle->dataset.reset();
    }
    return mHandle->dataset.get();
}

TLRefPtr<TLRasterProps> TLGdalRasterDataset::GetRaster() {
    if (!gdal()) return TLRefPtr<TLRasterProps>();
    return TLRefPtr<TLRasterProps>(new TLGdalRasterProps(this));
}

}  // namespace TMObjects
