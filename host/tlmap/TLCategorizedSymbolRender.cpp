#include "tlmap/TLCategorizedSymbolRender.h"

namespace TMObjects {

TLCategorizedSymbolRender::TLCategorizedSymbolRender(const TLString& expression)
    : TLFeatureRender(Categorized), mExpression(expression) {}

TLCategorizedSymbolRender::~TLCategorizedSymbolRender() = default;

TLRefPtr<TLCategoryRenderItem> TLCategorizedSymbolRender::GetCategoryRenderItem(int index) const {
    if (index < 0 || index >= GetItemCount()) return TLRefPtr<TLCategoryRenderItem>();
    return mItems[std::size_t(index)];
}

std::vector<TLRefPtr<TLStyle>> TLCategorizedSymbolRender::GetStyles() const {
    std::vector<TLRefPtr<TLStyle>> styles;
    for (const TLRefPtr<TLCategoryRenderItem>& item : mItems)
        if (item) addStyle(styles, item->GetStyle());
    return styles;
}

}  // namespace TMObjects
