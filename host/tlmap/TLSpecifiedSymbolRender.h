#pragma once

#include <vector>

#include "tlbase/TLString.h"
#include "tlmap/TLFeatureRender.h"

namespace TMObjects {

// Features drawn with the symbol each one names: a field of the layer holds a symbol's code,
// and the render keeps the style of each code. A feature whose code the render does not know
// is drawn with the default style, when there is one.
class TLSpecifiedSymbolRender : public TLFeatureRender {
public:
    explicit TLSpecifiedSymbolRender(const TLString& field = TLString());
    ~TLSpecifiedSymbolRender() override;

    TLString GetField() const { return mField; }
    void SetField(const TLString& field) { mField = field; }
    // Gives `code` its style; a code given before takes the new style in its place.
    void SetSymbol(const TLString& code, TLRefPtr<TLStyle> style);
    int GetSymbolCount() const { return int(mSymbols.size()); }
    // Empty outside 0 .. GetSymbolCount() - 1.
    TLString GetSymbolCode(int index) const;
    TLRefPtr<TLStyle> GetSymbolStyle(int index) const;
    // The style of `code`, else the default style.
    TLRefPtr<TLStyle> StyleOf(const TLString& code) const;
    TLRefPtr<TLStyle> GetDefaultStyle() const { return mDefault; }
    void SetDefaultStyle(TLRefPtr<TLStyle> style) { mDefault = style; }
    // The styles of the codes in their order, then the default style.
    std::vector<TLRefPtr<TLStyle>> GetStyles() const override;

private:
    struct Symbol {
        TLString code;
        TLRefPtr<TLStyle> style;
    };
    TLString mField;
    std::vector<Symbol> mSymbols;
    TLRefPtr<TLStyle> mDefault;
};

}  // namespace TMObjects
