#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>

#include "tlbase/TLVariant.h"
#include "tlsde/TLFeature.h"

namespace TMObjects {

class TLFeatureLayer;
class TLLayerEditBuffer;

class TLEditor;
class TLFeatureTable;

// A feature open for editing: writes go through the edit buffer, so they are undoable.
class TLFeatureEditBuffer {
public:
    TLFeatureEditBuffer(TLLayerEditBuffer* buffer, int id) : mBuffer(buffer), mId(id) {}
    int GetId() const { return mId; }
    // The feature with its geometry shared with the layer: a change made in place to that
    // geometry is taken in (and undoable) when the editor's step ends. Empty once the feature is
    // gone.
    TLRefPtr<TLFeature> GetFeature() const;
    bool SetValue(const TLString& field, const TLVariant& value);
    TLVariant GetValue(const TLString& field) const;
    bool SetGeometry(TLRefPtr<TLGeometry> geometry);

private:
    TLLayerEditBuffer* mBuffer;
    int mId;
};

// All writes to a feature layer. Each write is recorded in the map editor's open operation
// (or as a step of its own when none is open), so that undo and redo can restore it exactly.
class TLLayerEditBuffer {
public:
    explicit TLLayerEditBuffer(TLFeatureLayer* layer);
    ~TLLayerEditBuffer();

    // Appends the feature and writes the id it got back into it. `notify` tells the layer's
    // observers. Every write is recorded whatever `recordUndo` says: a write left out of a step
    // would make undoing that step restore a layer that never existed. The feature gets a fresh
    // id, never the one it carried. A shape with a coordinate that is no finite number is
    // refused: the feature is not added, keeps its id, and the editor's listeners hear why (the
    // host shows it on the command window).
    void AddFeature(TLFeature& feature, bool notify, bool recordUndo);
    void DeleteFeature(const int& id, bool notify, bool recordUndo);
    // A null geometry is refused: it would silently wipe the feature's shape. So is one with a
    // coordinate that is no finite number, with word to the editor's listeners.
    void changeGeometry(const int& id, TLRefPtr<TLGeometry> geometry, bool notify);
    // False for an unknown feature or field, or a field the store keeps itself (id, geometry).
    bool ChangeAttribute(const int& id, const TLString& field, const TLVariant& value, bool notify);
    // All or nothing: one bad name and no value is written.
    bool ChangeAttributes(const int& id, const std::map<TLString, TLVariant>& values, bool notify);
    // True when the feature exists (in the working copy of the layer), or, with
    // `includeDeleted`, was deleted since the last save.
    bool FeatureInBuffer(const int& id, bool includeDeleted) const;
    // Null when there is no such feature; the object lives as long as the buffer.
    TLFeatureEditBuffer* GetActiveEditFeatureByFeatureId(const int& id) const;

    // The feature with its geometry shared with the layer (see TLFeatureEditBuffer::GetFeature).
    TLRefPtr<TLFeature> OpenFeature(int id);
    // Without a map there is no editor to take in changes made in place: the layer's next write,
    // commit or save does it here.
    void FlushOpened();

    TLFeatureLayer* GetLayer() const { return mLayer; }

private:
    TLFeatureTable* table() const;
    TLEditor* editor() const;
    void record(int id, std::optional<TLFeature> before, const TLString& label);
    void changed(bool notify);
    TLFeatureLayer* mLayer;
    mutable std::map<int, std::unique_ptr<TLFeatureEditBuffer>> mActive;
    std::set<int> mOpened;
};

}  // namespace TMObjects
