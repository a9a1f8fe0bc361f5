#include "tlsde/TLSharedFeatureStore.h"

#include "tlsde/TLFeatureTable.h"

namespace TMObjects {

TLSharedFeatureStore* TLSharedFeatureStore::Of(const TLFeatureTable& table) {
    return dynamic_cast<TLSharedFeatureStore*>(table.GetStore());
}

void TLSharedFeatureStore::Want(const TLFeatureTable& table, const TLRect& rect) {
    // Reading on demand fills the working copy, which is no change of the table's contents.
    if (TLSharedFeatureStore* store = Of(table); store && !rect.IsEmpty())
        store->Fetch(const_cast<TLFeatureTable&>(table), rect);
}

}  // namespace TMObjects
