#include "tlsymbol/TLStyleBitmapPoint.h"

namespace TMObjects {

TLStyleBitmapPoint::~TLStyleBitmapPoint() = default;

}  // namespace TMObjects
