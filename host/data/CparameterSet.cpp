#include "data/CparameterSet.h"

#include <cmath>

namespace TMObjects {

double CparameterSet::commonDot(int digits) {
    return std::pow(10.0, -double(digits));
}

}  // namespace TMObjects
