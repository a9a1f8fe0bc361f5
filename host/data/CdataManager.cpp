#include "data/CdataManager.h"

#include <cmath>

namespace TMObjects {

namespace {

double limitValue(double limit) {
    return std::isfinite(limit) && limit > 0.0 ? limit : 0.0;
}

}  // namespace

CdataManager::CdataManager() = default;

void CdataManager::set_dBoolLimit(double limit) {
    mBoolLimit = limitValue(limit);
}

void CdataManager::set_dPointLimit(double limit) {
    mPointLimit = limitValue(limit);
}

void CdataManager::set_dAreaLimit(double limit) {
    mAreaLimit = limitValue(limit);
}

void CdataManager::set_dLineLimit(double limit) {
    mLineLimit = limitValue(limit);
}

int CdataManager::package_Add() {
    return mPackages.add();
}

bool CdataManager::package_GetAt(int number, CvectorPackageData*& package) const {
    package = mPackages.getAt(number);
    return package != nullptr;
}

bool CdataManager::point_GetSize(int package, int entity, int& count) const {
    CvectorPackageData* data = mPackages.getAt(package);
    CvectorEntityData* chunk = data ? data->entity_GetAt(entity) : nullptr;
    count = chunk ? chunk->point_GetSize() : 0;
    return chunk != nullptr;
}

bool CdataManager::point_GetXY(int package, int entity, int index, double& x, double& y) const {
    CvectorPackageData* data = mPackages.getAt(package);
    CvectorEntityData* chunk = data ? data->entity_GetAt(entity) : nullptr;
    return chunk && chunk->point_GetXY(index, &x, &y);
}

CRvFields* CdataManager::layer_FieldGetLayerPt(int package, int layer) const {
    CvectorPackageData* data = mPackages.getAt(package);
    CRvLayer* found = data ? data->GetLayers().getAt(layer) : nullptr;
    return found ? &found->GetFields() : nullptr;
}

CRvFields* CdataManager::entity_GetAttribLayerPT(int package, int entity) const {
    CvectorPackageData* data = mPackages.getAt(package);
    CvectorEntityData* chunk = data ? data->entity_GetAt(entity) : nullptr;
    return chunk ? layer_FieldGetLayerPt(package, chunk->GetLayerID()) : nullptr;
}

}  // namespace TMObjects
