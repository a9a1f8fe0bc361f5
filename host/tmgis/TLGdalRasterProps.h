#pragma once

#include <array>
#include <map>

#include "tlmap/TLRasterProps.h"

class GDALDataset;

namespace TMObjects {

class TLGdalRasterDataset;

// The cells of a GDAL raster. Windows that reach out of the raster, which GDAL refuses, are read
// as the part that lies on it and padded (see `readBlock`).
class TLGdalRasterProps : public TLRasterProps {
public:
    // `dataset` must have opened its file.
    explicit TLGdalRasterProps(TLGdalRasterDataset* dataset);
    ~TLGdalRasterProps() override;

    int GetWidth() const override { return mWidth; }
    int GetHeight() const override { return mHeight; }
    double cellWidth() const override;
    double cellHeight() const override;
    TLRefPtr<TLCoordinateSystem> GetSpatialReference() const override { return mReference; }
    int dataType() const override { return mType; }
    TLRect GetBound() const override;
    TLBlock* newBlock(const TLSize& size) const override;
    bool readBlock(const TLPoint& start, TLBlock* block, int level) override;
    int GetBandCount() const override { return mBands; }
    TLRefPtr<TLRasterBand> GetBand(int band) override;
    bool noDataValue(int band, double& value) const override;

private:
    bool readBand(int band, int column, int row, int columns, int rows, double* cells);

    TLRefPtr<TLGdalRasterDataset> mDatasetRef;
    GDALDataset* mGdal;
    int mWidth;
    int mHeight;
    int mBands;
    int mType;
    std::array<double, 6> mTransform;
    TLRefPtr<TLCoordinateSystem> mReference;
    std::map<int, TLRefPtr<TLRasterBand>> mBandObjects;
};

}  // namespace TMObjects
