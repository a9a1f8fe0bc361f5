#include "data/CdataManager.h"

#include "data/CdataNotBuilt.h"

namespace TMObjects {

int CdataManager::currDataTopoOperate(int, double, double, int, int, int) {
    throw CdataNotBuilt("CdataManager::currDataTopoOperate");
}

}  // namespace TMObjects
