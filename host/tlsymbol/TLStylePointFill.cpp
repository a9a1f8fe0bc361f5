#include "tlsymbol/TLStylePointFill.h"

#include "tlsymbol/TLFileFunc.h"
#include "tlsymbol/TLStyleFactory.h"

namespace TMObjects {

TLStylePointFill::~TLStylePointFill() = default;

void TLStylePointFill::save(TLFileFunc& file) const {
    TLStyleFill::save(file);
    file.WriteDouble(mSeperateX);
    file.WriteDouble(mSeperateY);
    file.WriteInt(mFillType);
    TLStyleFactory::Save(file, mDecorate);
}

bool TLStylePointFill::open(TLFileFunc& file) {
    return TLStyleFill::open(file) && file.ReadDouble(mSeperateX) && file.ReadDouble(mSeperateY) &&
           file.ReadInt(mFillType) && TLStyleFactory::Open(file, mDecorate);
}

}  // namespace TMObjects
