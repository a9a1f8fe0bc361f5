#include <algorithm>
#include <vector>

#include "data/CHelper.h"
#include "data/CRvLayer.h"
#include "data/CvectorPackageData.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlsde/TLFeatureTable.h"

namespace TMObjects {

namespace {

// One feature as an entity of the package: its geometry, its values as text by field name, its
// id as "OID" and as the handle, and every field of the package layer.
void copyFeature(const TLFeature& feature, CvectorPackageData* package, CRvLayer* rvLayer) {
    CvectorEntityData* entity = package->entity_GetAt(package->entity_Add(1));
    CHelper::TmGeometryToChunkData(feature.GetGeometry().get(), entity, false);
    for (const auto& [name, value] : feature.Values())
        entity->entity_SetAttribValueByName(name, value.ToString());
    entity->entity_SetAttribValueByName(TLString("OID"), TLString::Number(feature.GetId()));
    entity->entity_SetHandle(feature.GetId());
    if (rvLayer) rvLayer->StandEbField(entity);
}

}  // namespace

int CHelper::copyDataToPackage(TLFeatureLayer* layer, CvectorPackageData* package,
                               CRvLayer* rvLayer, bool selectedOnly, TLQueryFilter* filter) {
    if (!layer || !package) return 0;
    // The features in the table's order: those passing the filter, of the selection when asked.
    std::vector<int> ids = layer->GetDatasource()->Search(filter ? *filter : TLQueryFilter());
    if (selectedOnly)
        ids.erase(std::remove_if(ids.begin(), ids.end(),
                                 [layer](int id) { return !layer->IsSelected(id); }),
                  ids.end());
    int copied = 0;
    for (int id : ids) {
        TLRefPtr<TLFeature> feature = layer->GetFeature(id);
        if (!feature) continue;
        copyFeature(*feature, package, rvLayer);
        ++copied;
    }
    return copied;
}

}  // namespace TMObjects
