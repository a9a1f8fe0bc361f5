#include "data/CHelper.h"

#include "data/CdataNotBuilt.h"

namespace TMObjects {

int CHelper::copyDataToPackage(TLFeatureLayer*, CvectorPackageData*, CRvLayer*, bool,
                               TLQueryFilter*) {
    throw CdataNotBuilt("CHelper::copyDataToPackage");
}

}  // namespace TMObjects
