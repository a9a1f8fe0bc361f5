#include "edit/TLSnipPackage.h"

#include "data/CHelper.h"
#include "data/CdataManager.h"
#include "data/TLTopoCheckCommonFunc.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

namespace {

constexpr int kLineLayer = 3;
constexpr int kStringField = 4;

}  // namespace

TLSnipPackage::TLSnipPackage(TLTool& tool) : mManager(std::make_unique<CdataManager>()) {
    const double boolLimit = tool.ToMapTolerance(mManager->get_dBoolLimit());
    const double pointLimit = tool.ToMapTolerance(mManager->get_dPointLimit());
    const double areaLimit = tool.ToMapTolerance(mManager->get_dAreaLimit());
    const double lineLimit = tool.ToMapTolerance(mManager->get_dLineLimit());
    mManager->set_dAreaLimit(areaLimit);
    mManager->set_dLineLimit(lineLimit);
    mManager->set_dBoolLimit(boolLimit);
    mManager->set_dPointLimit(pointLimit);
    mNumber = mManager->package_Add();
    mManager->setCurrPackageNo(mNumber);
    mManager->package_GetAt(mNumber, mPackage);
}

TLSnipPackage::~TLSnipPackage() = default;

void TLSnipPackage::SetTarget(TLGeometry* target) {
    mTargetLayer = mPackage->GetLayers().add();
    CRvLayer* layer = mPackage->GetLayers().getAt(mTargetLayer);
    layer->SetLayerType(kLineLayer);
    layer->GetFields().AddAttField("id", "id", kStringField, 10, 1, 1, 0);
    CvectorEntityData* entity = nullptr;
    mPackage->entity_GetAt(mPackage->entity_Add(1), entity);
    CHelper::TmPolylineToChunkData(target, entity, false);
    layer->AddChunk(entity);
    entity->entity_ForeWard();
}

CvectorEntityData* TLSnipPackage::AddCutterEntity() {
    mCutterLayer = mPackage->GetLayers().add();
    CutterLayer()->SetLayerType(kLineLayer);
    CvectorEntityData* entity = nullptr;
    mPackage->entity_GetAt(mPackage->entity_Add(1), entity);
    return entity;
}

CRvLayer* TLSnipPackage::CutterLayer() const {
    return mPackage->GetLayers().getAt(mCutterLayer);
}

bool TLSnipPackage::Snip(std::vector<TLRefPtr<TLGeoPolyline>>& pieces) {
    TLTopoCheckCommonFunc::PreprocessingDataForOverlay(mPackage);
    mManager->lineLayerSniplineLayer(mNumber, mTargetLayer, mCutterLayer, 1);
    int size = 0;
    mManager->package_GetSize(size);
    if (size - 1 == mNumber) return false;
    CvectorPackageData* result = nullptr;
    mManager->package_GetAt(size - 1, result);
    for (int i = 0; i < result->entity_GetSize(); ++i) {
        CvectorEntityData* entity = result->entity_GetAt(i);
        if (entity->point_GetSize() <= 1) continue;
        TLRefPtr<TLGeoPolyline> line = CHelper::ChunkDataToTmPolyline(entity, false, false, false);
        if (line) pieces.push_back(line);
    }
    return true;
}

}  // namespace TMObjects
