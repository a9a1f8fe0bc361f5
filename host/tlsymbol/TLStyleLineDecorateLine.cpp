#include "tlsymbol/TLStyleLineDecorateLine.h"

#include "tlsymbol/TLFileFunc.h"
#include "tlsymbol/TLStyleFactory.h"

namespace TMObjects {

TLStyleLineDecorateLine::~TLStyleLineDecorateLine() = default;

void TLStyleLineDecorateLine::save(TLFileFunc& file) const {
    TLStyleLine::save(file);
    TLStyleFactory::Save(file, mDecorate);
    file.WriteInt(mPlacement);
    file.WriteDoubles(mSteps);
}

bool TLStyleLineDecorateLine::open(TLFileFunc& file) {
    return TLStyleLine::open(file) && TLStyleFactory::Open(file, mDecorate) &&
           file.ReadInt(mPlacement) && file.ReadDoubles(mSteps);
}

}  // namespace TMObjects
