#include "data/CRvLayers.h"

namespace TMObjects {

int CRvLayers::add() {
    const int number = getSize() + 1;
    mLayers.push_back(std::make_unique<CRvLayer>(number, mEntities));
    return number;
}

CRvLayer* CRvLayers::getAt(int number) const {
    if (number < 1 || number > getSize()) return nullptr;
    return mLayers[std::size_t(number) - 1].get();
}

}  // namespace TMObjects
