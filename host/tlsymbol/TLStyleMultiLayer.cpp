#include "tlsymbol/TLStyleMultiLayer.h"

#include "tlsymbol/TLFileFunc.h"
#include "tlsymbol/TLStyleFactory.h"

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

void TLStyleMultiLayer::save(TLFileFunc& file) const {
    TLStyle::save(file);
    file.WriteInt(GetLayerCount());
    for (const TLRefPtr<TLStyle>& layer : mLayers) TLStyleFactory::Save(file, layer);
}

bool TLStyleMultiLayer::open(TLFileFunc& file) {
    int count = 0;
    if (!TLStyle::open(file) || !file.ReadInt(count) || count < 0) return false;
    mLayers.clear();
    for (int i = 0; i < count; ++i) {
        TLRefPtr<TLStyle> layer;
        // A layer of another family, or a missing one, is no style this library wrote.
        if (!TLStyleFactory::Open(file, layer) || !AddLayer(layer)) {
            file.Fail();
            return false;
        }
    }
    return true;
}

}  // namespace TMObjects
