#include "tlsparef/TLSpheroid.h"

namespace TMObjects {

TLSpheroid::TLSpheroid(double majorAxis, double flattening)
    : mMajorAxis(majorAxis), mFlattening(flattening) {}

TLSpheroid::~TLSpheroid() = default;

double TLSpheroid::GetMajorAxis() const {
    return mMajorAxis;
}

double TLSpheroid::GetFlattening() const {
    return mFlattening;
}

double TLSpheroid::GetMinorAxis() const {
    return mMajorAxis * (1.0 - mFlattening);
}

}  // namespace TMObjects
