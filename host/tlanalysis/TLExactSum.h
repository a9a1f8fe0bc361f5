#pragma once

#include <cmath>

namespace TMObjects {

// A sum of many small positive terms kept exact to the last bits (Neumaier's compensated sum):
// a million triangle areas or path pieces add up without the drift of a plain sum.
class TLExactSum {
public:
    void Add(double term) {
        const double t = mSum + term;
        mCompensation += std::fabs(mSum) >= std::fabs(term) ? (mSum - t) + term : (term - t) + mSum;
        mSum = t;
    }
    double Value() const { return mSum + mCompensation; }

private:
    double mSum = 0.0;
    double mCompensation = 0.0;
};

}  // namespace TMObjects
