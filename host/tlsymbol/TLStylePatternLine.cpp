#include "tlsymbol/TLStylePatternLine.h"

#include "tlsymbol/TLFileFunc.h"

namespace TMObjects {

TLStylePatternLine::~TLStylePatternLine() = default;

void TLStylePatternLine::save(TLFileFunc& file) const {
    TLStyleLine::save(file);
    file.WriteDoubles(mSteps);
}

bool TLStylePatternLine::open(TLFileFunc& file) {
    return TLStyleLine::open(file) && file.ReadDoubles(mSteps);
}

}  // namespace TMObjects
