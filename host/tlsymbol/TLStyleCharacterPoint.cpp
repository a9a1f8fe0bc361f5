#include "tlsymbol/TLStyleCharacterPoint.h"

#include "tlsymbol/TLFileFunc.h"

namespace TMObjects {

TLStyleCharacterPoint::~TLStyleCharacterPoint() = default;

void TLStyleCharacterPoint::save(TLFileFunc& file) const {
    TLStylePoint::save(file);
    file.WriteString(mFontName);
    file.WriteInt(mCharIndex);
}

bool TLStyleCharacterPoint::open(TLFileFunc& file) {
    return TLStylePoint::open(file) && file.ReadString(mFontName) && file.ReadInt(mCharIndex);
}

}  // namespace TMObjects
