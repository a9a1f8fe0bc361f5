#include "tlmap/TLCategoryRenderItem.h"

namespace TMObjects {

TLCategoryRenderItem::TLCategoryRenderItem(const TLString& value, const TLString& label,
                                           TLRefPtr<TLStyle> style)
    : mValue(value), mLabel(label), mStyle(style) {}

TLCategoryRenderItem::~TLCategoryRenderItem() = default;

}  // namespace TMObjects
