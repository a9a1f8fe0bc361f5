#include "tlmap/TLSymbolRule.h"

namespace TMObjects {

TLSymbolRule::TLSymbolRule(const TLString& expression, const TLString& label,
                           TLRefPtr<TLStyle> style)
    : Expression(expression), Label(label), Style(style) {}

TLSymbolRule::~TLSymbolRule() = default;

}  // namespace TMObjects
