#include "tlsymbol/TLStylePointDecorateLine.h"

namespace TMObjects {

TLStylePointDecorateLine::~TLStylePointDecorateLine() = default;

}  // namespace TMObjects
