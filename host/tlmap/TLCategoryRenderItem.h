#pragma once

#include "tlbase/TLString.h"
#include "tlsymbol/TLStyle.h"

namespace TMObjects {

// One class of a categorized render: the attribute value it stands for, the text the legend
// shows for it, and its style.
class TLCategoryRenderItem : public TLRefBase {
public:
    TLCategoryRenderItem(const TLString& value, const TLString& label, TLRefPtr<TLStyle> style);
    ~TLCategoryRenderItem() override;

    TLString GetValue() const { return mValue; }
    TLString GetLabel() const { return mLabel; }
    TLRefPtr<TLStyle> GetStyle() const { return mStyle; }

private:
    TLString mValue;
    TLString mLabel;
    TLRefPtr<TLStyle> mStyle;
};

}  // namespace TMObjects
