#include "tlsymbol/TLStyleScriptLine.h"

#include "tlsymbol/TLFileFunc.h"

namespace TMObjects {

TLStyleScriptLine::~TLStyleScriptLine() = default;

void TLStyleScriptLine::save(TLFileFunc& file) const {
    TLStyleLine::save(file);
    file.WriteString(mScript);
}

bool TLStyleScriptLine::open(TLFileFunc& file) {
    return TLStyleLine::open(file) && file.ReadString(mScript);
}

}  // namespace TMObjects
