#include "tlsymbol/TLStyleLineDecorateLine.h"

namespace TMObjects {

TLStyleLineDecorateLine::~TLStyleLineDecorateLine() = default;

}  // namespace TMObjects
