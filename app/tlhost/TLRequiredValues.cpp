#include "TLRequiredValues.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include "TLShellText.h"
#include "tlmap/TLFeatureLayer.h"
#include "tmgis/TLOgrFeatureStore.h"

namespace TMObjects {

QStringList TLRequiredValues::RequiredFields(TLFeatureLayer* layer) {
    TLRefPtr<TLFeatureTable> table = layer ? layer->GetDatasource() : nullptr;
    auto* store = table ? dynamic_cast<TLOgrFeatureStore*>(table->GetStore()) : nullptr;
    if (!store) return {};
    GDALAllRegister();
    GDALDatasetUniquePtr dataset(GDALDataset::Open(store->GetPath().toStdString().c_str(),
                                                   GDAL_OF_VECTOR | GDAL_OF_READONLY));
    OGRLayer* source =
        dataset ? dataset->GetLayerByName(store->GetLayerName().toStdString().c_str()) : nullptr;
    if (!source) return {};
    QStringList required;
    OGRFeatureDefn* definition = source->GetLayerDefn();
    for (int i = 0; i < definition->GetFieldCount(); ++i) {
        const OGRFieldDefn* field = definition->GetFieldDefn(i);
        // A default fills the value in by itself.
        if (!field->IsNullable() && !field->GetDefault())
            required << QString::fromUtf8(field->GetNameRef());
    }
    return required;
}

TLRequiredValues::Missing TLRequiredValues::FirstMissing(TLFeatureLayer* layer,
                                                         const QStringList& required) {
    Missing missing;
    if (required.isEmpty()) return missing;
    for (const TLFeatureChange& change : layer->GetDatasource()->PendingChanges()) {
        if (!change.after) continue;  // a deletion needs no value
        for (const QString& field : required) {
            if (!change.after->GetValue(ToTLString(field)).IsNull()) continue;
            if (missing.id < 0 || change.id < missing.id) missing = Missing{change.id, field};
            break;
        }
    }
    return missing;
}

}  // namespace TMObjects
