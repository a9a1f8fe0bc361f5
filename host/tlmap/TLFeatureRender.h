#pragma once

#include "tlbase/TLRefBase.h"

namespace TMObjects {

// The symbology of a feature layer. Its kind tells the style side which render it is: one
// symbol for every feature, one symbol per attribute value, or one symbol per rule. A render
// of no kind draws nothing of its own.
class TLFeatureRender : public TLRefBase {
public:
    enum RenderKind { NoKind = -1, RuleBased = 0, SingleSymbol = 1, Categorized = 2 };

    TLFeatureRender() = default;
    ~TLFeatureRender() override;

    int GetRenderKind() const { return mKind; }

protected:
    explicit TLFeatureRender(RenderKind kind) : mKind(kind) {}

private:
    int mKind = NoKind;
};

}  // namespace TMObjects
