#include "tlsymbol/TLStyleLine.h"

#include "tlsymbol/TLFileFunc.h"

namespace TMObjects {

TLStyleLine::~TLStyleLine() = default;

void TLStyleLine::save(TLFileFunc& file) const {
    TLStyle::save(file);
    file.WriteDouble(mOffset);
    file.WriteDouble(mShift);
    file.WriteInt(mCap);
    file.WriteInt(mJoin);
    file.WriteDouble(mWidth);
}

bool TLStyleLine::open(TLFileFunc& file) {
    return TLStyle::open(file) && file.ReadDouble(mOffset) && file.ReadDouble(mShift) &&
           file.ReadInt(mCap) && file.ReadInt(mJoin) && file.ReadDouble(mWidth);
}

}  // namespace TMObjects
