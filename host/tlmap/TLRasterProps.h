#pragma once

#include "tlbase/TLPoint.h"
#include "tlbase/TLRect.h"
#include "tlbase/TLRefBase.h"
#include "tlbase/TLSize.h"
#include "tlmap/TLBlock.h"
#include "tlmap/TLRasterBand.h"
#include "tlsparef/TLCoordinateSystem.h"

namespace TMObjects {

class TLRasterDataset;

// The cells of one raster and how they lie: its size in cells, the cell size and bound in the
// raster's coordinates, its cell type, bands and no-data values, and reading windows of cells.
// Rows count from the top, columns from the left, both from 0. The virtual operations keep this
// order: tools compiled against it call them by slot.
class TLRasterProps : public TLRefBase {
public:
    ~TLRasterProps() override;

    // Columns and rows.
    virtual int GetWidth() const = 0;
    virtual int GetHeight() const = 0;
    // The size of a cell across and down, in the raster's units; both positive.
    virtual double cellWidth() const = 0;
    virtual double cellHeight() const = 0;
    virtual TLRefPtr<TLCoordinateSystem> GetSpatialReference() const = 0;
    // A `TLCellType`.
    virtual int dataType() const = 0;
    // Left, right, bottom, top of the raster's outer cell borders.
    virtual TLRect GetBound() const = 0;
    // A block of every band of the raster, of its cell type, `size` cells large, not yet read.
    virtual TLBlock* newBlock(const TLSize& size) const = 0;
    // Fills `block` with the window whose top-left cell is `start` (x the column, y the row; whole
    // numbers) at resolution `level` (0: the raster's own cells; only 0 is kept). The window may
    // reach out of the raster: cells outside it are the band's no-data value where the band has
    // one, else the nearest cell of the raster's edge repeated. False when nothing could be read.
    virtual bool readBlock(const TLPoint& start, TLBlock* block, int level) = 0;
    virtual int GetBandCount() const = 0;
    // The band object by number from 1; null for a band the raster does not have.
    virtual TLRefPtr<TLRasterBand> GetBand(int band) = 0;
    // True when `band` has a no-data value, then in `value`. A band without one writes NaN into
    // `value`, so that comparing cells with it never matches and a zero cell stays a value.
    virtual bool noDataValue(int band, double& value) const = 0;

    // The dataset the raster belongs to.
    TLRasterDataset* GetRasterDataset() const { return mDataset; }

protected:
    explicit TLRasterProps(TLRasterDataset* dataset) : mDataset(dataset) {}

private:
    TLRasterDataset* mDataset;
};

}  // namespace TMObjects
