#include "tlsymbol/TLStyleBrinkLine.h"

namespace TMObjects {

TLStyleBrinkLine::~TLStyleBrinkLine() = default;

}  // namespace TMObjects
