#pragma once

#include <vector>

#include "tlbase/TLSize.h"

namespace TMObjects {

// The cell types of a raster, as `TLRasterProps::dataType` and a block tell them. Any other
// type of the store (8-bit signed, 64-bit integers, complex cells) is `TLCellUnknown`: its cells
// are kept as doubles, and tools that work on the raw cells treat them as no data.
enum TLCellType {
    TLCellUnknown = 0,
    TLCellUInt8 = 1,
    TLCellUInt16 = 2,
    TLCellInt16 = 3,
    TLCellUInt32 = 4,
    TLCellInt32 = 5,
    TLCellFloat32 = 6,
    TLCellFloat64 = 7,
};

// Bytes of one cell of a type; unknown cells are held as doubles.
int TLCellBytes(int cellType);

// A window of raster cells, every band of it, each band row by row from the top, in the raster's
// own cell type. A raster makes one with `newBlock` and fills it with `readBlock`; whoever asked
// for it deletes it.
//
// Order of the virtual operations: the destructor, `data`, `value`. Two orders were handed down,
// one with `value` first and one with the deleting destructor first and `data` next. Blocks are
// deleted through the table by code that never sees their class (the slope tools, the pixel
// inspector), so the destructor must be in it; it comes first as in every class of the host
// (under the Itanium ABI it takes the first two slots), and the code built against "destructor,
// then data" keeps its slots. `value` comes after them.
class TLBlock {
public:
    TLBlock(const TLSize& size, int bandCount, int cellType);
    virtual ~TLBlock();
    // The cells of `band` (from 1), row by row; false, with a null pointer, for a band the block
    // does not have.
    virtual bool data(int band, void*& cells);
    // The cell at `column` and `row` of the block (from 0) as a double; NaN outside the block.
    virtual double value(int band, int column, int row) const;

    const TLSize& GetSize() const { return mSize; }
    int GetBandCount() const { return int(mCells.size()); }
    int GetCellType() const { return mType; }
    // The cell written as the block's type (rounded and clamped for integer types).
    void setValue(int band, int column, int row, double value);
    // The raw cells of a band, for the store that fills the block; null for a band it lacks.
    unsigned char* cells(int band);

    TLBlock(const TLBlock&) = delete;
    TLBlock& operator=(const TLBlock&) = delete;

private:
    bool holds(int band, int column, int row) const;

    TLSize mSize;
    int mType;
    std::vector<std::vector<unsigned char>> mCells;
};

}  // namespace TMObjects
