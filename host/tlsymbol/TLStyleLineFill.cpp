#include "tlsymbol/TLStyleLineFill.h"

#include "tlsymbol/TLFileFunc.h"
#include "tlsymbol/TLStyleFactory.h"

namespace TMObjects {

TLStyleLineFill::~TLStyleLineFill() = default;

void TLStyleLineFill::save(TLFileFunc& file) const {
    TLStyleFill::save(file);
    file.WriteDouble(mDegree);
    TLStyleFactory::Save(file, mDecorate);
    file.WriteDouble(mSeperate);
}

bool TLStyleLineFill::open(TLFileFunc& file) {
    return TLStyleFill::open(file) && file.ReadDouble(mDegree) &&
           TLStyleFactory::Open(file, mDecorate) && file.ReadDouble(mSeperate);
}

}  // namespace TMObjects
