#include "tlsde/TLFeatureTable.h"

#include <algorithm>

#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlsde/TLSharedFeatureStore.h"
#include "tlsde/TLSpatialIndex.h"
#include "tlsde/TLWhereClause.h"

namespace TMObjects {

namespace {

// A rectangle as a polygon, so that relations see its area and not only its corners. A rectangle
// without area stays an envelope: there is no valid polygon to make of it.
TLRefPtr<TLGeometry> relatable(const TLRefPtr<TLGeometry>& filter) {
    auto* envelope = dynamic_cast<TLGeoEnvelope*>(filter.get());
    if (!envelope) return filter;
    double x0, y0, x1, y1;
    envelope->QueryCoords(&x0, &y0, &x1, &y1);
    if (!(x0 < x1 && y0 < y1)) return filter;
    TLRefPtr<TLGeoPolygon> polygon(new TLGeoPolygon());
    polygon->BeginPath();
    polygon->BeginSegment(1);
    polygon->AddXY(x0, y0);
    polygon->AddXY(x1, y0);
    polygon->AddXY(x1, y1);
    polygon->AddXY(x0, y1);
    polygon->EndEntity();
    polygon->Forward();
    return TLRefPtr<TLGeometry>(polygon);
}

// Everything there is: what a query without a shape looks at.
const TLRect kEverywhere(-1e308, 1e308, -1e308, 1e308);

bool inside(const TLRect& inner, const TLRect& outer) {
    return !inner.IsEmpty() && !outer.IsEmpty() && inner.XMinimum() >= outer.XMinimum() &&
           inner.XMaximum() <= outer.XMaximum() && inner.YMinimum() >= outer.YMinimum() &&
           inner.YMaximum() <= outer.YMaximum();
}

}  // namespace

TLFeatureTable::TLFeatureTable(const TLString& name, const TLFields& fields,
                               std::unique_ptr<TLFeatureStore> store)
    : mName(name), mFields(std::make_shared<TLFields>(fields)), mStore(std::move(store)) {}

TLFeatureTable::~TLFeatureTable() = default;

TLString TLFeatureTable::GetWorkspaceType() const {
    return mStore ? mStore->GetWorkspaceType() : TLString("Memory");
}

TLRefPtr<TLFeature> TLFeatureTable::GetFeature(int id) const {
    const TLFeature* f = PeekFeature(id);
    return f ? TLRefPtr<TLFeature>(new TLFeature(*f)) : TLRefPtr<TLFeature>();
}

const TLFeature* TLFeatureTable::PeekFeature(int id) const {
    auto it = mFeatures.find(id);
    return it == mFeatures.end() ? nullptr : &it->second;
}

std::vector<int> TLFeatureTable::GetIds() const {
    std::vector<int> ids;
    ids.reserve(mFeatures.size());
    for (const auto& entry : mFeatures) ids.push_back(entry.first);
    return ids;
}

std::vector<int> TLFeatureTable::Search(const TLQueryFilter& filter) const {
    const TLWhereClause where(filter.GetWhereClause());
    if (!where.IsValid()) return {};
    const TLRefPtr<TLGeometry> geometry = filter.GetFilterGeometry();
    const TLSpatialRelEnum relation = filter.GetSpatialRel();
    std::vector<int> candidates;
    TLRect rect;
    TLRefPtr<TLGeometry> shape;
    if (geometry && geometry->IsEmpty()) return {};
    TLSharedFeatureStore::Want(
        *this, geometry && relation != TLSpatialRelDisjoint ? geometry->GetBound() : kEverywhere);
    if (geometry) {
        rect = geometry->GetBound();
        // Only disjoint features lie outside the filter's bounds; every other relation needs
        // the bounds to meet.
        candidates = relation == TLSpatialRelDisjoint ? GetIds() : SearchBounds(rect);
        shape = relatable(geometry);
    } else {
        candidates = GetIds();
    }
    const bool isEnvelope = dynamic_cast<TLGeoEnvelope*>(geometry.get()) != nullptr;
    std::vector<int> ids;
    for (int id : candidates) {
        const TLFeature& f = mFeatures.at(id);
        if (!where.Matches(f)) continue;
        if (shape) {
            TLGeometry* g = f.GetGeometry().get();
            if (!g || g->IsEmpty()) continue;
            if (relation == TLSpatialRelEnvelopeIntersects) {
                if (!g->GetBound().Intersects(rect)) continue;
            } else if (relation == TLSpatialRelIntersects && isEnvelope &&
                       inside(g->GetBound(), rect)) {
                // A feature whose bounds lie in the rectangle meets it; no need to ask GEOS.
            } else if (!shape->Relation(g, relation)) {
                continue;
            }
        }
        ids.push_back(id);
    }
    return ids;
}

std::vector<int> TLFeatureTable::SearchBounds(const TLRect& rect) const {
    TLSharedFeatureStore::Want(*this, rect);
    std::vector<int> ids = Index().Query(rect);
    std::sort(ids.begin(), ids.end());
    return ids;
}

TLSpatialIndex& TLFeatureTable::Index() const {
    if (!mIndex) {
        std::vector<std::pair<int, TLGeometry*>> all;
        all.reserve(mFeatures.size());
        for (const auto& [id, f] : mFeatures) all.emplace_back(id, f.GetGeometry().get());
        auto index = std::make_unique<TLSpatialIndex>();
        index->Rebuild(all);
        mIndex = std::move(index);
    }
    return *mIndex;
}

TLRect TLFeatureTable::GetExtent() const {
    TLRect extent = Index().Extent();
    TLRect stored;
    if (TLSharedFeatureStore* shared = TLSharedFeatureStore::Of(*this);
        shared && shared->Extent(stored))
        extent.Union(stored);
    return extent;
}

void TLFeatureTable::Load(TLFeature feature) {
    int id = feature.GetId();
    if (id < 0 || HasFeature(id)) id = mNextId;
    // A geometry that no one else holds is the one a store just read: the table takes it as it
    // is, rather than keeping a clone and dropping the original.
    TLRefPtr<TLGeometry> geometry = feature.GetGeometry();
    feature.SetGeometry(nullptr);
    if (geometry && geometry->RefCount() > 1) geometry = geometry->Clone();
    TLFeature& stored = mFeatures[id] = normalised(feature);
    stored.SetGeometry(geometry);
    stored.SetId(id);
    mNextId = std::max(mNextId, id + 1);
    // Loads at open come before the index is first built, which then packs them all at once;
    // a store reading on demand adds to an index in use.
    indexInsert(id, stored);
}

void TLFeatureTable::ReserveIdsBelow(int id) {
    mNextId = std::max(mNextId, id);
}

int TLFeatureTable::Insert(const TLFeature& feature) {
    int id = feature.GetId();
    // A store shared by several editors numbers new features itself, so that no two editors
    // ever give the same id.
    TLSharedFeatureStore* shared = TLSharedFeatureStore::Of(*this);
    const int given = shared ? shared->NewId() : -1;
    if (given >= 0 && !HasFeature(given))
        id = given;
    else if (id < 0 || HasFeature(id) || mRetired.count(id) != 0)
        id = mNextId;
    keep(id);
    TLFeature& stored = mFeatures[id] = normalised(feature);
    stored.SetId(id);
    mNextId = std::max(mNextId, id + 1);
    indexInsert(id, stored);
    weigh(id);
    notify(TLFeatureTableListener::Added, id);
    return id;
}

bool TLFeatureTable::Delete(int id) {
    auto it = mFeatures.find(id);
    if (it == mFeatures.end()) return false;
    keep(id);
    mFeatures.erase(it);
    mRetired.insert(id);
    mLent.erase(id);
    indexRemove(id);
    weigh(id);
    notify(TLFeatureTableListener::Deleted, id);
    return true;
}

bool TLFeatureTable::SetGeometry(int id, TLRefPtr<TLGeometry> geometry) {
    auto it = mFeatures.find(id);
    if (it == mFeatures.end()) return false;
    keep(id);
    // A copy, so that the caller may go on using its geometry without changing the table. A
    // geometry lent out before no longer reaches the table.
    it->second.SetGeometry(geometry ? geometry->Clone() : TLRefPtr<TLGeometry>());
    mLent.erase(id);
    indexInsert(id, it->second);
    weigh(id);
    notify(TLFeatureTableListener::GeometryChanged, id);
    return true;
}

bool TLFeatureTable::SetValue(int id, const TLString& field, const TLVariant& value) {
    auto it = mFeatures.find(id);
    if (it == mFeatures.end()) return false;
    keep(id);
    if (!it->second.SetValue(field, value)) return false;
    weigh(id);
    notify(TLFeatureTableListener::AttributesChanged, id);
    return true;
}

void TLFeatureTable::Restore(int id, const std::optional<TLFeature>& feature) {
    if (id < 0) return;
    auto it = mFeatures.find(id);
    if (!feature) {
        if (it != mFeatures.end()) Delete(id);
        return;
    }
    const bool existed = it != mFeatures.end();
    keep(id);
    mRetired.erase(id);
    TLFeature& stored = mFeatures[id] = *feature;
    stored.SetId(id);
    stored.SetFields(mFields);
    mLent.erase(id);
    mNextId = std::max(mNextId, id + 1);
    indexInsert(id, stored);
    // Only the feature put back is weighed: an undo costs what its step touched, whatever the
    // size of the table.
    weigh(id);
    if (!existed) {
        notify(TLFeatureTableListener::Added, id);
    } else {
        notify(TLFeatureTableListener::GeometryChanged, id);
        notify(TLFeatureTableListener::AttributesChanged, id);
    }
}

void TLFeatureTable::Lend(int id) {
    if (!HasFeature(id)) return;
    keep(id);
    mLent.insert(id);
}

void TLFeatureTable::Touch(int id) {
    auto it = mFeatures.find(id);
    if (it == mFeatures.end()) return;
    indexInsert(id, it->second);
    weigh(id);
    notify(TLFeatureTableListener::GeometryChanged, id);
}

std::vector<TLFeatureChange> TLFeatureTable::PendingChanges() const {
    std::vector<TLFeatureChange> changes;
    for (int id : mDirty) {
        auto saved = mSaved.find(id);
        // Without a record the feature was changed in place while untouched, so the store has it.
        const bool stored = saved == mSaved.end() || saved->second.has_value();
        auto it = mFeatures.find(id);
        if (it == mFeatures.end()) {
            if (stored) changes.push_back(TLFeatureChange{id, false, std::nullopt});
            continue;
        }
        changes.push_back(TLFeatureChange{id, !stored, it->second});
    }
    return changes;
}

bool TLFeatureTable::Save(TLString& error) {
    error = TLString();
    // A geometry lent out may have been changed in place inside a step that is still open: what
    // the user sees is what is saved.
    for (int id : mLent) weigh(id);
    const std::vector<TLFeatureChange> changes = PendingChanges();
    // On failure the changes stay pending, so that the user can try again or undo.
    if (mStore && !changes.empty() && !mStore->Commit(*this, changes, error)) return false;
    // The store now holds every feature as it is. A lent geometry may still change in place
    // without the table seeing it happen, so what the store holds of it is kept; of the rest the
    // working copy tells until the next write.
    std::map<int, std::optional<TLFeature>> kept;
    for (int id : mLent) {
        auto saved = mSaved.find(id);
        if (mDirty.count(id) == 0 && saved != mSaved.end())
            kept.emplace(id, std::move(saved->second));
        else if (const TLFeature* f = PeekFeature(id))
            kept.emplace(id, *f);
    }
    mSaved = std::move(kept);
    mDirty.clear();
    return true;
}

void TLFeatureTable::AddListener(TLFeatureTableListener* listener) {
    if (listener && std::find(mListeners.begin(), mListeners.end(), listener) == mListeners.end())
        mListeners.push_back(listener);
}

void TLFeatureTable::RemoveListener(TLFeatureTableListener* listener) {
    mListeners.erase(std::remove(mListeners.begin(), mListeners.end(), listener), mListeners.end());
}

void TLFeatureTable::notify(TLFeatureTableListener::Change change, int id) {
    // A listener may remove itself or another one while it is told.
    const std::vector<TLFeatureTableListener*> listeners = mListeners;
    for (TLFeatureTableListener* listener : listeners) {
        if (std::find(mListeners.begin(), mListeners.end(), listener) != mListeners.end())
            listener->OnFeatureChanged(this, change, id);
    }
}

void TLFeatureTable::indexInsert(int id, const TLFeature& f) {
    if (mIndex) mIndex->Insert(id, f.GetGeometry().get());
}

void TLFeatureTable::indexRemove(int id) {
    if (mIndex) mIndex->Remove(id);
}

void TLFeatureTable::keep(int id) {
    // A feature untouched since the last save is as the store holds it, or absent from both.
    if (mSaved.count(id) != 0 || mDirty.count(id) != 0) return;
    const TLFeature* f = PeekFeature(id);
    mSaved.emplace(id, f ? std::optional<TLFeature>(*f) : std::nullopt);
}

void TLFeatureTable::weigh(int id) {
    auto saved = mSaved.find(id);
    const TLFeature* now = PeekFeature(id);
    const bool same = saved != mSaved.end() &&
                      (saved->second ? now && now->SameContent(*saved->second) : now == nullptr);
    if (same)
        mDirty.erase(id);
    else
        mDirty.insert(id);
}

TLFeature TLFeatureTable::normalised(const TLFeature& f) const {
    TLFeature out;
    out.SetId(f.GetId());
    out.SetFields(mFields);
    out.SetGeometry(f.GetGeometry() ? f.GetGeometry()->Clone() : TLRefPtr<TLGeometry>());
    for (const auto& [name, value] : f.Values()) out.SetValue(name, value);
    return out;
}

}  // namespace TMObjects
