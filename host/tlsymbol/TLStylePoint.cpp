#include "tlsymbol/TLStylePoint.h"

namespace TMObjects {

TLStylePoint::~TLStylePoint() = default;

}  // namespace TMObjects
