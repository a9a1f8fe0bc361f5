#include "tlsde/TLTextElement.h"

namespace TMObjects {

namespace {

// Points are 1/72 inch, pixels 1/96 inch on the screens the host measures text for.
constexpr double kPixelsPerPoint = 96.0 / 72.0;

}  // namespace

TLTextElement::~TLTextElement() = default;

bool TLTextElement::SameAs(const TLTextElement& o) const {
    return mText == o.mText && mTextType == o.mTextType && mFontName == o.mFontName &&
           mHeightPixels == o.mHeightPixels && mWidthPixels == o.mWidthPixels &&
           mWeight == o.mWeight && mItalic == o.mItalic && mUnderline == o.mUnderline &&
           mStrikeThrough == o.mStrikeThrough && mColor == o.mColor && mAngle == o.mAngle &&
           mAnchor == o.mAnchor && mOrientation == o.mOrientation && mLineSpace == o.mLineSpace &&
           mWordSpace == o.mWordSpace && mHorizAlign == o.mHorizAlign &&
           mVertAlign == o.mVertAlign && mBackgroundStyle == o.mBackgroundStyle &&
           mBackColor == o.mBackColor && mBoundColor == o.mBoundColor &&
           mBoundWidth == o.mBoundWidth && mPathWidth == o.mPathWidth &&
           mPathColor == o.mPathColor && mTextX == o.mTextX && mTextY == o.mTextY &&
           mXOff == o.mXOff && mYOff == o.mYOff;
}

double TLTextElement::get_FontHeight(int unit) const {
    return unit == Points ? mHeightPixels / kPixelsPerPoint : mHeightPixels;
}

void TLTextElement::put_FontHeight(double value, int unit) {
    mHeightPixels = unit == Points ? value * kPixelsPerPoint : value;
}

double TLTextElement::get_FontWidth(int unit) const {
    return unit == Points ? mWidthPixels / kPixelsPerPoint : mWidthPixels;
}

void TLTextElement::put_FontWidth(double value, int unit) {
    mWidthPixels = unit == Points ? value * kPixelsPerPoint : value;
}

void TLTextElement::get_TextPos(double& x, double& y) const {
    x = mTextX;
    y = mTextY;
}

void TLTextElement::put_TextPos(double x, double y) {
    mTextX = x;
    mTextY = y;
}

void TLTextElement::put_Offset(double x, double y) {
    mXOff = x;
    mYOff = y;
}

}  // namespace TMObjects
