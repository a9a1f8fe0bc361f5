#include "tlsymbol/TLStylePatternLine.h"

namespace TMObjects {

TLStylePatternLine::~TLStylePatternLine() = default;

}  // namespace TMObjects
