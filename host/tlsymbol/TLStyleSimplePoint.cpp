#include "tlsymbol/TLStyleSimplePoint.h"

namespace TMObjects {

TLStyleSimplePoint::~TLStyleSimplePoint() = default;

}  // namespace TMObjects
