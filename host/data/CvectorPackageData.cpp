#include "data/CvectorPackageData.h"

namespace TMObjects {

CvectorPackageData::CvectorPackageData() : mLayers(&mEntities) {}

int CvectorPackageData::entity_Add(int count) {
    const int first = mEntities.getSize();
    for (int i = 0; i < (count < 1 ? 1 : count); ++i) mEntities.add();
    return first;
}

bool CvectorPackageData::entity_GetAt(int index, CvectorEntityData*& entity) const {
    entity = mEntities.getAt(index);
    return entity != nullptr;
}

bool CvectorPackageData::entity_SetAt(int index, const CvectorEntityData* entity) {
    CvectorEntityData* slot = mEntities.getAt(index);
    if (!slot || !entity) return false;
    if (slot != entity) *slot = *entity;
    return true;
}

bool CvectorPackageData::entity_RemoveAt(int index) {
    return mEntities.removeAt(index);
}

bool CvectorPackageData::entity_Remove(const CvectorEntityData* entity) {
    return mEntities.removeAt(mEntities.indexOf(entity));
}

void CvectorPackageData::package_CalcEntityBox() {
    for (int i = 0; i < mEntities.getSize(); ++i) mEntities.getAt(i)->entity_CalcBox();
}

CRvLayer* CvectorPackageData::CreateEbpLayer(const TLString& name, const CRvFields* fields) {
    CRvLayer* layer = mLayers.getAt(mLayers.add());
    layer->SetLayerName(name);
    if (fields) layer->GetFields() = *fields;
    return layer;
}

}  // namespace TMObjects
