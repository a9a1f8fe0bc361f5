#pragma once

#include <memory>
#include <vector>

#include "data/CvectorPackageData.h"

namespace TMObjects {

// The packages of a manager, owned, by 0-based number.
class CvectorPackageArray {
public:
    int getSize() const { return int(mPackages.size()); }
    // Null for a number out of range.
    CvectorPackageData* getAt(int number) const;
    // Appends an empty package and returns its number.
    int add();

private:
    std::vector<std::unique_ptr<CvectorPackageData>> mPackages;
};

}  // namespace TMObjects
