#pragma once

#include "tlmap/TLRasterBand.h"

namespace TMObjects {

class TLGdalRasterDataset;

// A band of a GDAL raster. Its statistics are computed here over every cell, in one pass by
// blocks of rows, and kept: GDAL's own would be written beside the user's file as an .aux.xml.
class TLGdalRasterBand : public TLRasterBand {
public:
    TLGdalRasterBand(TLRefPtr<TLGdalRasterDataset> dataset, int band);
    ~TLGdalRasterBand() override;

    bool GetStatistics(double& minimum, double& maximum, double& mean, double& stdDev,
                       int approximate) override;
    int GetBandIndex() const override { return mBand; }

private:
    bool compute();

    TLRefPtr<TLGdalRasterDataset> mDataset;
    int mBand;
    bool mComputed = false;
    bool mValid = false;
    double mMinimum = 0.0, mMaximum = 0.0, mMean = 0.0, mStdDev = 0.0;
};

}  // namespace TMObjects
