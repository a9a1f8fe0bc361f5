#pragma once

#include "tlbase/TLRefBase.h"

namespace TMObjects {

// The ellipsoid of a geographic coordinate system: its semi-major axis (the "major axis" the
// tools read, in metres) and its flattening.
class TLSpheroid : public TLRefBase {
public:
    TLSpheroid(double majorAxis, double flattening);
    ~TLSpheroid() override;

    virtual double GetMajorAxis() const;
    virtual double GetFlattening() const;
    double GetMinorAxis() const;

private:
    double mMajorAxis;
    double mFlattening;
};

}  // namespace TMObjects
