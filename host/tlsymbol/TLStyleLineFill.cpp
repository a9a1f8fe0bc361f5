#include "tlsymbol/TLStyleLineFill.h"

namespace TMObjects {

TLStyleLineFill::~TLStyleLineFill() = default;

}  // namespace TMObjects
