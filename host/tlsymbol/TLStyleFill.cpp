#include "tlsymbol/TLStyleFill.h"

namespace TMObjects {

TLStyleFill::~TLStyleFill() = default;

}  // namespace TMObjects
