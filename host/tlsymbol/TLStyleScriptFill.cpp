#include "tlsymbol/TLStyleScriptFill.h"

#include "tlsymbol/TLFileFunc.h"

namespace TMObjects {

TLStyleScriptFill::~TLStyleScriptFill() = default;

void TLStyleScriptFill::save(TLFileFunc& file) const {
    TLStyleFill::save(file);
    file.WriteString(mScript);
}

bool TLStyleScriptFill::open(TLFileFunc& file) {
    return TLStyleFill::open(file) && file.ReadString(mScript);
}

}  // namespace TMObjects
