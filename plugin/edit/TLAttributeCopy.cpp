#include "edit/TLAttributeCopy.h"

#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlsde/TLFeature.h"

namespace TMObjects {

void TLAttributeCopy::Copy(const TLFeature& from, TLFeature& to, bool skipNull) {
    const TLFields* fields = from.GetFields();
    if (!fields) return;
    for (int i = 0; i < fields->GetFieldCount(); ++i) {
        const TLField* field = fields->GetField(i);
        if (!field || field->IsGeoField() || field->IsSystemField()) continue;
        const TLVariant value = from.GetValue(i);
        if (skipNull && value.IsNull()) continue;
        to.SetValue(field->GetName(), value);
    }
}

bool TLAttributeCopy::AddPiece(TLFeatureLayer* layer, int oldId, TLRefPtr<TLGeometry> piece) {
    TLFeature feature;
    feature.SetGeometry(piece);
    TLRefPtr<TLFeature> old = layer->GetFeature(oldId);
    if (!old) return false;
    Copy(*old, feature);
    layer->layer_edit_buffer()->AddFeature(feature, true, true);
    return true;
}

}  // namespace TMObjects
