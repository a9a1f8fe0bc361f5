#pragma once

#include "tlbase/TLPoint.h"
#include "tlgeo/TLGeometry.h"
#include "tlmap/TLSnapTool.h"

namespace TMObjects {

class TLSnap {
public:
    // Snaps to one geometry: its nearest vertex within tolerance, else its nearest segment point.
    // x and y stay as they are when nothing is within tolerance.
    TLSnappingType snap(TLPoint p, TLGeometry* geometry, double tolerance, double& x, double& y);
    // The edge of the geometry that crosses the box of half sizes (w, h) around the centre; of
    // several, the one nearest the centre. False, with the ends untouched, when none crosses it.
    bool getAllureEdge(const TLPoint& centre, TLGeometry* geometry, const double& halfWidth,
                       const double& halfHeight, double& x1, double& y1, double& x2, double& y2);

    // The nearest vertex of the geometry within tolerance and its distance from p.
    static bool NearestVertex(TLGeometry* geometry, const TLPoint& p, double tolerance,
                              TLPoint& hit, double& distance);
    // The nearest point on an edge of the geometry (a ring's closing edge included) within
    // tolerance and its distance from p.
    static bool NearestSegmentPoint(TLGeometry* geometry, const TLPoint& p, double tolerance,
                                    TLPoint& hit, double& distance);
    // The point of the segment a-b nearest to p.
    static TLPoint SegmentFoot(const TLPoint& a, const TLPoint& b, const TLPoint& p);
};

}  // namespace TMObjects
