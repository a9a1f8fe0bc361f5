#pragma once

#include <map>
#include <memory>
#include <optional>

#include "tlbase/TLVariant.h"
#include "tlsde/TLFeature.h"

namespace TMObjects {

class TLFeatureLayer;
class TLLayerEditBuffer;

// A feature open for editing: writes go through the edit buffer, so they are undoable.
class TLFeatureEditBuffer {
public:
    TLFeatureEditBuffer(TLLayerEditBuffer* buffer, int id) : mBuffer(buffer), mId(id) {}
    int GetId() const { return mId; }
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

    // Appends the feature and writes the id it got back into it.
    void AddFeature(TLFeature& feature, bool notify, bool recordUndo);
    void DeleteFeature(const int& id, bool notify, bool recordUndo);
    void changeGeometry(const int& id, TLRefPtr<TLGeometry> geometry, bool notify);
    bool ChangeAttribute(const int& id, const TLString& field, const TLVariant& value, bool notify);
    bool ChangeAttributes(const int& id, const std::map<TLString, TLVariant>& values, bool notify);
    // True when the feature exists (in the working copy of the layer).
    bool FeatureInBuffer(const int& id, bool includeDeleted) const;
    TLFeatureEditBuffer* GetActiveEditFeatureByFeatureId(const int& id) const;

    TLFeatureLayer* GetLayer() const { return mLayer; }

private:
    void record(int id, std::optional<TLFeature> before);
    TLFeatureLayer* mLayer;
    mutable std::map<int, std::unique_ptr<TLFeatureEditBuffer>> mActive;
};

}  // namespace TMObjects
