#pragma once

#include <cstddef>

namespace TMObjects {

// Raw raster cells, as a block's data gives them, read by their cell type.
class TLRasterCells {
public:
    // The cell at `index` of `data` (cells of type `cellType`, a TLCellType) as a double.
    // `known` is false, and the value 0, for a null pointer or a type outside the table.
    static double cell(const void* data, int cellType, std::size_t index, bool& known);
};

}  // namespace TMObjects
