#include "data/CvectorPackageData.h"

#include "data/CdataNotBuilt.h"

namespace TMObjects {

int CvectorPackageData::compSurfaceChunk(const CvectorEntityData*, const CvectorEntityData*, int) {
    throw CdataNotBuilt("CvectorPackageData::compSurfaceChunk");
}

}  // namespace TMObjects
