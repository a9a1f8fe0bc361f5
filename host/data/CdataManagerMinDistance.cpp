#include "data/CdataManager.h"

#include "data/CdataNotBuilt.h"

namespace TMObjects {

int CdataManager::entity_GetMinDistance(int, int, double, double, double&, double&, double&) const {
    throw CdataNotBuilt("CdataManager::entity_GetMinDistance");
}

}  // namespace TMObjects
