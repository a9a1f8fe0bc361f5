#include "data/CcurrencyFunc.h"

#include "data/CdataNotBuilt.h"

namespace TMObjects {

double CcurrencyFunc::point_EdgeSpace(double, double, double, double, double, double, double*,
                                      double*) {
    throw CdataNotBuilt("CcurrencyFunc::point_EdgeSpace");
}

}  // namespace TMObjects
