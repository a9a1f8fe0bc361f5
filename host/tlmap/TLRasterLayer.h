#pragma once

#include <array>
#include <map>

#include "tlmap/TLBlock.h"
#include "tlmap/TLLayer.h"
#include "tlmap/TLRasterDataset.h"
#include "tlmap/TLRasterRender.h"

namespace TMObjects {

// A raster on the map: where its cells come from and how they lie, the dataset that reads them on
// demand, and the render that draws them. The layer holds no pixels. A layer given a dataset gets
// the default render of its band count unless it has one: one band in grey stretched between
// its minimum and maximum, several bands as red, green and blue from bands 1, 2 and 3 (a raster
// of two bands shows band 2 as green and blue, blue switched off).
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

    // Where the raster is stored, as connection properties: "FILEPATH" the folder of a raster
    // file; for a raster inside a GeoPackage "DATABASE" the file instead, "FILEPATH" empty.
    std::map<TLString, TLString> GetConnectionProperties() const;
    // The raster's name in its store: the file's name, or the GeoPackage table's.
    TLString GetRasterName() const;

    // The dataset that reads the cells; null for a layer that only describes a raster.
    TLRefPtr<TLRasterDataset> GetRasterDataset() const { return mDataset; }
    void SetRasterDataset(TLRefPtr<TLRasterDataset> dataset);
    // The dataset's raster; null without a dataset.
    TLRefPtr<TLRasterProps> GetRaster() const;
    TLRefPtr<TLRasterRender> GetRender() const { return mRender; }
    void SetRender(TLRefPtr<TLRasterRender> render) { mRender = render; }

    // The cell under `point` (layer coordinates) of the band the render shows (band 1 unless a
    // single-band render shows another): `rowCol` gets its column as x and its row as y, `value`
    // the cell, `noData` whether it is the band's no-data value. False, with nothing written,
    // outside the raster or without a dataset.
    bool GetPixelValue(const TLPoint& point, TLPoint& rowCol, double& value, bool& noData) const;
    // The same for the red, green and blue bands of the render (bands 1, 2, 3 without a
    // multi-band render, the last band for those the raster lacks). `noData` when every shown
    // band that has a no-data value holds it there, and one at least has one.
    bool GetPixelValue(const TLPoint& point, TLPoint& rowCol, double& red, double& green,
                       double& blue, bool& noData) const;
    // The 5 by 5 block of every band around the cell under (x, y), that cell in its middle. At the
    // raster's edge the block is padded as `TLRasterProps::readBlock` pads; `firstRow`,
    // `firstCol`, `rowCount` and `colCount` give the part of the block that lies on the raster,
    // in block positions. Null outside the raster; the caller deletes the block.
    TLBlock* GetMultiRowColPixelValue(double x, double y, int& firstRow, int& firstCol,
                                      int& rowCount, int& colCount) const;

private:
    bool readCell(const TLPoint& point, TLPoint& rowCol, int band, double& value,
                  bool& noData) const;

    TLString mSource;
    int mColumns;
    int mRows;
    int mBands;
    std::array<double, 6> mTransform;
    std::map<int, double> mNoData;
    TLRefPtr<TLRasterDataset> mDataset;
    mutable TLRefPtr<TLRasterProps> mRaster;
    TLRefPtr<TLRasterRender> mRender;
};

}  // namespace TMObjects
