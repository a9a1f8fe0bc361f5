#include "tlsymbol/TLStyle.h"

#include "tlsymbol/TLFileFunc.h"

namespace TMObjects {

TLStyle::~TLStyle() = default;

void TLStyle::save(TLFileFunc& file) const {
    file.WriteString(mName);
    file.WriteInt(mUnits);
    file.WriteColor(mColor);
}

bool TLStyle::open(TLFileFunc& file) {
    return file.ReadString(mName) && file.ReadInt(mUnits) && file.ReadColor(mColor);
}

}  // namespace TMObjects
