#include "tlmap/TLRuleBasedSymbolRender.h"

namespace TMObjects {

TLRuleBasedSymbolRender::TLRuleBasedSymbolRender() : TLFeatureRender(RuleBased) {}

TLRuleBasedSymbolRender::~TLRuleBasedSymbolRender() = default;

TLRefPtr<TLSymbolRule> TLRuleBasedSymbolRender::GetRule(int index) const {
    if (index < 0 || index >= RuleCount()) return TLRefPtr<TLSymbolRule>();
    return mRules[std::size_t(index)];
}

}  // namespace TMObjects
