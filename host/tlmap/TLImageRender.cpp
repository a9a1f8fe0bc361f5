#include "tlmap/TLImageRender.h"

namespace TMObjects {

TLImageRender::~TLImageRender() = default;

}  // namespace TMObjects
