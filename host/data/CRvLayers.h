#pragma once

#include <memory>
#include <vector>

#include "data/CRvLayer.h"

namespace TMObjects {

class CvectorEntityArray;

// The layers of a package. Layers are numbered from 1 in the order they were added, and a
// layer's id is its number, so that a layer number, as the data operations take it, and the
// layer id an entity carries are the same thing.
class CRvLayers {
public:
    explicit CRvLayers(const CvectorEntityArray* entities) : mEntities(entities) {}

    // Adds a layer and returns its number.
    int add();
    int getSize() const { return int(mLayers.size()); }
    // The layer of that number; null when there is none.
    CRvLayer* getAt(int number) const;
    CRvLayer* FindLayerByID(int layerId) const { return getAt(layerId); }

private:
    const CvectorEntityArray* mEntities;
    std::vector<std::unique_ptr<CRvLayer>> mLayers;
};

}  // namespace TMObjects
