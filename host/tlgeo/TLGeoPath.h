#pragma once

#include <vector>

#include "tlbase/TLPoint.h"
#include "tlbase/TLRefBase.h"

namespace TMObjects {

// One path of a polyline (TLGeoPath) or one ring of a polygon (TLGeoRing), as a copy of its
// points.
class TLGeoPath : public TLRefBase {
public:
    TLGeoPath() = default;
    TLGeoPath(const double* xy, int count);

    int GetPointCount() const { return int(mXY.size() / 2); }
    TLPoint GetPoint(int i) const { return TLPoint(mXY[2 * i], mXY[2 * i + 1]); }
    bool GetRawPoints(double** points, int& count);
    bool IsClosed() const;
    double GetLength() const;

protected:
    std::vector<double> mXY;
};

class TLGeoRing : public TLGeoPath {
public:
    using TLGeoPath::TLGeoPath;
    // Signed shoelace area: positive when the ring runs counter-clockwise.
    double GetSignedArea() const;
    double GetArea() const;
    bool IsClockwise() const { return GetSignedArea() < 0; }
};

}  // namespace TMObjects
