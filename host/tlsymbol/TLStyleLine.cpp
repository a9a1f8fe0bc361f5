#include "tlsymbol/TLStyleLine.h"

namespace TMObjects {

TLStyleLine::~TLStyleLine() = default;

}  // namespace TMObjects
