#include "data/CdataManager.h"

#include "data/CdataNotBuilt.h"

namespace TMObjects {

int CdataManager::handMovementMeetEdge(int, int, int, int, int, double, double, double, double) {
    throw CdataNotBuilt("CdataManager::handMovementMeetEdge");
}

}  // namespace TMObjects
