#pragma once

#include "data/CRvFields.h"
#include "tlbase/TLString.h"

namespace TMObjects {

class CvectorEntityArray;
class CvectorEntityData;

// A layer of a package: a number, a kind (1 point, 3 line, 4 polygon), a name, the text of its
// data source, its fields, and the entities linked to it. The layer holds no entities of its own:
// an entity belongs to a layer by carrying its id (GetLayerID), and the chunk walk goes through
// the package's entity array in order.
class CRvLayer {
public:
    CRvLayer(int layerId, const CvectorEntityArray* entities);

    int GetLayerID() const { return mLayerId; }
    int GetLayerType() const { return mType; }
    void SetLayerType(int type) { mType = type; }
    TLString GetLayerName() const { return mName; }
    void SetLayerName(const TLString& name) { mName = name; }
    TLString GetDataSource() const { return mSource; }
    void SetDataSource(const TLString& source) { mSource = source; }
    CRvFields& GetFields() { return mFields; }
    const CRvFields& GetFields() const { return mFields; }

    // Links an entity to this layer.
    void AddChunk(CvectorEntityData* entity) const;
    // The first entity of the layer in package order, then the next one after the last handed
    // out; null at the end.
    CvectorEntityData* FirstChunk();
    CvectorEntityData* NextChunk();
    int GetChunkCount() const;

    // Makes the entity one of this layer's: links it, and gives it every field of the layer (a
    // field it has no value for gets an empty string; values it has are kept).
    void StandEbField(CvectorEntityData* entity) const;

private:
    int mLayerId;
    const CvectorEntityArray* mEntities;
    int mType = 0;
    TLString mName;
    TLString mSource;
    CRvFields mFields;
    int mWalk = -1;
};

}  // namespace TMObjects
