#include "tlsymbol/TLStyleDB.h"

#include "tlsymbol/TLStyleFactory.h"

namespace TMObjects {

bool TLStyleDB::AddStyleTakeOwnership(TLRefPtr<TLStyle> style) {
    if (!style || style->GetName().IsEmpty()) return false;
    if (!TLStyleFactory::Create(style->GetTypeID(), style->GetClassType())) return false;
    for (TLRefPtr<TLStyle>& kept : mStyles) {
        if (kept->GetName() == style->GetName()) {
            kept = style;
            return true;
        }
    }
    mStyles.push_back(style);
    return true;
}

TLRefPtr<TLStyle> TLStyleDB::GetStyle(int index) const {
    if (index < 0 || index >= GetStyleCount()) return TLRefPtr<TLStyle>();
    return mStyles[size_t(index)];
}

TLRefPtr<TLStyle> TLStyleDB::FindStyle(const TLString& name) const {
    for (const TLRefPtr<TLStyle>& style : mStyles)
        if (style->GetName() == name) return style;
    return TLRefPtr<TLStyle>();
}

}  // namespace TMObjects
