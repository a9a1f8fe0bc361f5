#include "tlsymbol/TLStyleCharacterPoint.h"

namespace TMObjects {

TLStyleCharacterPoint::~TLStyleCharacterPoint() = default;

}  // namespace TMObjects
