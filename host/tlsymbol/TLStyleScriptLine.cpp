#include "tlsymbol/TLStyleScriptLine.h"

namespace TMObjects {

TLStyleScriptLine::~TLStyleScriptLine() = default;

}  // namespace TMObjects
