#pragma once

#include <array>
#include <map>

#include "tlmap/TLLayer.h"

namespace TMObjects {

// A raster on the map: where its cells come from and how they lie. The cells themselves are read
// by the host's raster code on demand; the layer holds no pixels.
class TLRasterLayer : public TLLayer {
public:
    // The layer kinds the raster tools tell rasters by.
    static constexpr LayerType SingleBandRaster = LayerType(6);
    static constexpr LayerType MultiBandRaster = LayerType(7);

    // `transform` as GDAL gives it: x of the top-left corner, cell width, row rotation, y of the
    // top-left corner, column rotation, cell height (negative for a north-up raster).
    // `source` is whatever opens the raster again: a file path or a GDAL subdataset name.
    TLRasterLayer(const TLString& name, const TLString& source, int columns, int rows, int bands,
                  const std::array<double, 6>& transform, TLRefPtr<TLCoordinateSystem> reference);
    ~TLRasterLayer() override;

    // Non-zero when the raster has cells and bands.
    int IsValid() const override;
    // The bound of the four corners, in the layer's coordinates.
    TLRect GetExtent() const override;
    bool IsRasterLayer() const override { return true; }

    const TLString& GetSource() const { return mSource; }
    int GetColumnCount() const { return mColumns; }
    int GetRowCount() const { return mRows; }
    int GetBandCount() const { return mBands; }
    const std::array<double, 6>& GetGeoTransform() const { return mTransform; }
    double GetCellWidth() const;
    double GetCellHeight() const;
    // Bands count from 1.
    void SetNoData(int band, double value) { mNoData[band] = value; }
    bool GetNoData(int band, double& value) const;
    // The cell that holds a point of the layer's coordinates; false outside the raster.
    bool CellAt(const TLPoint& point, int& column, int& row) const;

private:
    TLString mSource;
    int mColumns;
    int mRows;
    int mBands;
    std::array<double, 6> mTransform;
    std::map<int, double> mNoData;
};

}  // namespace TMObjects
