#include "tlmap/TLRasterRender.h"

namespace TMObjects {

TLRasterRender::~TLRasterRender() = default;

}  // namespace TMObjects
