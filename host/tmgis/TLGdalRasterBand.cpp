#include "tmgis/TLGdalRasterBand.h"

#include <gdal_priv.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "tmgis/TLGdalCall.h"
#include "tmgis/TLGdalRasterDataset.h"

namespace TMObjects {

TLGdalRasterBand::TLGdalRasterBand(TLRefPtr<TLGdalRasterDataset> dataset, int band)
    : mDataset(dataset), mBand(band) {}

TLGdalRasterBand::~TLGdalRasterBand() = default;

bool TLGdalRasterBand::GetStatistics(double& minimum, double& maximum, double& mean, double& stdDev,
                                     int approximate) {
    if (!mComputed) {
        mComputed = true;
        mValid = compute();
    }
    minimum = mMinimum;
    maximum = mMaximum;
    mean = mMean;
    stdDev = mStdDev;
    return mValid;
}

bool TLGdalRasterBand::compute() {
    GDALDataset* gdal = mDataset->gdal();
    if (!gdal || mBand < 1 || mBand > gdal->GetRasterCount()) return false;
    GDALRasterBand* band = gdal->GetRasterBand(mBand);
    int hasNoData = 0;
    const double noData = band->GetNoDataValue(&hasNoData);
    const int width = band->GetXSize();
    const int height = band->GetYSize();
    const int rowsAtOnce = std::max(1, std::min(height, (1 << 22) / std::max(width, 1)));
    std::vector<double> cells(std::size_t(width) * rowsAtOnce);
    // Welford's running mean and sum of squares: stable over millions of cells.
    long long count = 0;
    double mean = 0.0, squares = 0.0;
    TLGdalCall call;
    for (int row = 0; row < height; row += rowsAtOnce) {
        const int rows = std::min(rowsAtOnce, height - row);
        if (band->RasterIO(GF_Read, 0, row, width, rows, cells.data(), width, rows, GDT_Float64, 0,
                           0, nullptr) != CE_None)
            return false;
        for (std::size_t i = 0; i < std::size_t(width) * rows; ++i) {
            const double v = cells[i];
            if (std::isnan(v) || (hasNoData && v == noData)) continue;
            if (count == 0) mMinimum = mMaximum = v;
            mMinimum = std::min(mMinimum, v);
            mMaximum = std::max(mMaximum, v);
            ++count;
            const double delta = v - mean;
            mean += delta / double(count);
            squares += delta * (v - mean);
        }
    }
    if (count == 0) return false;
    mMean = mean;
    mStdDev = std::sqrt(squares / double(count));
    return true;
}

}  // namespace TMObjects
