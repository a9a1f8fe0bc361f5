#include "edit/TLAttributeCopy.h"

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

}  // namespace TMObjects
