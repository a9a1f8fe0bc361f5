#pragma once

#include <vector>

#include "tlbase/TLRect.h"
#include "tlsde/TLFeatureStore.h"

namespace TMObjects {

class TLFeatureTable;

// A store that several editors share (a database table): it may be too large to hold, so the
// table asks it for regions as they are looked at; it numbers new features itself, so that two
// editors never give one id twice; and it checks each save against what the others saved since.
// A table whose store is not shared holds all its features from the start.
class TLSharedFeatureStore : public TLFeatureStore {
public:
    // The table's store, when it is shared; null otherwise.
    static TLSharedFeatureStore* Of(const TLFeatureTable& table);
    // Makes sure the features in `rect` (the layer's coordinates) are at hand. Searches of the
    // table, snapping and drawing ask for what they look at; a query without a shape for all.
    static void Want(const TLFeatureTable& table, const TLRect& rect);

    // Puts into the table what lies in `rect` and is not there yet, without tracking it as an
    // edit.
    virtual void Fetch(TLFeatureTable& table, const TLRect& rect) = 0;
    // The bounds of everything the store holds, when they are known without reading it all.
    virtual bool Extent(TLRect& rect) const = 0;
    // An id for a new feature that no other editor will ever be given; -1 when there is none,
    // and the table numbers the feature itself.
    virtual int NewId() = 0;
    // The features the last Commit was refused for: changed or deleted by another editor since
    // they were read.
    virtual std::vector<int> Conflicts() const = 0;
    // Reads the given features again as they now are in the store: each working copy becomes the
    // stored one, and a pending edit of it is dropped (the next save writes nothing for it).
    virtual bool Reload(TLFeatureTable& table, const std::vector<int>& ids, TLString& error) = 0;
    // Reads again every feature at hand that has no pending edit: what others saved since
    // appears, what they deleted goes, what they added in the regions read comes.
    virtual bool Refresh(TLFeatureTable& table, TLString& error) = 0;
};

}  // namespace TMObjects
