#pragma once

#include "data/CRvLayers.h"
#include "data/CvectorEntityArray.h"

namespace TMObjects {

// A package: layers and the entities linked to them. The package owns its entities; a pointer
// from entity_GetAt stays valid until that entity is removed.
class CvectorPackageData {
public:
    CvectorPackageData();
    CvectorPackageData(const CvectorPackageData&) = delete;
    CvectorPackageData& operator=(const CvectorPackageData&) = delete;

    CRvLayers& GetLayers() { return mLayers; }
    const CRvLayers& GetLayers() const { return mLayers; }
    CvectorEntityArray& GetEntities() { return mEntities; }
    const CvectorEntityArray& GetEntities() const { return mEntities; }

    // Appends `count` empty entities (at least one) and returns the index of the first.
    int entity_Add(int count);
    // Null, and false, for an index out of range.
    CvectorEntityData* entity_GetAt(int index) const { return mEntities.getAt(index); }
    bool entity_GetAt(int index, CvectorEntityData*& entity) const;
    int entity_GetSize() const { return mEntities.getSize(); }
    // Makes the entity at `index` a copy of `entity` (geometry, attributes, layer, flags, handle
    // and sources); false for an index out of range or a null entity.
    bool entity_SetAt(int index, const CvectorEntityData* entity);
    bool entity_RemoveAt(int index);
    // Removes an entity held by this package; false when it is not held here.
    bool entity_Remove(const CvectorEntityData* entity);

    // Computes the box of every entity.
    void package_CalcEntityBox();

    // Adds a layer of that name and returns it; `fields`, when given, are copied into it.
    CRvLayer* CreateEbpLayer(const TLString& name, const CRvFields* fields);

    // Which side of `line` the polygon `chunk` lies on: 0 when the line does not bound it (no
    // stretch of the line, longer than the rounding of the coordinates, runs along the chunk's
    // outline), 1 when the chunk lies on the line's left there, -1 on its right. The first such
    // stretch along the line decides. `mode` 0 is the plane test, the only one.
    int compSurfaceChunk(const CvectorEntityData* line, const CvectorEntityData* chunk, int mode);

private:
    CvectorEntityArray mEntities;
    CRvLayers mLayers;
};

}  // namespace TMObjects
