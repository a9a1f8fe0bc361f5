#include "tlmap/TLSelection.h"

namespace TMObjects {

TLRefPtr<TLSelectFeature> TLFeatureSelectionSet::GetFeature(int index) const {
    if (index < 0 || index >= GetCount()) return TLRefPtr<TLSelectFeature>();
    return mFeatures[std::size_t(index)];
}

TLSelectionEnvironment* TLSelectionEnvironment::Instance() {
    static TLSelectionEnvironment environment;
    return &environment;
}

}  // namespace TMObjects
