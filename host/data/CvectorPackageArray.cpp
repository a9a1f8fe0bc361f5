#include "data/CvectorPackageArray.h"

namespace TMObjects {

CvectorPackageData* CvectorPackageArray::getAt(int number) const {
    if (number < 0 || number >= getSize()) return nullptr;
    return mPackages[std::size_t(number)].get();
}

int CvectorPackageArray::add() {
    mPackages.push_back(std::make_unique<CvectorPackageData>());
    return getSize() - 1;
}

}  // namespace TMObjects
