#include "tlsymbol/TLStyleSimpleLine.h"

#include "tlsymbol/TLFileFunc.h"

namespace TMObjects {

TLStyleSimpleLine::~TLStyleSimpleLine() = default;

void TLStyleSimpleLine::save(TLFileFunc& file) const {
    TLStyleLine::save(file);
    file.WriteInt(mDashStyle);
}

bool TLStyleSimpleLine::open(TLFileFunc& file) {
    return TLStyleLine::open(file) && file.ReadInt(mDashStyle);
}

}  // namespace TMObjects
