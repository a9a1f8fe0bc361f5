#include "data/CparameterSet.h"

#include "data/CdataNotBuilt.h"

namespace TMObjects {

double CparameterSet::commonDot(int) {
    throw CdataNotBuilt("CparameterSet::commonDot");
}

}  // namespace TMObjects
