#pragma once

#include <cstddef>
#include <vector>

#include "tlbase/TLRefBase.h"
#include "tlsde/TLFeature.h"

namespace TMObjects {

class TLFeatureTable;

// Walks the features a search found, in ascending id order. The ids are taken when the search
// runs; a feature deleted since then is passed over, and one changed since then is given as it is
// now. Each feature is a copy with the table's fields, so a caller may keep or change it freely.
class TLFeatureCursor : public TLRefBase {
public:
    TLFeatureCursor(TLRefPtr<TLFeatureTable> table, std::vector<int> ids);
    ~TLFeatureCursor() override;

    // The next feature; empty once every found feature was given.
    TLRefPtr<TLFeature> NextFeature();
    // Starts the walk again from the first found feature.
    void Reset() { mNext = 0; }

private:
    TLRefPtr<TLFeatureTable> mTable;
    std::vector<int> mIds;
    std::size_t mNext = 0;
};

}  // namespace TMObjects
