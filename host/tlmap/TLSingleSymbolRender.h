#pragma once

#include "tlmap/TLFeatureRender.h"
#include "tlsymbol/TLStyle.h"

namespace TMObjects {

// Every feature of the layer drawn with one style.
class TLSingleSymbolRender : public TLFeatureRender {
public:
    explicit TLSingleSymbolRender(TLRefPtr<TLStyle> style = TLRefPtr<TLStyle>());
    ~TLSingleSymbolRender() override;

    TLRefPtr<TLStyle> GetStyle() const { return mStyle; }
    void SetStyle(TLRefPtr<TLStyle> style) { mStyle = style; }
    // Its one style.
    std::vector<TLRefPtr<TLStyle>> GetStyles() const override;

    // The plain symbol a new layer of that kind is drawn with; empty for kinds without one.
    static TLRefPtr<TLStyle> DefaultStyle(int layerType);

private:
    TLRefPtr<TLStyle> mStyle;
};

}  // namespace TMObjects
