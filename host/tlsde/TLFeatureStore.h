#pragma once

#include <optional>
#include <vector>

#include "tlbase/TLString.h"
#include "tlsde/TLFeature.h"

namespace TMObjects {

class TLFeatureTable;

// One pending change of a table against its store: the feature as it must be after saving, or
// nothing when the feature is to be deleted. `isNew` marks a feature the store does not have yet.
struct TLFeatureChange {
    int id = -1;
    bool isNew = false;
    std::optional<TLFeature> after;
};

// Where a table's features live between sessions. A memory table has none. Commit writes every
// change in one transaction: it either writes all of them or leaves the store as it was and
// says why in `error`.
class TLFeatureStore {
public:
    virtual ~TLFeatureStore() = default;
    virtual TLString GetWorkspaceType() const = 0;  // "OGR", ...
    virtual TLString GetPath() const = 0;
    virtual bool Commit(const TLFeatureTable& table, const std::vector<TLFeatureChange>& changes,
                        TLString& error) = 0;
};

}  // namespace TMObjects
