#include "tlmap/TLImageStretchRenderInfo.h"

namespace TMObjects {

TLImageStretchRenderInfo::TLImageStretchRenderInfo() : TLImageRenderInfo("ImageStretch") {}

TLImageStretchRenderInfo::~TLImageStretchRenderInfo() = default;

int TLImageStretchRenderInfo::GetColorCount() const {
    return int(mColors.size());
}

TLColor TLImageStretchRenderInfo::GetColor(int index) const {
    if (index < 0 || index >= int(mColors.size())) return TLColor();
    return mColors[index];
}

void TLImageStretchRenderInfo::SetGrayRamp(int count) {
    mColors.clear();
    for (int i = 0; i < count; ++i) {
        const int grey = count > 1 ? (255 * i + (count - 1) / 2) / (count - 1) : 0;
        mColors.emplace_back(grey, grey, grey);
    }
}

}  // namespace TMObjects
