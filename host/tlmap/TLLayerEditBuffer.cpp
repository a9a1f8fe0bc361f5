#include "tlmap/TLLayerEditBuffer.h"

#include <cmath>

#include "tlbase/TLCoordinateLimit.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlsde/TLFeatureTable.h"

namespace TMObjects {

namespace {

std::optional<TLFeature> snapshot(const TLFeatureTable* table, int id) {
    const TLFeature* f = table->PeekFeature(id);
    return f ? std::optional<TLFeature>(*f) : std::nullopt;
}

// The field a write may set: known, and not one the store keeps itself.
const TLField* writableField(const TLFeatureTable* table, const TLString& name) {
    const int index = table->GetFields().FindField(name);
    if (index < 0) return nullptr;
    const TLField* field = table->GetFields().GetField(index);
    return field->IsSystemField() || field->IsGeoField() ? nullptr : field;
}

// Coordinates that are no numbers (a circle through three points on one level), or too large for
// any store or projection (a typed 1e308), make no shape a store can keep or a reader can draw:
// such a write is refused rather than stored as junk. Null when the shape is usable, else what is
// wrong with it.
const char* const kNotFinite = "the shape has a coordinate that is not a finite number.";

const char* unusableShape(TLGeometry* geometry) {
    double* xy = nullptr;
    int count = 0;
    if (!geometry || !geometry->GetRawPoints(&xy, count) || !xy) return nullptr;
    for (int i = 0; i < 2 * count; ++i) {
        if (!std::isfinite(xy[i])) return kNotFinite;
        if (!TLUsableCoordinate(xy[i]))
            return "the shape has a coordinate beyond 1e15, which no store or projection can "
                   "hold.";
    }
    return nullptr;
}

// The write is not done; the editor's listeners hear why (the host shows it on the command
// window).
void refuse(TLEditor* editor, const TLString& layer, const char* verb, const char* why) {
    if (editor)
        editor->ReportRefusal(TLString("No feature was ") + TLString(verb) + TLString(" in ") +
                              layer + TLString(": ") + TLString(why));
}

}  // namespace

TLRefPtr<TLFeature> TLFeatureEditBuffer::GetFeature() const {
    return mBuffer->OpenFeature(mId);
}

bool TLFeatureEditBuffer::SetValue(const TLString& field, const TLVariant& value) {
    return mBuffer->ChangeAttribute(mId, field, value, false);
}

TLVariant TLFeatureEditBuffer::GetValue(const TLString& field) const {
    const TLFeature* f = mBuffer->GetLayer()->GetDatasource()->PeekFeature(mId);
    return f ? f->GetValue(field) : TLVariant();
}

bool TLFeatureEditBuffer::SetGeometry(TLRefPtr<TLGeometry> geometry) {
    if (!geometry || !mBuffer->FeatureInBuffer(mId, false)) return false;
    mBuffer->changeGeometry(mId, geometry, false);
    return true;
}

TLLayerEditBuffer::TLLayerEditBuffer(TLFeatureLayer* layer) : mLayer(layer) {}

TLLayerEditBuffer::~TLLayerEditBuffer() = default;

void TLLayerEditBuffer::AddFeature(TLFeature& feature, bool notify, bool) {
    if (const char* why = unusableShape(feature.GetGeometry().get())) {
        refuse(editor(), mLayer->GetLayerName(), "added", why);
        return;
    }
    FlushOpened();
    // A new feature never takes the id it carries: that one may have belonged to a feature
    // deleted before, and undo, the store and the user would mix the two up.
    feature.SetId(-1);
    const int id = table()->Insert(feature);
    feature.SetId(id);
    record(id, std::nullopt, "add feature");
    changed(notify);
}

void TLLayerEditBuffer::DeleteFeature(const int& id, bool notify, bool) {
    FlushOpened();
    std::optional<TLFeature> before = snapshot(table(), id);
    if (!before || !table()->Delete(id)) return;
    record(id, std::move(before), "delete feature");
    changed(notify);
}

void TLLayerEditBuffer::changeGeometry(const int& id, TLRefPtr<TLGeometry> geometry, bool notify) {
    if (!geometry) return;
    if (const char* why = unusableShape(geometry.get())) {
        refuse(editor(), mLayer->GetLayerName(), "changed", why);
        return;
    }
    FlushOpened();
    std::optional<TLFeature> before = snapshot(table(), id);
    if (!before || !table()->SetGeometry(id, geometry)) return;
    record(id, std::move(before), "change geometry");
    changed(notify);
}

bool TLLayerEditBuffer::ChangeAttribute(const int& id, const TLString& field,
                                        const TLVariant& value, bool notify) {
    return ChangeAttributes(id, {{field, value}}, notify);
}

bool TLLayerEditBuffer::ChangeAttributes(const int& id, const std::map<TLString, TLVariant>& values,
                                         bool notify) {
    FlushOpened();
    TLFeatureTable* t = table();
    std::optional<TLFeature> before = snapshot(t, id);
    if (!before) return false;
    for (const auto& entry : values)
        if (!writableField(t, entry.first)) return false;
    bool any = false;
    for (const auto& [name, value] : values) {
        // Writing back what is there changes nothing, and must not cost an undo step.
        if (writableField(t, name)->Coerce(value) == before->GetValue(name)) continue;
        t->SetValue(id, name, value);
        any = true;
    }
    if (!any) return true;
    record(id, std::move(before), values.size() == 1 ? "change attribute" : "change attributes");
    changed(notify);
    return true;
}

bool TLLayerEditBuffer::FeatureInBuffer(const int& id, bool includeDeleted) const {
    return table()->HasFeature(id) || (includeDeleted && table()->IsDeleted(id));
}

TLFeatureEditBuffer* TLLayerEditBuffer::GetActiveEditFeatureByFeatureId(const int& id) const {
    if (!table()->HasFeature(id)) return nullptr;
    auto& slot = mActive[id];
    if (!slot)
        slot = std::make_unique<TLFeatureEditBuffer>(const_cast<TLLayerEditBuffer*>(this), id);
    return slot.get();
}

TLRefPtr<TLFeature> TLLayerEditBuffer::OpenFeature(int id) {
    TLFeatureTable* t = table();
    const TLFeature* f = t->PeekFeature(id);
    if (!f) return TLRefPtr<TLFeature>();
    t->Lend(id);
    if (TLEditor* e = editor())
        e->WatchFeature(t, id);
    else
        mOpened.insert(id);
    TLRefPtr<TLFeature> live(new TLFeature());
    live->SetId(id);
    live->SetFields(t->GetFieldsPtr());
    for (const auto& [name, value] : f->Values()) live->SetValue(name, value);
    live->SetGeometry(f->GetGeometry());
    return live;
}

void TLLayerEditBuffer::FlushOpened() {
    for (int id : mOpened) table()->Touch(id);
    mOpened.clear();
}

TLFeatureTable* TLLayerEditBuffer::table() const {
    return mLayer->GetDatasource().get();
}

TLEditor* TLLayerEditBuffer::editor() const {
    return mLayer->GetMap() ? mLayer->GetMap()->editor() : nullptr;
}

void TLLayerEditBuffer::record(int id, std::optional<TLFeature> before, const TLString& label) {
    TLEditor* e = editor();
    if (!e) return;
    e->RecordChange(table(), id, std::move(before), snapshot(table(), id), label);
}

void TLLayerEditBuffer::changed(bool notify) {
    if (notify) mLayer->NotifyObservers(TLFeatureLayer::HintFeaturesChanged);
}

}  // namespace TMObjects
