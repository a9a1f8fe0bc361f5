#include "tlsymbol/TLStyleFill.h"

#include "tlsymbol/TLFileFunc.h"
#include "tlsymbol/TLStyleFactory.h"

namespace TMObjects {

TLStyleFill::~TLStyleFill() = default;

void TLStyleFill::save(TLFileFunc& file) const {
    TLStyle::save(file);
    TLStyleFactory::Save(file, mOutline);
    file.WriteBool(mFillBackground);
    file.WriteColor(mBackgroundColor);
    file.WriteBool(mGradient);
}

bool TLStyleFill::open(TLFileFunc& file) {
    return TLStyle::open(file) && TLStyleFactory::Open(file, mOutline) &&
           file.ReadBool(mFillBackground) && file.ReadColor(mBackgroundColor) &&
           file.ReadBool(mGradient);
}

}  // namespace TMObjects
