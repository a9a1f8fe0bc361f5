#include "tlsymbol/TLStyleMultiLayer.h"

namespace TMObjects {

TLStyleMultiLayer::TLStyleMultiLayer(ClassType family) : mFamily(family) {}

TLStyleMultiLayer::~TLStyleMultiLayer() = default;

TLRefPtr<TLStyle> TLStyleMultiLayer::GetLayer(int index) const {
    if (index < 0 || index >= GetLayerCount()) return TLRefPtr<TLStyle>();
    return mLayers[std::size_t(index)];
}

bool TLStyleMultiLayer::AddLayer(TLRefPtr<TLStyle> layer) {
    if (!layer || layer->GetClassType() != mFamily) return false;
    mLayers.push_back(layer);
    return true;
}

}  // namespace TMObjects
