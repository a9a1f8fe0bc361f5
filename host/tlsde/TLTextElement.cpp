#include "tlsde/TLTextElement.h"

namespace TMObjects {

namespace {

// Points are 1/72 inch, pixels 1/96 inch on the screens the host measures text for.
constexpr double kPixelsPerPoint = 96.0 / 72.0;

}  // namespace

TLTextElement::~TLTextElement() = default;

double TLTextElement::get_FontHeight(int unit) const {
    return unit == Points ? mHeightPixels / kPixelsPerPoint : mHeightPixels;
}

void TLTextElement::put_FontHeight(double value, int unit) {
    mHeightPixels = unit == Points ? value * kPixelsPerPoint : value;
}

void TLTextElement::put_Offset(double x, double y) {
    mXOff = x;
    mYOff = y;
}

}  // namespace TMObjects
