#include "data/CdataManager.h"

#include "data/CdataNotBuilt.h"

namespace TMObjects {

int CdataManager::twoBoolOperate(int, int, int, int, int) {
    throw CdataNotBuilt("CdataManager::twoBoolOperate");
}

}  // namespace TMObjects
