#pragma once

#include "tlgeo/TLGeometry.h"

class OGRGeometry;

namespace TMObjects {

// Turns OGR geometries into the host's. Points, lines and polygons (single or multi) go straight
// from OGR's coordinate arrays into a part list sized beforehand. Anything else (curves,
// collections, M values, empty members, and shapes GEOS would refuse: a line of one point, a ring
// that is not closed or has fewer than four points, a point without finite coordinates) goes
// through WKB and GEOS as before, so that both ways give the same geometry, refusals included.
class TLOgrGeometryReader {
public:
    // Null for a null geometry or one the host cannot hold.
    static TLRefPtr<TLGeometry> Read(const OGRGeometry* geometry);
    // The way through WKB and GEOS alone, for what the direct way does not read.
    static TLRefPtr<TLGeometry> ReadThroughGeos(const OGRGeometry* geometry);
};

}  // namespace TMObjects
