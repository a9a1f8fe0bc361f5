#pragma once

#include "tlbase/TLString.h"
#include "tlsymbol/TLStyle.h"

namespace TMObjects {

// One rule of a rule based render: the features for which the expression holds are drawn with
// the style. The label names the rule in the legend. A rule without a style draws nothing.
class TLSymbolRule : public TLRefBase {
public:
    TLSymbolRule(const TLString& expression, const TLString& label, TLRefPtr<TLStyle> style);
    ~TLSymbolRule() override;

    TLString Expression;
    TLString Label;
    TLRefPtr<TLStyle> Style;
};

}  // namespace TMObjects
