#pragma once

#include <vector>

#include "tlsymbol/TLStyle.h"

namespace TMObjects {

// Several styles of one family drawn over each other, layer 0 on top. The family is fixed when
// the style is made; layers of another family are refused.
class TLStyleMultiLayer : public TLStyle {
public:
    explicit TLStyleMultiLayer(ClassType family);
    ~TLStyleMultiLayer() override;

    int GetClassType() const override { return mFamily; }
    int GetTypeID() const override { return MultiLayerType; }
    int GetLayerCount() const { return int(mLayers.size()); }
    // Empty outside 0 .. GetLayerCount() - 1.
    TLRefPtr<TLStyle> GetLayer(int index) const;
    bool AddLayer(TLRefPtr<TLStyle> layer);

    // The layers follow the style's own part, each as TLStyleFactory saves a nested style.
    void save(TLFileFunc& file) const override;
    bool open(TLFileFunc& file) override;

private:
    ClassType mFamily;
    std::vector<TLRefPtr<TLStyle>> mLayers;
};

}  // namespace TMObjects
