#include "data/CvectorEntityArray.h"

namespace TMObjects {

CvectorEntityData* CvectorEntityArray::getAt(int index) const {
    if (index < 0 || index >= getSize()) return nullptr;
    return mEntities[std::size_t(index)].get();
}

int CvectorEntityArray::add() {
    return add(std::make_unique<CvectorEntityData>());
}

int CvectorEntityArray::add(std::unique_ptr<CvectorEntityData> entity) {
    if (!entity) return -1;
    mEntities.push_back(std::move(entity));
    return getSize() - 1;
}

int CvectorEntityArray::indexOf(const CvectorEntityData* entity) const {
    for (int i = 0; i < getSize(); ++i)
        if (mEntities[std::size_t(i)].get() == entity) return i;
    return -1;
}

bool CvectorEntityArray::removeAt(int index) {
    if (index < 0 || index >= getSize()) return false;
    mEntities.erase(mEntities.begin() + index);
    return true;
}

}  // namespace TMObjects
