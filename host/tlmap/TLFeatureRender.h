#pragma once

#include <vector>

#include "tlbase/TLRefBase.h"
#include "tlsymbol/TLStyle.h"

namespace TMObjects {

// The symbology of a feature layer. Its kind tells the style side which render it is: one
// symbol for every feature, one symbol per attribute value, or one symbol per rule. A render
// of no kind draws nothing of its own.
class TLFeatureRender : public TLRefBase {
public:
    // Specified: each feature names its own symbol (TLSpecifiedSymbolRender).
    enum RenderKind {
        NoKind = -1,
        RuleBased = 0,
        SingleSymbol = 1,
        Categorized = 2,
        Specified = 3
    };

    TLFeatureRender() = default;
    ~TLFeatureRender() override;

    int GetRenderKind() const { return mKind; }
    // The styles the render draws with, each once, in the render's order; null styles left
    // out. None for a render of no kind.
    virtual std::vector<TLRefPtr<TLStyle>> GetStyles() const;

protected:
    explicit TLFeatureRender(RenderKind kind) : mKind(kind) {}
    // Appends `style` unless it is null or already among `styles`.
    static void addStyle(std::vector<TLRefPtr<TLStyle>>& styles, TLRefPtr<TLStyle> style);

private:
    int mKind = NoKind;
};

}  // namespace TMObjects
