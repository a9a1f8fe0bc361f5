#include "tlsde/TLFeatureCursor.h"

#include "tlsde/TLFeatureTable.h"

namespace TMObjects {

TLFeatureCursor::TLFeatureCursor(TLRefPtr<TLFeatureTable> table, std::vector<int> ids)
    : mTable(table), mIds(std::move(ids)) {}

TLFeatureCursor::~TLFeatureCursor() = default;

TLRefPtr<TLFeature> TLFeatureCursor::NextFeature() {
    while (mTable && mNext < mIds.size()) {
        TLRefPtr<TLFeature> feature = mTable->GetFeature(mIds[mNext++]);
        if (feature) return feature;
    }
    return TLRefPtr<TLFeature>();
}

}  // namespace TMObjects
