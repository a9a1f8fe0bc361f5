#include "data/CdataManager.h"

#include "data/CdataNotBuilt.h"

namespace TMObjects {

int CdataManager::point_InLine(const CvectorEntityData*, double, double) const {
    throw CdataNotBuilt("CdataManager::point_InLine");
}

}  // namespace TMObjects
