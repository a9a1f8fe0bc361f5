#include "tlsymbol/TLStyleSimplePoint.h"

#include "tlsymbol/TLFileFunc.h"

namespace TMObjects {

TLStyleSimplePoint::~TLStyleSimplePoint() = default;

void TLStyleSimplePoint::save(TLFileFunc& file) const {
    TLStylePoint::save(file);
    file.WriteInt(mShape);
    file.WriteColor(mOutlineColor);
    file.WriteDouble(mOutlineWidth);
}

bool TLStyleSimplePoint::open(TLFileFunc& file) {
    return TLStylePoint::open(file) && file.ReadInt(mShape) && file.ReadColor(mOutlineColor) &&
           file.ReadDouble(mOutlineWidth);
}

}  // namespace TMObjects
