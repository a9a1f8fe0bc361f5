#pragma once

#include <vector>

#include "tlbase/TLColor.h"
#include "tlmap/TLImageRenderInfo.h"

namespace TMObjects {

// Cells stretched over a ramp of colours between the band's minimum and maximum: the lowest
// value takes colour 0, the highest the last colour.
class TLImageStretchRenderInfo : public TLImageRenderInfo {
public:
    enum AlgoType { StretchToMinimumMaximum = 0, ClipToMinimumMaximum = 1, ClipToZero = 2 };

    TLImageStretchRenderInfo();
    ~TLImageStretchRenderInfo() override;

    virtual int GetColorCount() const;
    // The colour at `index`; black outside the ramp.
    virtual TLColor GetColor(int index) const;

    int GetAlgoType() const { return mAlgoType; }
    void SetAlgoType(int type) { mAlgoType = type; }
    void SetColors(const std::vector<TLColor>& colors) { mColors = colors; }
    // The ramp of `count` greys from black to white.
    void SetGrayRamp(int count);

private:
    int mAlgoType = StretchToMinimumMaximum;
    std::vector<TLColor> mColors;
};

}  // namespace TMObjects
