#include "tlmap/TLImageRenderInfo.h"

namespace TMObjects {

TLImageRenderInfo::~TLImageRenderInfo() = default;

}  // namespace TMObjects
