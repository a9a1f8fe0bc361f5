#include "tlmap/TLRasterBand.h"

namespace TMObjects {

TLRasterBand::~TLRasterBand() = default;

}  // namespace TMObjects
