#include "tlsymbol/TLStylePoint.h"

#include "tlsymbol/TLFileFunc.h"

namespace TMObjects {

TLStylePoint::~TLStylePoint() = default;

void TLStylePoint::save(TLFileFunc& file) const {
    TLStyle::save(file);
    file.WriteDouble(mDegree);
    file.WriteDouble(mWidth);
    file.WriteDouble(mHeight);
}

bool TLStylePoint::open(TLFileFunc& file) {
    return TLStyle::open(file) && file.ReadDouble(mDegree) && file.ReadDouble(mWidth) &&
           file.ReadDouble(mHeight);
}

}  // namespace TMObjects
