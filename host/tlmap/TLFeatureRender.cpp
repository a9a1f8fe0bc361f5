#include "tlmap/TLFeatureRender.h"

namespace TMObjects {

TLFeatureRender::~TLFeatureRender() = default;

std::vector<TLRefPtr<TLStyle>> TLFeatureRender::GetStyles() const {
    return {};
}

void TLFeatureRender::addStyle(std::vector<TLRefPtr<TLStyle>>& styles, TLRefPtr<TLStyle> style) {
    if (!style) return;
    for (const TLRefPtr<TLStyle>& kept : styles)
        if (kept == style) return;
    styles.push_back(style);
}

}  // namespace TMObjects
