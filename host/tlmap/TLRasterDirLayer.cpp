#include "tlmap/TLRasterDirLayer.h"

namespace TMObjects {

TLRasterDirLayer::TLRasterDirLayer(const TLString& name, TLRefPtr<TLCoordinateSystem> reference)
    : TLLayer(name, RasterLayer, reference) {}

TLRasterDirLayer::~TLRasterDirLayer() = default;

int TLRasterDirLayer::IsValid() const {
    for (const auto& raster : mRasters)
        if (raster->IsValid()) return 1;
    return 0;
}

TLRect TLRasterDirLayer::GetExtent() const {
    TLRect extent;
    for (const auto& raster : mRasters) extent.Union(raster->GetExtent());
    return extent;
}

void TLRasterDirLayer::AddRasterLayer(TLRefPtr<TLRasterLayer> layer) {
    if (layer) mRasters.push_back(layer);
}

TLRasterLayer* TLRasterDirLayer::GetRasterLayer(double x, double y) const {
    for (const auto& raster : mRasters)
        if (raster->GetExtent().PtInRect(TLPoint(x, y))) return raster.get();
    return nullptr;
}

}  // namespace TMObjects
