#include "raster/TLRasterCells.h"

#include <cstdint>

#include "tlmap/TLBlock.h"

namespace TMObjects {

double TLRasterCells::cell(const void* data, int cellType, std::size_t index, bool& known) {
    known = data != nullptr;
    if (!data) return 0.0;
    switch (cellType) {
        case TLCellUInt8:
            return static_cast<const std::uint8_t*>(data)[index];
        case TLCellUInt16:
            return static_cast<const std::uint16_t*>(data)[index];
        case TLCellInt16:
            return static_cast<const std::int16_t*>(data)[index];
        case TLCellUInt32:
            return static_cast<const std::uint32_t*>(data)[index];
        case TLCellInt32:
            return static_cast<const std::int32_t*>(data)[index];
        case TLCellFloat32:
            return static_cast<const float*>(data)[index];
        case TLCellFloat64:
            return static_cast<const double*>(data)[index];
        default:
            known = false;
            return 0.0;
    }
}

}  // namespace TMObjects
