#include "tlmap/TLFeatureRender.h"

namespace TMObjects {

TLFeatureRender::~TLFeatureRender() = default;

}  // namespace TMObjects
