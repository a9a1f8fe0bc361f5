#include "tlmap/TLLayer.h"

namespace TMObjects {

// Ids are unique within the process, so that a tool may keep one across maps and sessions and
// never meet a different layer under it.
int TLLayer::sNextId = 1;

TLLayer::TLLayer(const TLString& name, LayerType type, TLRefPtr<TLCoordinateSystem> reference)
    : mId(sNextId++), mName(name), mType(type), mReference(reference) {}

TLLayer::~TLLayer() = default;

int TLLayer::IsValid() const {
    return 1;
}

void TLLayer::SetVisibleScales(double minimum, double maximum) {
    mVisibleMin = minimum;
    mVisibleMax = maximum;
}

}  // namespace TMObjects
