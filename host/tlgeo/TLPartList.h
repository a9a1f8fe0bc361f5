#pragma once

#include <vector>

#include "tlbase/TLPoint.h"
#include "tlbase/TLRect.h"

namespace TMObjects {

// The coordinates of a multi-part geometry: one interleaved (x, y) array through all parts, the
// raw index where each part starts, and optional Z values. Polylines and polygons share it.
class TLPartList {
public:
    int PartCount() const { return int(mStarts.size()); }
    int PointCount() const { return int(mXY.size() / 2); }
    int PartStart(int part) const { return mStarts[std::size_t(part)]; }
    int PartSize(int part) const;
    TLPoint Point(int rawIndex) const { return TLPoint(mXY[2 * rawIndex], mXY[2 * rawIndex + 1]); }

    void BeginPart() { mStarts.push_back(PointCount()); }
    // Appends to the last part, opening one when there is none.
    void Add(double x, double y);
    void AddPart(const double* xy, int count);
    void Clear();
    // Drops parts without points; polygons also drop rings of fewer than three distinct points.
    void DropEmptyParts();
    void CloseRings();

    double* Raw() { return mXY.empty() ? nullptr : mXY.data(); }
    const double* Raw() const { return mXY.empty() ? nullptr : mXY.data(); }
    std::vector<double>& Z() { return mZ; }
    const std::vector<double>& Z() const { return mZ; }
    TLRect Bound() const;
    // Fills 4 ints a part: part index, point count, first raw index, last raw index.
    int SegmentInfo(int* info) const;
    void ReversePart(int part);

private:
    std::vector<double> mXY;
    std::vector<int> mStarts;
    std::vector<double> mZ;
};

}  // namespace TMObjects
