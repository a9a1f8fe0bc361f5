#pragma once

#include <memory>
#include <vector>

#include "tlbase/TLPoint.h"
#include "tlbase/TLRect.h"

namespace TMObjects {

class TLGeometry;

// A segment of an indexed feature: feature id, raw index of its start vertex (the end vertex is
// the next raw index of the same part); a lone point is a segment with end == start.
struct TLSegmentRef {
    int featureId;
    int start;
    TLPoint a;
    TLPoint b;
};

// Boost.Geometry R-trees over one table: the features' bounds, and their segments and lone
// vertices in runs of a few consecutive segments, for snapping and picking that never scan a
// layer. The index keeps a reference to each geometry it was given and reads the coordinates of
// a run from it when a search reaches the run, so it holds no second copy of a layer's vertices;
// a geometry changed in place is searched as it is now, within the bounds it was entered with,
// until it is entered again. Ties between equally near candidates go to the lower feature id,
// then the lower raw index.
class TLSpatialIndex {
public:
    TLSpatialIndex();
    ~TLSpatialIndex();

    void Insert(int id, TLGeometry* geometry);
    void Remove(int id);
    // Bulk-loads from scratch.
    void Rebuild(const std::vector<std::pair<int, TLGeometry*>>& features);

    std::vector<int> Query(const TLRect& rect) const;
    // Segments (and lone vertices) that meet the rectangle.
    void QuerySegments(const TLRect& rect, std::vector<TLSegmentRef>& out) const;
    // The nearest segment to p within `tolerance` (distance to the segment); false if none.
    bool NearestSegment(const TLPoint& p, double tolerance, TLSegmentRef& hit, TLPoint& foot) const;
    // The nearest vertex to p within `tolerance`; false if none. `hit.start` is the vertex's raw
    // index and both of its ends are the vertex.
    bool NearestVertex(const TLPoint& p, double tolerance, TLSegmentRef& hit,
                       TLPoint& vertex) const;
    TLRect Extent() const;
    std::size_t Size() const;

private:
    struct Impl;
    std::unique_ptr<Impl> mImpl;
};

}  // namespace TMObjects
