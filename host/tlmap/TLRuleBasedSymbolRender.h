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

private:
    std::vector<TLRefPtr<TLSymbolRule>> mRules;
};

}  // namespace TMObjects
