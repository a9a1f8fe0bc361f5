#include "tlsymbol/TLStyleScriptFill.h"

namespace TMObjects {

TLStyleScriptFill::~TLStyleScriptFill() = default;

}  // namespace TMObjects
