#include "tlsymbol/TLStylePointFill.h"

namespace TMObjects {

TLStylePointFill::~TLStylePointFill() = default;

}  // namespace TMObjects
