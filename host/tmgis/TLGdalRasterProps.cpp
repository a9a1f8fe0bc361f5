#include "tmgis/TLGdalRasterProps.h"

#include <gdal_priv.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "tmgis/TLGdalCall.h"
#include "tmgis/TLGdalRasterBand.h"
#include "tmgis/TLGdalRasterDataset.h"
#include "tmgis/TLGdalReference.h"

namespace TMObjects {

namespace {

int cellTypeOf(GDALDataType type) {
    switch (type) {
        case GDT_Byte:
            return TLCellUInt8;
        case GDT_UInt16:
            return TLCellUInt16;
        case GDT_Int16:
            return TLCellInt16;
        case GDT_UInt32:
            return TLCellUInt32;
        case GDT_Int32:
            return TLCellInt32;
        case GDT_Float32:
            return TLCellFloat32;
        case GDT_Float64:
            return TLCellFloat64;
        default:
            return TLCellUnknown;
    }
}

}  // namespace

TLGdalRasterProps::TLGdalRasterProps(TLGdalRasterDataset* dataset)
    : TLRasterProps(dataset),
      mDatasetRef(dataset),
      mGdal(dataset->gdal()),
      mWidth(mGdal->GetRasterXSize()),
      mHeight(mGdal->GetRasterYSize()),
      mBands(mGdal->GetRasterCount()),
      mType(cellTypeOf(mGdal->GetRasterBand(1)->GetRasterDataType())),
      mTransform{0, 1, 0, 0, 0, 1},
      mReference(TLSystemOfGdalReference(mGdal->GetSpatialRef())) {
    // A raster without georeference lies in cell coordinates, row 0 at the top.
    if (mGdal->GetGeoTransform(mTransform.data()) != CE_None) mTransform = {0, 1, 0, 0, 0, 1};
}

TLGdalRasterProps::~TLGdalRasterProps() = default;

double TLGdalRasterProps::cellWidth() const {
    return std::hypot(mTransform[1], mTransform[4]);
}

double TLGdalRasterProps::cellHeight() const {
    return std::hypot(mTransform[2], mTransform[5]);
}

TLRect TLGdalRasterProps::GetBound() const {
    TLRect bound;
    for (int corner = 0; corner < 4; ++corner) {
        const double column = (corner & 1) ? mWidth : 0;
        const double row = (corner & 2) ? mHeight : 0;
        bound.Union(TLPoint(mTransform[0] + column * mTransform[1] + row * mTransform[2],
                            mTransform[3] + column * mTransform[4] + row * mTransform[5]));
    }
    return bound;
}

TLBlock* TLGdalRasterProps::newBlock(const TLSize& size) const {
    return new TLBlock(size, mBands, mType);
}

bool TLGdalRasterProps::readBand(int band, int column, int row, int columns, int rows,
                                 double* cells) {
    TLGdalCall call;
    return mGdal->GetRasterBand(band)->RasterIO(GF_Read, column, row, columns, rows, cells, columns,
                                                rows, GDT_Float64, 0, 0, nullptr) == CE_None;
}

bool TLGdalRasterProps::readBlock(const TLPoint& start, TLBlock* block, int level) {
    if (!block || level != 0 || block->GetSize().IsEmpty() || mWidth <= 0 || mHeight <= 0)
        return false;
    const int columns = block->GetSize().GetWidth();
    const int rows = block->GetSize().GetHeight();
    const int left = int(std::lround(start.x));
    const int top = int(std::lround(start.y));
    // The part read from the raster: the window clamped to it, never empty, so that padding by
    // the edge cells always has a cell to repeat.
    const int c0 = std::clamp(left, 0, mWidth - 1);
    const int c1 = std::clamp(left + columns - 1, 0, mWidth - 1);
    const int r0 = std::clamp(top, 0, mHeight - 1);
    const int r1 = std::clamp(top + rows - 1, 0, mHeight - 1);
    const int readColumns = c1 - c0 + 1;
    std::vector<double> cells(std::size_t(readColumns) * (r1 - r0 + 1));
    const int bands = std::min(block->GetBandCount(), mBands);
    for (int band = 1; band <= bands; ++band) {
        if (!readBand(band, c0, r0, readColumns, r1 - r0 + 1, cells.data())) return false;
        double noData = 0.0;
        const bool hasNoData = noDataValue(band, noData);
        for (int r = 0; r < rows; ++r) {
            const int sourceRow = top + r;
            const bool rowInside = sourceRow >= 0 && sourceRow < mHeight;
            const double* line =
                cells.data() + std::size_t(std::clamp(sourceRow, r0, r1) - r0) * readColumns;
            for (int c = 0; c < columns; ++c) {
                const int sourceColumn = left + c;
                const bool inside = rowInside && sourceColumn >= 0 && sourceColumn < mWidth;
                const double value =
                    !inside && hasNoData ? noData : line[std::clamp(sourceColumn, c0, c1) - c0];
                block->setValue(band, c, r, value);
            }
        }
    }
    return true;
}

TLRefPtr<TLRasterBand> TLGdalRasterProps::GetBand(int band) {
    if (band < 1 || band > mBands) return TLRefPtr<TLRasterBand>();
    TLRefPtr<TLRasterBand>& object = mBandObjects[band];
    if (!object) object = new TLGdalRasterBand(mDatasetRef, band);
    return object;
}

bool TLGdalRasterProps::noDataValue(int band, double& value) const {
    int has = 0;
    if (band >= 1 && band <= mBands) {
        const double noData = mGdal->GetRasterBand(band)->GetNoDataValue(&has);
        if (has) {
            value = noData;
            return true;
        }
    }
    value = std::numeric_limits<double>::quiet_NaN();
    return false;
}

}  // namespace TMObjects
