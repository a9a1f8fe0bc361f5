#pragma once

#include "tlbase/TLPoint.h"

namespace TMObjects {

// An axis-aligned rectangle: x minimum, x maximum, y minimum, y maximum. The default one is
// empty; a union with an empty rectangle gives the other one. A rectangle of zero width and
// height around one point is not empty: it is the bound of that point.
class TLRect {
public:
    TLRect() = default;
    TLRect(double xmin, double xmax, double ymin, double ymax);

    void Union(const TLRect& other);
    void Union(const TLPoint& p);
    bool PtInRect(const TLPoint& p) const;
    bool Intersects(const TLRect& other) const;
    bool IsEmpty() const { return mEmpty; }
    double Width() const { return mEmpty ? 0.0 : mXMax - mXMin; }
    double Height() const { return mEmpty ? 0.0 : mYMax - mYMin; }
    double XMinimum() const { return mXMin; }
    double XMaximum() const { return mXMax; }
    double YMinimum() const { return mYMin; }
    double YMaximum() const { return mYMax; }
    TLPoint Center() const { return TLPoint((mXMin + mXMax) / 2, (mYMin + mYMax) / 2); }
    // Scales about `center` (about the rectangle's own centre when null).
    void Scale(double factor, const TLPoint* center);
    // Grows by `d` on every side.
    void Inflate(double d);

private:
    double mXMin = 0.0;
    double mXMax = 0.0;
    double mYMin = 0.0;
    double mYMax = 0.0;
    bool mEmpty = true;
};

bool operator==(const TLRect& a, const TLRect& b);

}  // namespace TMObjects
