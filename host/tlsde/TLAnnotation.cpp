#include "tlsde/TLAnnotation.h"

namespace TMObjects {

TLAnnotation::~TLAnnotation() = default;

TLAnnotation& TLAnnotation::operator=(const TLTextElement& text) {
    TLTextElement::operator=(text);
    return *this;
}

void TLAnnotation::reset() {
    *this = TLAnnotation();
}

bool TLAnnotation::SameAs(const TLAnnotation& o) const {
    return TLTextElement::SameAs(o) && mArrowHeadType == o.mArrowHeadType &&
           mGuideOffsetX == o.mGuideOffsetX && mGuideOffsetY == o.mGuideOffsetY;
}

void TLAnnotation::GetGuideOffsetXY(double& x, double& y) const {
    x = mGuideOffsetX;
    y = mGuideOffsetY;
}

void TLAnnotation::SetGuideOffsetXY(double x, double y) {
    mGuideOffsetX = x;
    mGuideOffsetY = y;
}

}  // namespace TMObjects
