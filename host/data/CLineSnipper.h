#pragma once

#include <vector>

#include "tlbase/TLPoint.h"
#include "tlgeo/TLGeosContext.h"

namespace TMObjects {

class CvectorEntityBase;

// Splits the paths of target lines where cutter lines meet them, with GEOS computing the
// meetings. The rules (see CdataManager::lineLayerSniplineLayer):
// - the meeting points of a path and the cutters (GEOS intersection) split it: a crossing at
//   its point, a stretch run along together at both its ends (stretches are merged first, so a
//   shared vertex inside one does not split);
// - an end of an open cutter path that lies within the point limit of the path, without meeting
//   it, splits it at the nearest point of the path;
// - a split point within a hair (1e-11 of the coordinates' size) of a vertex is that vertex,
//   exactly;
// - along the path, a split point closer than the larger of the two limits to the split point
//   kept before it (or to the path's start) is dropped, and so is one that close to the path's
//   end; on a ring the distance runs on over the start;
// - a ring needs two split points to be divided.
class CLineSnipper {
public:
    struct Vertex {
        double x, y, z;
    };
    using Path = std::vector<Vertex>;

    CLineSnipper(double pointLimit, double lineLimit);

    // Adds the paths of an entity (a polygon's rings included) to the cutters.
    void AddCutter(const CvectorEntityBase& cutter);
    bool HasCutters() const { return !mCutterPaths.empty(); }

    // The pieces of one path in path order; false, with the path as the only piece, when the
    // cutters do not divide it.
    bool SplitPath(const Path& path, std::vector<Path>& pieces);

private:
    struct Split {
        double position;  // vertex index, fractional inside a segment
        double measure;   // length along the path from its start
        Vertex point;
    };

    bool prepareCutters();
    std::vector<TLPoint> meetingPoints(const Path& path) const;
    void locate(const Path& path, const std::vector<double>& measures, const TLPoint& point,
                double tolerance, double eps, std::vector<Split>& splits) const;
    std::vector<Split> keptSplits(std::vector<Split> splits, double length, bool ring) const;
    static Path piece(const Path& path, const Split& from, const Split& to);

    double mPointLimit;
    double mLineLimit;
    std::vector<Path> mCutterPaths;
    std::vector<TLPoint> mCutterEnds;
    TLGeosContext::GeometryPtr mCutter;
    bool mPrepared = false;
};

}  // namespace TMObjects
