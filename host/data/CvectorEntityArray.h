#pragma once

#include <memory>
#include <vector>

#include "data/CvectorEntityData.h"

namespace TMObjects {

// The entities of a package, owned, by 0-based index. A pointer handed out stays valid until its
// entity is removed or the array goes.
class CvectorEntityArray {
public:
    int getSize() const { return int(mEntities.size()); }
    // Null for an index out of range.
    CvectorEntityData* getAt(int index) const;
    // Appends a new empty entity and returns its index.
    int add();
    // Takes ownership and returns the index.
    int add(std::unique_ptr<CvectorEntityData> entity);
    // The index of an entity held here; -1 when it is not.
    int indexOf(const CvectorEntityData* entity) const;
    bool removeAt(int index);
    void removeAll() { mEntities.clear(); }

private:
    std::vector<std::unique_ptr<CvectorEntityData>> mEntities;
};

}  // namespace TMObjects
