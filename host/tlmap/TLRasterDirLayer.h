#pragma once

#include <vector>

#include "tlmap/TLRasterLayer.h"

namespace TMObjects {

// A catalogue of rasters shown as one layer, such as the tiles of a map sheet series. It is a
// raster layer to the tools (`IsRasterLayer`), but holds no cells of its own: the raster at a
// point answers for it. Its kind is `RasterLayer`.
class TLRasterDirLayer : public TLLayer {
public:
    TLRasterDirLayer(const TLString& name, TLRefPtr<TLCoordinateSystem> reference);
    ~TLRasterDirLayer() override;

    // Non-zero when the catalogue holds a valid raster.
    int IsValid() const override;
    // The union of the rasters' extents.
    TLRect GetExtent() const override;
    bool IsRasterLayer() const override { return true; }

    void AddRasterLayer(TLRefPtr<TLRasterLayer> layer);
    const std::vector<TLRefPtr<TLRasterLayer>>& GetRasterLayers() const { return mRasters; }
    // The first raster of the catalogue, in the order they were added, whose extent holds the
    // point (borders included; layer coordinates); null when none does.
    TLRasterLayer* GetRasterLayer(double x, double y) const;

private:
    std::vector<TLRefPtr<TLRasterLayer>> mRasters;
};

}  // namespace TMObjects
