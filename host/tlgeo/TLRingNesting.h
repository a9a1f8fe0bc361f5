#pragma once

#include <vector>

#include "tlbase/TLPoint.h"
#include "tlgeo/TLPartList.h"

namespace TMObjects {

// How the rings of a polygon lie in each other. A polygon's rings come in any order and any
// direction, so holes are told by containment alone: a ring inside an odd number of others is a
// hole of the nearest ring around it, one inside an even number is an outer ring (an island in a
// hole starts a polygon of its own). A ring drawn over an earlier one, vertex on vertex, is its
// hole.
class TLRingNesting {
public:
    explicit TLRingNesting(const TLPartList& rings);

    // The number of rings that contain this one.
    int Depth(int ring) const { return mDepth[std::size_t(ring)]; }
    bool IsHole(int ring) const { return Depth(ring) % 2 == 1; }
    // The outer ring a hole belongs to; an outer ring is its own shell.
    int Shell(int ring) const;

    // Shoelace area of one part, positive counter-clockwise; an open ring counts as closed.
    static double SignedArea(const TLPartList& rings, int part);
    // 1 when the point lies inside the ring, 0 on its boundary, -1 outside.
    static int Locate(const TLPartList& rings, int part, const TLPoint& p);

private:
    bool contains(int outer, int inner) const;
    // Whether two rings of an area run along each other, each vertex on the other's boundary.
    bool coincide(int a, int b) const;
    // Whether every vertex of `ring` lies on the boundary of `other`.
    bool liesOn(int ring, int other) const;

    const TLPartList& mRings;
    std::vector<double> mArea;  // absolute areas
    std::vector<TLRect> mBound;
    std::vector<int> mDepth;
    std::vector<int> mParent;  // the smallest ring around, or -1
};

}  // namespace TMObjects
