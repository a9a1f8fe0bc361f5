#include "tlgeo/TLRingNesting.h"

#include <cmath>

namespace TMObjects {

TLRingNesting::TLRingNesting(const TLPartList& rings) : mRings(rings) {
    const int n = rings.PartCount();
    for (int r = 0; r < n; ++r) {
        mArea.push_back(std::fabs(SignedArea(rings, r)));
        TLRect bound;
        for (int i = 0; i < rings.PartSize(r); ++i)
            bound.Union(rings.Point(rings.PartStart(r) + i));
        mBound.push_back(bound);
    }
    mDepth.assign(std::size_t(n), 0);
    mParent.assign(std::size_t(n), -1);
    for (int inner = 0; inner < n; ++inner) {
        for (int outer = 0; outer < n; ++outer) {
            if (!contains(outer, inner)) continue;
            ++mDepth[std::size_t(inner)];
            int& parent = mParent[std::size_t(inner)];
            if (parent < 0 || mArea[std::size_t(outer)] < mArea[std::size_t(parent)])
                parent = outer;
        }
    }
}

int TLRingNesting::Shell(int ring) const {
    int shell = ring;
    // Walks out until an even depth; rings that overlap oddly may leave none, and then the ring
    // stands as an outer ring of its own.
    while (shell >= 0 && IsHole(shell)) shell = mParent[std::size_t(shell)];
    return shell < 0 ? ring : shell;
}

bool TLRingNesting::contains(int outer, int inner) const {
    if (outer == inner) return false;
    // A ring drawn over an earlier one, vertex on vertex, is that ring's hole, as in the order of
    // simple features: the pair encloses nothing rather than the same area twice.
    if (coincide(outer, inner)) return outer < inner;
    // Otherwise a ring cannot hold one at least as large.
    if (!(mArea[std::size_t(outer)] > mArea[std::size_t(inner)])) return false;
    if (!mBound[std::size_t(outer)].Intersects(mBound[std::size_t(inner)])) return false;
    const int first = mRings.PartStart(inner), n = mRings.PartSize(inner);
    // The first vertex off the outer ring's boundary decides; a hole may touch its shell.
    for (int i = 0; i < n; ++i) {
        const int where = Locate(mRings, outer, mRings.Point(first + i));
        if (where != 0) return where > 0;
    }
    for (int i = 0; i + 1 < n; ++i) {
        const TLPoint a = mRings.Point(first + i), b = mRings.Point(first + i + 1);
        const int where = Locate(mRings, outer, TLPoint((a.x + b.x) / 2, (a.y + b.y) / 2));
        if (where != 0) return where > 0;
    }
    return false;
}

bool TLRingNesting::coincide(int a, int b) const {
    const double areaA = mArea[std::size_t(a)], areaB = mArea[std::size_t(b)];
    // The same ring run the other way sums its area in another order: equal to rounding.
    if (!(areaA > 0) || std::fabs(areaA - areaB) > 1e-9 * areaA) return false;
    return liesOn(b, a) && liesOn(a, b);
}

bool TLRingNesting::liesOn(int ring, int other) const {
    const int first = mRings.PartStart(ring), n = mRings.PartSize(ring);
    for (int i = 0; i < n; ++i)
        if (Locate(mRings, other, mRings.Point(first + i)) != 0) return false;
    return n > 0;
}

double TLRingNesting::SignedArea(const TLPartList& rings, int part) {
    const int n = rings.PartSize(part);
    if (n < 3) return 0.0;
    const int first = rings.PartStart(part);
    // Shifted to the first vertex so that large coordinates do not swamp the products.
    const TLPoint o = rings.Point(first);
    double twice = 0.0;
    for (int i = 0; i < n; ++i) {
        const TLPoint a = rings.Point(first + i), b = rings.Point(first + (i + 1) % n);
        twice += (a.x - o.x) * (b.y - o.y) - (b.x - o.x) * (a.y - o.y);
    }
    return twice / 2.0;
}

int TLRingNesting::Locate(const TLPartList& rings, int part, const TLPoint& p) {
    const int n = rings.PartSize(part);
    if (n == 0) return -1;
    const int first = rings.PartStart(part);
    bool inside = false;
    for (int i = 0; i < n; ++i) {
        const TLPoint a = rings.Point(first + i), b = rings.Point(first + (i + 1) % n);
        const double cross = (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
        if (cross == 0.0 && p.x >= std::fmin(a.x, b.x) && p.x <= std::fmax(a.x, b.x) &&
            p.y >= std::fmin(a.y, b.y) && p.y <= std::fmax(a.y, b.y))
            return 0;
        // Even-odd crossing of a ray to the right.
        if ((a.y > p.y) != (b.y > p.y)) {
            const double x = a.x + (p.y - a.y) * (b.x - a.x) / (b.y - a.y);
            if (x > p.x) inside = !inside;
        }
    }
    return inside ? 1 : -1;
}

}  // namespace TMObjects
