#include "tlmap/TLMultiBandImageRender.h"

namespace TMObjects {

TLMultiBandImageRender::TLMultiBandImageRender(int red, int green, int blue)
    : mRed(red), mGreen(green), mBlue(blue) {}

TLMultiBandImageRender::~TLMultiBandImageRender() = default;

TLString TLMultiBandImageRender::GetType() const {
    return "ImageRGBComposite";
}

void TLMultiBandImageRender::setBands(int red, int green, int blue) {
    mRed = red;
    mGreen = green;
    mBlue = blue;
}

void TLMultiBandImageRender::setUseBands(bool red, bool green, bool blue) {
    mUseRed = red;
    mUseGreen = green;
    mUseBlue = blue;
}

}  // namespace TMObjects
