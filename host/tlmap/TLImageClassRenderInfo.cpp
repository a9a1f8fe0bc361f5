#include "tlmap/TLImageClassRenderInfo.h"

namespace TMObjects {

TLImageClassRenderInfo::TLImageClassRenderInfo() : TLImageRenderInfo("ImageClass") {}

TLImageClassRenderInfo::~TLImageClassRenderInfo() = default;

int TLImageClassRenderInfo::GetClassCount() const {
    return int(mItems.size());
}

bool TLImageClassRenderInfo::GetClassItemInfo(int index, double& value, double& upper,
                                              TLColor& color) const {
    if (index < 0 || index >= int(mItems.size())) return false;
    value = mItems[index].value;
    upper = mItems[index].upper;
    color = mItems[index].color;
    return true;
}

void TLImageClassRenderInfo::AddClassItem(double value, double upper, const TLColor& color) {
    mItems.push_back({value, upper, color});
}

}  // namespace TMObjects
