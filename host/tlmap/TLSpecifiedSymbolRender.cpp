#include "tlmap/TLSpecifiedSymbolRender.h"

namespace TMObjects {

TLSpecifiedSymbolRender::TLSpecifiedSymbolRender(const TLString& field)
    : TLFeatureRender(Specified), mField(field) {}

TLSpecifiedSymbolRender::~TLSpecifiedSymbolRender() = default;

void TLSpecifiedSymbolRender::SetSymbol(const TLString& code, TLRefPtr<TLStyle> style) {
    for (Symbol& symbol : mSymbols) {
        if (symbol.code == code) {
            symbol.style = style;
            return;
        }
    }
    mSymbols.push_back({code, style});
}

TLString TLSpecifiedSymbolRender::GetSymbolCode(int index) const {
    if (index < 0 || index >= GetSymbolCount()) return TLString();
    return mSymbols[size_t(index)].code;
}

TLRefPtr<TLStyle> TLSpecifiedSymbolRender::GetSymbolStyle(int index) const {
    if (index < 0 || index >= GetSymbolCount()) return TLRefPtr<TLStyle>();
    return mSymbols[size_t(index)].style;
}

TLRefPtr<TLStyle> TLSpecifiedSymbolRender::StyleOf(const TLString& code) const {
    for (const Symbol& symbol : mSymbols)
        if (symbol.code == code) return symbol.style;
    return mDefault;
}

std::vector<TLRefPtr<TLStyle>> TLSpecifiedSymbolRender::GetStyles() const {
    std::vector<TLRefPtr<TLStyle>> styles;
    for (const Symbol& symbol : mSymbols) addStyle(styles, symbol.style);
    addStyle(styles, mDefault);
    return styles;
}

}  // namespace TMObjects
