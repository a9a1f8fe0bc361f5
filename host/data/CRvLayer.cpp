#include "data/CRvLayer.h"

#include "data/CvectorEntityArray.h"

namespace TMObjects {

CRvLayer::CRvLayer(int layerId, const CvectorEntityArray* entities)
    : mLayerId(layerId), mEntities(entities) {}

void CRvLayer::AddChunk(CvectorEntityData* entity) const {
    if (entity) entity->SetLayerID(mLayerId);
}

CvectorEntityData* CRvLayer::FirstChunk() {
    mWalk = -1;
    return NextChunk();
}

CvectorEntityData* CRvLayer::NextChunk() {
    if (!mEntities) return nullptr;
    while (++mWalk < mEntities->getSize()) {
        CvectorEntityData* entity = mEntities->getAt(mWalk);
        if (entity->GetLayerID() == mLayerId) return entity;
    }
    return nullptr;
}

int CRvLayer::GetChunkCount() const {
    int count = 0;
    for (int i = 0; mEntities && i < mEntities->getSize(); ++i)
        if (mEntities->getAt(i)->GetLayerID() == mLayerId) ++count;
    return count;
}

void CRvLayer::StandEbField(CvectorEntityData* entity) const {
    if (!entity) return;
    AddChunk(entity);
    for (int i = 0; i < mFields.getSize(); ++i) {
        const TLString& name = mFields.getAt(i)->name;
        if (!entity->entity_HasAttrib(name)) entity->entity_SetAttribValueByName(name, TLString());
    }
}

}  // namespace TMObjects
