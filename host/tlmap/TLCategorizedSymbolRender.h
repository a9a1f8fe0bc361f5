#pragma once

#include <vector>

#include "tlbase/TLString.h"
#include "tlmap/TLCategoryRenderItem.h"
#include "tlmap/TLFeatureRender.h"

namespace TMObjects {

// Features drawn by the class their value of one expression (usually a field name) falls in.
class TLCategorizedSymbolRender : public TLFeatureRender {
public:
    explicit TLCategorizedSymbolRender(const TLString& expression = TLString());
    ~TLCategorizedSymbolRender() override;

    TLString GetExpression() const { return mExpression; }
    void SetExpression(const TLString& expression) { mExpression = expression; }
    int GetItemCount() const { return int(mItems.size()); }
    // Empty outside 0 .. GetItemCount() - 1.
    TLRefPtr<TLCategoryRenderItem> GetCategoryRenderItem(int index) const;
    // A null item is kept as given: it holds a place in the legend without a class.
    void AddItem(TLRefPtr<TLCategoryRenderItem> item) { mItems.push_back(item); }
    // The styles of the items, in item order.
    std::vector<TLRefPtr<TLStyle>> GetStyles() const override;

private:
    TLString mExpression;
    std::vector<TLRefPtr<TLCategoryRenderItem>> mItems;
};

}  // namespace TMObjects
