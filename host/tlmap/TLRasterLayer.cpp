#include "tlmap/TLRasterLayer.h"

#include <cmath>

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

}  // namespace TMObjects
