#pragma once

#include "tlbase/TLPoint.h"
#include "tlgeo/TLGeometry.h"
#include "tlmap/TLSnapTool.h"

namespace TMObjects {

class TLSnap {
public:
    // Snaps to one geometry: its nearest vertex within tolerance, else its nearest segment point.
    TLSnappingType snap(TLPoint p, TLGeometry* geometry, double tolerance, double& x, double& y);
    // The edge of the geometry that crosses the box of half sizes (w, h) around the centre.
    bool getAllureEdge(const TLPoint& centre, TLGeometry* geometry, const double& halfWidth,
                       const double& halfHeight, double& x1, double& y1, double& x2, double& y2);
};

}  // namespace TMObjects
