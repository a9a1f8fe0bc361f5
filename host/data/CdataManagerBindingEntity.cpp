#include "data/CdataManager.h"

#include "data/CdataNotBuilt.h"

namespace TMObjects {

int CdataManager::package_BindingEntity(int, int) {
    throw CdataNotBuilt("CdataManager::package_BindingEntity");
}

}  // namespace TMObjects
