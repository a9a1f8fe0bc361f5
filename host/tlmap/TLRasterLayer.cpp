#include "tlmap/TLRasterLayer.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "tlbase/TLConnectionKeys.h"
#include "tlmap/TLImageStretchRenderInfo.h"
#include "tlmap/TLMultiBandImageRender.h"
#include "tlmap/TLSingleBandImageRender.h"

namespace TMObjects {

TLRasterLayer::TLRasterLayer(const TLString& name, const TLString& source, int columns, int rows,
                             int bands, const std::array<double, 6>& transform,
                             TLRefPtr<TLCoordinateSystem> reference)
    : TLLayer(name, bands > 1 ? MultiBandRaster : SingleBandRaster, reference),
      mSource(source),
      mColumns(columns),
      mRows(rows),
      mBands(bands),
      mTransform(transform) {}

TLRasterLayer::~TLRasterLayer() = default;

int TLRasterLayer::IsValid() const {
    return mColumns > 0 && mRows > 0 && mBands > 0;
}

TLRect TLRasterLayer::GetExtent() const {
    TLRect extent;
    for (int corner = 0; corner < 4; ++corner) {
        const double column = (corner & 1) ? mColumns : 0;
        const double row = (corner & 2) ? mRows : 0;
        extent.Union(TLPoint(mTransform[0] + column * mTransform[1] + row * mTransform[2],
                             mTransform[3] + column * mTransform[4] + row * mTransform[5]));
    }
    return extent;
}

double TLRasterLayer::GetCellWidth() const {
    return std::hypot(mTransform[1], mTransform[4]);
}

double TLRasterLayer::GetCellHeight() const {
    return std::hypot(mTransform[2], mTransform[5]);
}

bool TLRasterLayer::GetNoData(int band, double& value) const {
    auto it = mNoData.find(band);
    if (it == mNoData.end()) return false;
    value = it->second;
    return true;
}

bool TLRasterLayer::CellAt(const TLPoint& point, int& column, int& row) const {
    // The inverse of the affine transform; a raster without area has no cells to find.
    const double det = mTransform[1] * mTransform[5] - mTransform[2] * mTransform[4];
    if (det == 0.0 || !std::isfinite(det)) return false;
    const double dx = point.x - mTransform[0];
    const double dy = point.y - mTransform[3];
    const double c = (mTransform[5] * dx - mTransform[2] * dy) / det;
    const double r = (mTransform[1] * dy - mTransform[4] * dx) / det;
    if (!(c >= 0 && c < mColumns && r >= 0 && r < mRows)) return false;
    column = int(c);
    row = int(r);
    return true;
}

namespace {

constexpr int kBlockSide = 5;
constexpr int kBlockReach = 2;

TLRefPtr<TLRasterRender> defaultRender(int bands) {
    if (bands <= 1) {
        TLRefPtr<TLImageStretchRenderInfo> stretch(new TLImageStretchRenderInfo);
        stretch->SetGrayRamp(256);
        TLRefPtr<TLSingleBandImageRender> render(new TLSingleBandImageRender(1));
        render->setRenderInfo(stretch);
        return render;
    }
    TLRefPtr<TLMultiBandImageRender> render(new TLMultiBandImageRender(1, 2, std::min(bands, 3)));
    render->setUseBands(true, true, bands >= 3);
    return render;
}

}  // namespace

namespace {

// "GPKG:/data/demo.gpkg:dem": the file and the table.
bool splitSubdataset(const std::string& source, std::string& file, std::string& table) {
    if (source.rfind("GPKG:", 0) != 0) return false;
    const std::size_t colon = source.rfind(':');
    if (colon <= 5) return false;
    file = source.substr(5, colon - 5);
    table = source.substr(colon + 1);
    return true;
}

}  // namespace

std::map<TLString, TLString> TLRasterLayer::GetConnectionProperties() const {
    const std::string source = mSource.toStdString();
    std::string file, table;
    if (splitSubdataset(source, file, table))
        return {{CONNECT_FILEPATH, TLString()}, {CONNECT_DATABASE, TLString(file)}};
    const std::size_t slash = source.find_last_of("/\\");
    return {{CONNECT_FILEPATH,
             TLString(slash == std::string::npos ? std::string(".") : source.substr(0, slash))}};
}

TLString TLRasterLayer::GetRasterName() const {
    const std::string source = mSource.toStdString();
    std::string file, table;
    if (splitSubdataset(source, file, table)) return TLString(table);
    const std::size_t slash = source.find_last_of("/\\");
    return TLString(slash == std::string::npos ? source : source.substr(slash + 1));
}

void TLRasterLayer::SetRasterDataset(TLRefPtr<TLRasterDataset> dataset) {
    mDataset = dataset;
    mRaster.reset();
    if (!mRender) mRender = defaultRender(mBands);
}

TLRefPtr<TLRasterProps> TLRasterLayer::GetRaster() const {
    if (!mRaster && mDataset) mRaster = mDataset->GetRaster();
    return mRaster;
}

bool TLRasterLayer::GetPixelValue(const TLPoint& point, TLPoint& rowCol, double& value,
                                  bool& noData) const {
    int band = 1;
    if (auto* single = dynamic_cast<TLSingleBandImageRender*>(mRender.get()))
        band = single->getBand();
    return readCell(point, rowCol, band, value, noData);
}

bool TLRasterLayer::GetPixelValue(const TLPoint& point, TLPoint& rowCol, double& red, double& green,
                                  double& blue, bool& noData) const {
    int bands[3] = {1, 2, 3};
    if (auto* multi = dynamic_cast<TLMultiBandImageRender*>(mRender.get())) {
        bands[0] = multi->getRedBand();
        bands[1] = multi->getGreenBand();
        bands[2] = multi->getBlueBand();
    }
    double* values[3] = {&red, &green, &blue};
    bool any = false, all = true;
    for (int i = 0; i < 3; ++i) {
        bool cellNoData = false;
        const int band = std::clamp(bands[i], 1, std::max(mBands, 1));
        if (!readCell(point, rowCol, band, *values[i], cellNoData)) return false;
        double unused = 0.0;
        if (GetRaster()->noDataValue(band, unused)) {
            any = true;
            all = all && cellNoData;
        }
    }
    noData = any && all;
    return true;
}

bool TLRasterLayer::readCell(const TLPoint& point, TLPoint& rowCol, int band, double& value,
                             bool& noData) const {
    TLRefPtr<TLRasterProps> raster = GetRaster();
    int column = 0, row = 0;
    if (!raster || !CellAt(point, column, row)) return false;
    std::unique_ptr<TLBlock> block(raster->newBlock(TLSize(1, 1)));
    if (!block || !raster->readBlock(TLPoint(column, row), block.get(), 0)) return false;
    rowCol = TLPoint(column, row);
    value = block->value(band, 0, 0);
    double noDataValue = 0.0;
    noData = raster->noDataValue(band, noDataValue) &&
             (value == noDataValue || (std::isnan(value) && std::isnan(noDataValue)));
    return true;
}

TLBlock* TLRasterLayer::GetMultiRowColPixelValue(double x, double y, int& firstRow, int& firstCol,
                                                 int& rowCount, int& colCount) const {
    TLRefPtr<TLRasterProps> raster = GetRaster();
    int column = 0, row = 0;
    if (!raster || !CellAt(TLPoint(x, y), column, row)) return nullptr;
    std::unique_ptr<TLBlock> block(raster->newBlock(TLSize(kBlockSide, kBlockSide)));
    if (!block ||
        !raster->readBlock(TLPoint(column - kBlockReach, row - kBlockReach), block.get(), 0))
        return nullptr;
    // The block's rows and columns that lie on the raster.
    firstRow = std::max(0, kBlockReach - row);
    firstCol = std::max(0, kBlockReach - column);
    rowCount = std::min(kBlockSide, mRows - row + kBlockReach) - firstRow;
    colCount = std::min(kBlockSide, mColumns - column + kBlockReach) - firstCol;
    return block.release();
}

}  // namespace TMObjects
