#include "tlbase/TLRect.h"

#include <algorithm>

namespace TMObjects {

TLRect::TLRect(double xmin, double xmax, double ymin, double ymax)
    : mXMin(std::min(xmin, xmax)),
      mXMax(std::max(xmin, xmax)),
      mYMin(std::min(ymin, ymax)),
      mYMax(std::max(ymin, ymax)),
      mEmpty(false) {}

void TLRect::Union(const TLRect& other) {
    if (other.mEmpty) return;
    if (mEmpty) {
        *this = other;
        return;
    }
    mXMin = std::min(mXMin, other.mXMin);
    mXMax = std::max(mXMax, other.mXMax);
    mYMin = std::min(mYMin, other.mYMin);
    mYMax = std::max(mYMax, other.mYMax);
}

void TLRect::Union(const TLPoint& p) {
    Union(TLRect(p.x, p.x, p.y, p.y));
}

bool TLRect::PtInRect(const TLPoint& p) const {
    return !mEmpty && p.x >= mXMin && p.x <= mXMax && p.y >= mYMin && p.y <= mYMax;
}

bool TLRect::Intersects(const TLRect& o) const {
    return !mEmpty && !o.mEmpty && o.mXMin <= mXMax && o.mXMax >= mXMin && o.mYMin <= mYMax &&
           o.mYMax >= mYMin;
}

void TLRect::Scale(double factor, const TLPoint* center) {
    if (mEmpty) return;
    // The centre stays where it is and every corner moves toward or away from it.
    const TLPoint c = center ? *center : Center();
    *this = TLRect(c.x + (mXMin - c.x) * factor, c.x + (mXMax - c.x) * factor,
                   c.y + (mYMin - c.y) * factor, c.y + (mYMax - c.y) * factor);
}

void TLRect::Inflate(double d) {
    if (mEmpty) return;
    *this = TLRect(mXMin - d, mXMax + d, mYMin - d, mYMax + d);
}

bool operator==(const TLRect& a, const TLRect& b) {
    if (a.IsEmpty() || b.IsEmpty()) return a.IsEmpty() == b.IsEmpty();
    return a.XMinimum() == b.XMinimum() && a.XMaximum() == b.XMaximum() &&
           a.YMinimum() == b.YMinimum() && a.YMaximum() == b.YMaximum();
}

}  // namespace TMObjects
