#include "tlmap/TLAnnotationLayer.h"

#include <cmath>

#include "tlmap/TLAnnoMgrTool.h"

namespace TMObjects {

TLAnnotationLayer::TLAnnotationLayer(const TLString& name, TLRefPtr<TLFeatureTable> table,
                                     TLRefPtr<TLCoordinateSystem> reference, int fieldKind,
                                     double referenceScale, int geoType)
    : TLFeatureLayer(name, AnnotationLayer, table, reference),
      annoFieldKind(fieldKind),
      mGeoType(geoType) {
    SetReferenceScale(referenceScale);
}

TLAnnotationLayer::~TLAnnotationLayer() = default;

TLAnnotationLayer* TLAnnotationLayer::CreateMemoryLayer(const TLString& name, const TLFields& extra,
                                                        TLRefPtr<TLCoordinateSystem> reference,
                                                        int fieldKind, double referenceScale,
                                                        int geoType) {
    TLFields fields = extra;
    TLAnnoMgrTool::AddAnnotationFields(fieldKind, fields);
    auto* layer =
        new TLAnnotationLayer(name, TLRefPtr<TLFeatureTable>(new TLFeatureTable(name, fields)),
                              reference, fieldKind, referenceScale, geoType);
    layer->SetEditable(true);
    return layer;
}

bool TLAnnotationLayer::SetReferenceScale(double scale) {
    if (!(scale > 0) || !std::isfinite(scale)) return false;
    mReferenceScale = scale;
    return true;
}

bool TLAnnotationLayer::ReadTextElement(int id, TLAnnotation& record) const {
    TLRefPtr<TLFeature> feature = GetFeature(id);
    if (!feature) return false;
    record.reset();
    TLAnnoMgrTool::SetZjInfoFromField(annoFieldKind, record, *feature);
    return true;
}

TLAnnotation* TLAnnotationLayer::GetAnnoTextElement(int id) {
    auto kept = mRecords.find(id);
    if (kept != mRecords.end()) {
        if (GetFeature(id)) return &kept->second;
        mRecords.erase(kept);
        return nullptr;
    }
    TLAnnotation record;
    if (!ReadTextElement(id, record)) return nullptr;
    return &(mRecords[id] = record);
}

TLAnnotation* TLAnnotationLayer::GetFreshTextElement(int id) {
    TLAnnotation* record = GetAnnoTextElement(id);
    if (record && record->mDirty) {
        ReadTextElement(id, *record);
        record->mDirty = false;
    }
    return record;
}

void TLAnnotationLayer::SetAnnotationDirty(int id, bool dirty) {
    if (TLAnnotation* record = GetAnnoTextElement(id)) record->mDirty = dirty;
}

bool TLAnnotationLayer::IsAnnotationDirty(int id) const {
    auto kept = mRecords.find(id);
    return kept != mRecords.end() && kept->second.mDirty;
}

}  // namespace TMObjects
