#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "tlbase/TLRefBase.h"
#include "tlsde/TLFeature.h"
#include "tlsde/TLFeatureStore.h"
#include "tlsde/TLField.h"
#include "tlsde/TLQueryFilter.h"

namespace TMObjects {

class TLSpatialIndex;

// Told of every change of a table's features, for views and session records.
class TLFeatureTableListener {
public:
    virtual ~TLFeatureTableListener() = default;
    enum Change { Added, Deleted, GeometryChanged, AttributesChanged };
    virtual void OnFeatureChanged(TLFeatureTable* table, Change change, int id) = 0;
};

// The table behind a feature layer: its fields and the working copy of its features in the
// layer's coordinates, with a spatial index over their bounds and a segment index for snapping.
// Changes are tracked against the store until Save.
class TLFeatureTable : public TLRefBase {
public:
    TLFeatureTable(const TLString& name, const TLFields& fields,
                   std::unique_ptr<TLFeatureStore> store = nullptr);
    ~TLFeatureTable() override;

    const TLString& GetName() const { return mName; }
    std::shared_ptr<const TLFields> GetFieldsPtr() const { return mFields; }
    const TLFields& GetFields() const { return *mFields; }
    TLString GetWorkspaceType() const;  // the store's, or "Memory"
    TLFeatureStore* GetStore() const { return mStore.get(); }

    int GetFeatureCount() const { return int(mFeatures.size()); }
    bool HasFeature(int id) const { return mFeatures.count(id) != 0; }
    // A copy carrying the table's fields; empty when there is no such feature.
    TLRefPtr<TLFeature> GetFeature(int id) const;
    const TLFeature* PeekFeature(int id) const;
    std::vector<int> GetIds() const;  // ascending
    // The id the next new feature gets. Ids only grow: one that a feature had is never given
    // again, in this session or, through the store's own count, after a save and a new start.
    int NextId() const { return mNextId; }
    // Raises the next id (never lowers it): a store that remembers ids of features deleted
    // before tells it on loading.
    void ReserveIdsBelow(int id);

    // Ids of the features that pass the filter, ascending. The spatial part goes through the
    // index; the where clause is then evaluated on the candidates. The relation reads "filter
    // geometry <relation> feature" (within: the filter lies within the feature), and an envelope
    // acts as its rectangle. A where clause that does not parse matches nothing.
    std::vector<int> Search(const TLQueryFilter& filter) const;
    // Ids whose bounds intersect the rectangle.
    std::vector<int> SearchBounds(const TLRect& rect) const;
    TLSpatialIndex& Index() const;
    TLRect GetExtent() const;

    // Loading from a store: no change is tracked and no listener is told.
    void Load(TLFeature feature);

    // Edits. Insert takes the feature's id if >= 0 and never held by a feature of the table, else
    // the next id; it returns the id. Values are coerced to the fields' types, unknown names go.
    int Insert(const TLFeature& feature);
    bool Delete(int id);
    bool SetGeometry(int id, TLRefPtr<TLGeometry> geometry);
    bool SetValue(int id, const TLString& field, const TLVariant& value);
    // Puts a feature back exactly as given (or removes it for nullopt): undo and redo.
    void Restore(int id, const std::optional<TLFeature>& feature);
    // The feature's geometry is about to be handed out to be changed in place: its present state
    // is kept first, since once the geometry changes the table cannot tell what it was.
    void Lend(int id);
    // The feature's geometry was changed in place through a shared pointer: index it anew, weigh
    // it against the store and tell the listeners.
    void Touch(int id);
    // Deleted since the last save (and not put back).
    bool IsDeleted(int id) const {
        return (mSaved.count(id) != 0 || mDirty.count(id) != 0) && !HasFeature(id);
    }

    // A feature is pending while it differs from what the store holds: added and not stored,
    // stored and deleted, or stored with other coordinates or values. An edit taken back by undo,
    // or put back by hand, leaves nothing to save.
    bool IsDirty() const { return !mDirty.empty(); }
    std::vector<TLFeatureChange> PendingChanges() const;
    // Writes the pending changes to the store in one transaction; on success they are no longer
    // pending. A table without a store just forgets them.
    bool Save(TLString& error);

    void AddListener(TLFeatureTableListener* listener);
    void RemoveListener(TLFeatureTableListener* listener);

private:
    void notify(TLFeatureTableListener::Change change, int id);
    void indexInsert(int id, const TLFeature& f);
    void indexRemove(int id);
    TLFeature normalised(const TLFeature& f) const;
    // Before a write: remembers what the store holds of the feature, unless already known.
    void keep(int id);
    // After a write: the feature is pending exactly when it differs from what the store holds.
    void weigh(int id);

    TLString mName;
    std::shared_ptr<TLFields> mFields;
    std::unique_ptr<TLFeatureStore> mStore;
    std::map<int, TLFeature> mFeatures;
    // What the store holds of each feature written to since the last save (nothing: the store
    // does not have it), and of each feature lent out. Copies of these few features only: an
    // undo weighs what its step touched against them, without a scan of the table.
    std::map<int, std::optional<TLFeature>> mSaved;
    // Ids that differ from the store. One changed in place without being lent has no entry in
    // mSaved: what it was is lost, and it stays pending until saved.
    std::set<int> mDirty;
    // Ids whose geometry was handed out and may still be changed in place through it.
    std::set<int> mLent;
    int mNextId = 1;
    // Ids below mNextId whose feature was deleted: never given again, not even on request.
    std::set<int> mRetired;
    mutable std::unique_ptr<TLSpatialIndex> mIndex;  // built on first use, then kept up to date
    std::vector<TLFeatureTableListener*> mListeners;
};

}  // namespace TMObjects
