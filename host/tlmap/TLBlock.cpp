#include "tlmap/TLBlock.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace TMObjects {

namespace {

template <class T>
double read(const unsigned char* cell) {
    T v;
    std::memcpy(&v, cell, sizeof(T));
    return double(v);
}

template <class T>
void write(unsigned char* cell, double value) {
    T v;
    if constexpr (std::numeric_limits<T>::is_integer) {
        // Rounded to the nearest cell value and held inside the type; NaN has no integer cell.
        const double r = std::isnan(value) ? 0.0 : std::round(value);
        const double lo = double(std::numeric_limits<T>::lowest());
        const double hi = double(std::numeric_limits<T>::max());
        v = T(r < lo ? lo : r > hi ? hi : r);
    } else {
        v = T(value);
    }
    std::memcpy(cell, &v, sizeof(T));
}

}  // namespace

int TLCellBytes(int cellType) {
    switch (cellType) {
        case TLCellUInt8:
            return 1;
        case TLCellUInt16:
        case TLCellInt16:
            return 2;
        case TLCellUInt32:
        case TLCellInt32:
        case TLCellFloat32:
            return 4;
        default:
            return 8;
    }
}

TLBlock::TLBlock(const TLSize& size, int bandCount, int cellType)
    : mSize(size.IsEmpty() ? TLSize() : size), mType(cellType) {
    const std::size_t bytes =
        std::size_t(mSize.GetWidth()) * std::size_t(mSize.GetHeight()) * TLCellBytes(cellType);
    mCells.assign(bandCount > 0 ? bandCount : 0, std::vector<unsigned char>(bytes, 0));
}

TLBlock::~TLBlock() = default;

bool TLBlock::data(int band, void*& cells) {
    cells = this->cells(band);
    return cells != nullptr;
}

double TLBlock::value(int band, int column, int row) const {
    if (!holds(band, column, row)) return std::numeric_limits<double>::quiet_NaN();
    const unsigned char* cell = mCells[band - 1].data() +
                                (std::size_t(row) * mSize.GetWidth() + column) * TLCellBytes(mType);
    switch (mType) {
        case TLCellUInt8:
            return read<std::uint8_t>(cell);
        case TLCellUInt16:
            return read<std::uint16_t>(cell);
        case TLCellInt16:
            return read<std::int16_t>(cell);
        case TLCellUInt32:
            return read<std::uint32_t>(cell);
        case TLCellInt32:
            return read<std::int32_t>(cell);
        case TLCellFloat32:
            return read<float>(cell);
        default:
            return read<double>(cell);
    }
}

void TLBlock::setValue(int band, int column, int row, double value) {
    if (!holds(band, column, row)) return;
    unsigned char* cell = mCells[band - 1].data() +
                          (std::size_t(row) * mSize.GetWidth() + column) * TLCellBytes(mType);
    switch (mType) {
        case TLCellUInt8:
            return write<std::uint8_t>(cell, value);
        case TLCellUInt16:
            return write<std::uint16_t>(cell, value);
        case TLCellInt16:
            return write<std::int16_t>(cell, value);
        case TLCellUInt32:
            return write<std::uint32_t>(cell, value);
        case TLCellInt32:
            return write<std::int32_t>(cell, value);
        case TLCellFloat32:
            return write<float>(cell, value);
        default:
            return write<double>(cell, value);
    }
}

unsigned char* TLBlock::cells(int band) {
    if (band < 1 || band > GetBandCount() || mCells[band - 1].empty()) return nullptr;
    return mCells[band - 1].data();
}

bool TLBlock::holds(int band, int column, int row) const {
    return band >= 1 && band <= GetBandCount() && column >= 0 && row >= 0 &&
           column < mSize.GetWidth() && row < mSize.GetHeight();
}

}  // namespace TMObjects
