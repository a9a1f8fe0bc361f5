#include "data/CcurrencyFunc.h"

#include "data/CdataNotBuilt.h"

namespace TMObjects {

double CcurrencyFunc::point_LineSpace(double, double, double, double, double, double, double*,
                                      double*, int) {
    throw CdataNotBuilt("CcurrencyFunc::point_LineSpace");
}

}  // namespace TMObjects
