#pragma once

#include <vector>

#include "tlsymbol/TLStyleLine.h"

namespace TMObjects {

// A line drawn as short line symbols repeated along it. With placement 0 the symbols stand at the
// steps of the step list; other placements are the library's own.
class TLStyleLineDecorateLine : public TLStyleLine {
public:
    TLStyleLineDecorateLine() = default;
    ~TLStyleLineDecorateLine() override;

    int GetTypeID() const override { return LineDecorateLineType; }
    TLRefPtr<TLStyle> GetDecorateStyle() const { return mDecorate; }
    int GetPlacementType() const { return mPlacement; }
    const std::vector<double>& GetSteps() const { return mSteps; }
    void SetDecorateStyle(TLRefPtr<TLStyle> style) { mDecorate = style; }
    void SetPlacementType(int placement) { mPlacement = placement; }
    void SetSteps(const std::vector<double>& steps) { mSteps = steps; }

    void save(TLFileFunc& file) const override;
    bool open(TLFileFunc& file) override;

private:
    TLRefPtr<TLStyle> mDecorate;
    int mPlacement = 0;
    std::vector<double> mSteps;
};

}  // namespace TMObjects
