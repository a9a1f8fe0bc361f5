#pragma once

#include "tlbase/TLColor.h"
#include "tlsymbol/TLStyle.h"

namespace TMObjects {

// A plain solid stroke: its width is in `units` (0: pixels), its colour as given.
class TLStyleSimpleLine : public TLStyle {
public:
    TLStyleSimpleLine(int units, const TLColor& colour, double width);

    int GetUnits() const { return mUnits; }
    TLColor GetColor() const { return mColour; }
    void SetColor(const TLColor& colour) { mColour = colour; }
    double GetWidth() const { return mWidth; }
    // A negative or non-finite width would draw nothing: it becomes the thinnest stroke.
    void SetWidth(double width);

private:
    int mUnits;
    TLColor mColour;
    double mWidth = 0.0;
};

}  // namespace TMObjects
