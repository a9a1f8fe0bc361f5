#pragma once

#include <vector>

#include "tlsymbol/TLStyleLine.h"

namespace TMObjects {

// A dashed line whose dashes and gaps are given as alternate steps in the style's unit.
class TLStylePatternLine : public TLStyleLine {
public:
    TLStylePatternLine() = default;
    ~TLStylePatternLine() override;

    int GetTypeID() const override { return PatternLineType; }
    // The style's own steps: writers that need a minimum step raise them in place.
    std::vector<double>& GetSteps() { return mSteps; }
    const std::vector<double>& GetSteps() const { return mSteps; }
    void SetSteps(const std::vector<double>& steps) { mSteps = steps; }

    void save(TLFileFunc& file) const override;
    bool open(TLFileFunc& file) override;

private:
    std::vector<double> mSteps;
};

}  // namespace TMObjects
