#include "tlmap/TLRuleBasedSymbolRender.h"

namespace TMObjects {

TLRuleBasedSymbolRender::TLRuleBasedSymbolRender() : TLFeatureRender(RuleBased) {}

TLRuleBasedSymbolRender::~TLRuleBasedSymbolRender() = default;

TLRefPtr<TLSymbolRule> TLRuleBasedSymbolRender::GetRule(int index) const {
    if (index < 0 || index >= RuleCount()) return TLRefPtr<TLSymbolRule>();
    return mRules[std::size_t(index)];
}

std::vector<TLRefPtr<TLStyle>> TLRuleBasedSymbolRender::GetStyles() const {
    std::vector<TLRefPtr<TLStyle>> styles;
    for (const TLRefPtr<TLSymbolRule>& rule : mRules)
        if (rule) addStyle(styles, rule->Style);
    return styles;
}

}  // namespace TMObjects
