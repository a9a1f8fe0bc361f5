#include "tlmap/TLSingleBandImageRender.h"

namespace TMObjects {

TLSingleBandImageRender::~TLSingleBandImageRender() = default;

TLString TLSingleBandImageRender::GetType() const {
    TLRefPtr<TLImageRenderInfo> info = getRenderInfo();
    return info ? info->GetType() : TLString();
}

}  // namespace TMObjects
