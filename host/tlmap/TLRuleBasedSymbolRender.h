#pragma once

#include <vector>

#include "tlmap/TLFeatureRender.h"
#include "tlmap/TLSymbolRule.h"

namespace TMObjects {

// Features drawn by the rules whose expressions they satisfy.
class TLRuleBasedSymbolRender : public TLFeatureRender {
public:
    TLRuleBasedSymbolRender();
    ~TLRuleBasedSymbolRender() override;

    int RuleCount() const { return int(mRules.size()); }
    // Empty outside 0 .. RuleCount() - 1.
    TLRefPtr<TLSymbolRule> GetRule(int index) const;
    void AddRule(TLRefPtr<TLSymbolRule> rule) { mRules.push_back(rule); }
    // The styles of the rules, in rule order.
    std::vector<TLRefPtr<TLStyle>> GetStyles() const override;

private:
    std::vector<TLRefPtr<TLSymbolRule>> mRules;
};

}  // namespace TMObjects
