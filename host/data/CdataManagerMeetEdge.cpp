#include <algorithm>
#include <cmath>
#include <vector>

#include "data/CcurrencyFunc.h"
#include "data/CdataManager.h"

namespace TMObjects {

namespace {

struct XY {
    double x = 0.0;
    double y = 0.0;
};

bool operator==(const XY& a, const XY& b) {
    return a.x == b.x && a.y == b.y;
}

// One path of the boundary with the distance along it of each vertex. A ring's closing vertex is
// its first one again, at the ring's full length.
struct BoundaryPath {
    std::vector<XY> vertices;
    std::vector<double> along;
    bool ring = false;
    double length() const { return along.empty() ? 0.0 : along.back(); }
};

// Where a vertex of a caught entity went: the boundary path and the distance along it.
struct Landing {
    int path = -1;
    double along = 0.0;
};

struct Rect {
    double xmin, ymin, xmax, ymax;
    bool contains(const XY& p) const {
        return p.x >= xmin && p.x <= xmax && p.y >= ymin && p.y <= ymax;
    }
};

std::vector<BoundaryPath> boundaryPaths(const CvectorEntityData& boundary) {
    std::vector<BoundaryPath> paths;
    for (int p = 0; p < boundary.path_GetSize(); ++p) {
        int first = 0, count = 0;
        if (!boundary.path_GetRange(p, first, count) || count < 2) continue;
        BoundaryPath path;
        for (int i = first; i < first + count; ++i) {
            XY v;
            boundary.point_GetXY(i, &v.x, &v.y);
            path.along.push_back(
                path.vertices.empty()
                    ? 0.0
                    : path.along.back() +
                          std::hypot(v.x - path.vertices.back().x, v.y - path.vertices.back().y));
            path.vertices.push_back(v);
        }
        path.ring = count > 2 && path.vertices.front() == path.vertices.back();
        paths.push_back(std::move(path));
    }
    return paths;
}

// The boundary vertex nearest to p within `snap` (the first of equally near ones), else the foot
// of p on the nearest boundary edge; p itself moves there.
Landing land(XY& p, const std::vector<BoundaryPath>& paths, double snap) {
    Landing best;
    double bestDistance = snap;
    XY bestPoint;
    for (int k = 0; k < int(paths.size()); ++k)
        for (std::size_t i = 0; i < paths[k].vertices.size(); ++i) {
            const XY& v = paths[k].vertices[i];
            const double d = std::hypot(v.x - p.x, v.y - p.y);
            if (d > bestDistance || (best.path >= 0 && !(d < bestDistance))) continue;
            best = {k, paths[k].along[i]};
            bestDistance = d;
            bestPoint = v;
        }
    if (best.path < 0) {
        bestDistance = INFINITY;
        for (int k = 0; k < int(paths.size()); ++k)
            for (std::size_t i = 0; i + 1 < paths[k].vertices.size(); ++i) {
                const XY& a = paths[k].vertices[i];
                const XY& b = paths[k].vertices[i + 1];
                XY foot;
                const double d = CcurrencyFunc::point_LineSpace(p.x, p.y, a.x, a.y, b.x, b.y,
                                                                &foot.x, &foot.y, 0);
                if (!(d < bestDistance)) continue;
                bestDistance = d;
                bestPoint = foot;
                best = {k, paths[k].along[i] + std::hypot(foot.x - a.x, foot.y - a.y)};
            }
    }
    if (best.path >= 0) p = bestPoint;
    return best;
}

// The boundary vertices strictly between two landings on one path, in the order met going from
// `from` to `to`: straight along an open path, the shorter way round a ring.
std::vector<XY> verticesBetween(const BoundaryPath& path, double from, double to) {
    std::vector<std::pair<double, XY>> found;
    const double total = path.length();
    const std::size_t count = path.vertices.size() - (path.ring ? 1 : 0);
    double forward = to - from;
    int direction = forward >= 0 ? 1 : -1;
    double span = std::fabs(forward);
    if (path.ring) {
        forward = std::fmod(to - from + total, total);
        direction = forward <= total - forward ? 1 : -1;
        span = direction > 0 ? forward : total - forward;
    }
    for (std::size_t i = 0; i < count; ++i) {
        double step = direction * (path.along[i] - from);
        if (path.ring) step = std::fmod(step + total, total);
        if (step > 0.0 && step < span) found.emplace_back(step, path.vertices[i]);
    }
    std::sort(found.begin(), found.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<XY> between;
    for (const auto& each : found) between.push_back(each.second);
    return between;
}

// One path of a caught entity, matched: its vertices in the rectangle land on the boundary, and
// between two landed neighbours on one boundary path the boundary's own vertices are put in.
// Returns the number of vertices that landed.
int matchPath(std::vector<XY>& path, const std::vector<BoundaryPath>& boundary, const Rect& rect,
              double snap) {
    std::vector<Landing> landings(path.size());
    int landed = 0;
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (!rect.contains(path[i])) continue;
        landings[i] = land(path[i], boundary, snap);
        if (landings[i].path >= 0) ++landed;
    }
    std::vector<XY> matched;
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (i > 0 && landings[i - 1].path >= 0 && landings[i - 1].path == landings[i].path)
            for (const XY& v : verticesBetween(boundary[std::size_t(landings[i].path)],
                                               landings[i - 1].along, landings[i].along))
                matched.push_back(v);
        // Two neighbours that landed on one spot become one vertex.
        if (!matched.empty() && matched.back() == path[i] && landings[i].path >= 0) continue;
        matched.push_back(path[i]);
    }
    path = std::move(matched);
    return landed;
}

}  // namespace

int CdataManager::handMovementMeetEdge(int package, int boundaryLayer, int collectedLayer,
                                       int entity, int, double x1, double y1, double x2,
                                       double y2) {
    CvectorPackageData* data = mPackages.getAt(package);
    CvectorEntityData* boundaryEntity = data ? data->entity_GetAt(entity) : nullptr;
    if (!boundaryEntity || boundaryEntity->GetLayerID() != boundaryLayer) return 0;
    const std::vector<BoundaryPath> boundary = boundaryPaths(*boundaryEntity);
    if (boundary.empty()) return 0;
    const Rect rect{std::fmin(x1, x2), std::fmin(y1, y2), std::fmax(x1, x2), std::fmax(y1, y2)};

    int landed = 0;
    for (int e = 0; e < data->entity_GetSize(); ++e) {
        CvectorEntityData* caught = data->entity_GetAt(e);
        if (caught == boundaryEntity || caught->GetLayerID() != collectedLayer) continue;
        std::vector<std::vector<XY>> paths;
        for (int p = 0; p < caught->path_GetSize(); ++p) {
            int first = 0, count = 0;
            caught->path_GetRange(p, first, count);
            std::vector<XY> path(std::size_t(std::max(count, 0)));
            for (int i = 0; i < count; ++i) caught->point_GetXY(first + i, &path[i].x, &path[i].y);
            landed += matchPath(path, boundary, rect, mPointLimit);
            paths.push_back(std::move(path));
        }
        caught->point_RemoveAll();
        for (const std::vector<XY>& path : paths) {
            caught->entity_BeginPath();
            caught->entity_BeginSegment(1);
            for (const XY& v : path) caught->point_Add(v.x, v.y);
        }
        caught->entity_EndEntity();
    }
    return landed;
}

}  // namespace TMObjects
