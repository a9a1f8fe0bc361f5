#pragma once

#include <optional>
#include <vector>

#include "tlbase/TLRect.h"
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

    // A store shared by several editors (a database table) may read on demand and check each
    // save against what the others saved. A file store reads everything at open and needs none
    // of the following.

    // Puts into the table what lies in `rect` (the layer's coordinates) and is not there yet.
    virtual void Fetch(TLFeatureTable& table, const TLRect& rect) {}
    // The bounds of everything the store holds, when they are known without reading it all.
    virtual bool Extent(TLRect& rect) const { return false; }
    // An id for a new feature that no other editor of the store will ever be given; -1 leaves
    // the numbering to the table.
    virtual int NewId() { return -1; }
    // The features the last Commit was refused for: changed or deleted by another editor since
    // they were read.
    virtual std::vector<int> Conflicts() const { return {}; }
    // Reads the features again as they now are in the store (see TLFeatureTable::Reread).
    virtual bool Reload(TLFeatureTable& table, const std::vector<int>& ids, TLString& error) {
        return true;
    }
    // Reads again every feature at hand that has no pending change, so that what others saved
    // since appears, features they deleted go, and features they added in the region read come.
    virtual bool Refresh(TLFeatureTable& table, TLString& error) { return true; }
};

}  // namespace TMObjects
