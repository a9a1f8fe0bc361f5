#include "tlgeo/TLSerialize.h"

#include <cstring>

namespace TMObjects {

void TLFileFunc::WriteBytes(const void* data, std::size_t size) {
    const auto* bytes = static_cast<const std::uint8_t*>(data);
    mData.insert(mData.end(), bytes, bytes + size);
}

bool TLFileFunc::ReadBytes(void* data, std::size_t size) {
    if (mPos + size > mData.size()) return false;
    std::memcpy(data, mData.data() + mPos, size);
    mPos += size;
    return true;
}

}  // namespace TMObjects
