#include "tlmap/TLRasterProps.h"

namespace TMObjects {

TLRasterProps::~TLRasterProps() = default;

}  // namespace TMObjects
