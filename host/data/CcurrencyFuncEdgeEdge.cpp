#include "data/CcurrencyFunc.h"

#include "data/CdataNotBuilt.h"

namespace TMObjects {

int CcurrencyFunc::edge_edge(double, double, double, double, double, double, double, double,
                             double*, double*, double) {
    throw CdataNotBuilt("CcurrencyFunc::edge_edge");
}

}  // namespace TMObjects
