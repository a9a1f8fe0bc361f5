#include "tlsymbol/TLStyleBitmapPoint.h"

#include "tlsymbol/TLFileFunc.h"

namespace TMObjects {

TLStyleBitmapPoint::~TLStyleBitmapPoint() = default;

void TLStyleBitmapPoint::save(TLFileFunc& file) const {
    TLStylePoint::save(file);
    file.WriteString(mFileName);
}

bool TLStyleBitmapPoint::open(TLFileFunc& file) {
    return TLStylePoint::open(file) && file.ReadString(mFileName);
}

}  // namespace TMObjects
