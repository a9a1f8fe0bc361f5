#include "tlsymbol/TLStyle.h"

namespace TMObjects {

TLStyle::~TLStyle() = default;

}  // namespace TMObjects
