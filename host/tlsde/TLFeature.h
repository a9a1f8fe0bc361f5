#pragma once

#include <map>
#include <memory>

#include "tlbase/TLRefBase.h"
#include "tlbase/TLVariant.h"
#include "tlgeo/TLGeometry.h"
#include "tlsde/TLField.h"

namespace TMObjects {

// A feature: an id, a geometry and attribute values by field name. A feature made by a tool
// carries its geometry only; a feature read from a table carries that table's fields.
// Copies are deep: a copy owns a clone of the geometry, so that what a table or an undo step keeps
// cannot be changed through a feature handed out to a tool.
class TLFeature : public virtual TLRefBase {
public:
    TLFeature() = default;
    // A new feature that carries `id` until a layer takes it in. The edit buffer gives every
    // feature it adds an id of its own, one the layer never had, whatever the feature carried:
    // so `TLFeature(1)` never lands on feature 1.
    explicit TLFeature(int id) : mId(id) {}
    TLFeature(const TLFeature& other);
    TLFeature& operator=(const TLFeature& other);
    TLFeature(TLFeature&& other) noexcept;
    TLFeature& operator=(TLFeature&& other) noexcept;

    void SetGeometry(TLRefPtr<TLGeometry> geometry) { mGeometry = geometry; }
    TLRefPtr<TLGeometry> GetGeometry() const { return mGeometry; }
    bool SetValue(const TLString& field, const TLVariant& value);
    TLVariant GetValue(const TLString& field) const;
    // By index of the table's fields; null without fields or out of range.
    TLVariant GetValue(int index) const;
    bool SetValue(int index, const TLVariant& value);
    int GetId() const { return mId; }
    void SetId(int id) { mId = id; }
    const TLFields* GetFields() const { return mFields.get(); }
    void SetFields(std::shared_ptr<const TLFields> fields) { mFields = std::move(fields); }
    // The values by name (field names in the case they were set with).
    const std::map<TLString, TLVariant>& Values() const { return mValues; }
    // True when both carry the same id, values and coordinates (parts, Z values included); a null
    // value is the same as none. Undo bookkeeping and the table's pending changes use it to tell
    // a real change from a write that put back what was there.
    bool SameContent(const TLFeature& other) const;

private:
    int mId = -1;
    TLRefPtr<TLGeometry> mGeometry;
    std::shared_ptr<const TLFields> mFields;
    std::map<TLString, TLVariant> mValues;
};

}  // namespace TMObjects
