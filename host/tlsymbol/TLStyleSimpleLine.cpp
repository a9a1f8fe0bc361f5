#include "tlsymbol/TLStyleSimpleLine.h"

#include <cmath>

namespace TMObjects {

TLStyleSimpleLine::TLStyleSimpleLine(int units, const TLColor& colour, double width)
    : mUnits(units), mColour(colour) {
    SetWidth(width);
}

void TLStyleSimpleLine::SetWidth(double width) {
    mWidth = std::isfinite(width) && width > 0.0 ? width : 0.0;
}

}  // namespace TMObjects
