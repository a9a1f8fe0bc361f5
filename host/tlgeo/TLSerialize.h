#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace TMObjects {

// A byte stream that geometries write themselves to and read themselves from.
class TLFileFunc {
public:
    void WriteBytes(const void* data, std::size_t size);
    bool ReadBytes(void* data, std::size_t size);
    const std::vector<std::uint8_t>& Data() const { return mData; }
    void SetData(std::vector<std::uint8_t> data) {
        mData = std::move(data);
        mPos = 0;
    }
    void Rewind() { mPos = 0; }
    // Bytes left to read; lets a reader refuse a count larger than the stream can hold.
    std::size_t Remaining() const { return mData.size() - mPos; }

private:
    std::vector<std::uint8_t> mData;
    std::size_t mPos = 0;
};

class TLSerialize {
public:
    virtual ~TLSerialize() = default;
    virtual bool open(TLFileFunc& file) = 0;
    virtual bool save(TLFileFunc& file) const = 0;
};

}  // namespace TMObjects
