#include "tlsymbol/TLStyleSimpleFill.h"

namespace TMObjects {

TLStyleSimpleFill::~TLStyleSimpleFill() = default;

}  // namespace TMObjects
