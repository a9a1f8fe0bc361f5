#include "data/CLineSnipper.h"

#include <algorithm>
#include <cmath>

#include "data/CvectorEntityBase.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlgeo/TLGeosConverter.h"

namespace TMObjects {

namespace {

// How far below the size of the coordinates a computed point may stray from a vertex and still
// be that vertex.
constexpr double kHair = 1e-11;

TLGeosContext::GeometryPtr toGeosLine(const std::vector<CLineSnipper::Path>& paths) {
    TLGeoPolyline line;
    for (const CLineSnipper::Path& path : paths) {
        std::vector<double> xy;
        for (const CLineSnipper::Vertex& v : path) {
            xy.push_back(v.x);
            xy.push_back(v.y);
        }
        line.Parts().AddPart(xy.data(), int(path.size()));
    }
    return TLGeosConverter::ToGeos(&line);
}

// Points and lines of an intersection, collections opened.
void collect(GEOSContextHandle_t h, const GEOSGeometry* g, std::vector<TLPoint>& points,
             std::vector<GEOSGeometry*>& lines) {
    if (!g || GEOSisEmpty_r(h, g) == 1) return;
    const int type = GEOSGeomTypeId_r(h, g);
    if (type == GEOS_POINT) {
        double x = 0, y = 0;
        GEOSGeomGetX_r(h, g, &x);
        GEOSGeomGetY_r(h, g, &y);
        points.emplace_back(x, y);
    } else if (type == GEOS_LINESTRING || type == GEOS_LINEARRING) {
        lines.push_back(GEOSGeom_clone_r(h, g));
    } else if (type == GEOS_MULTIPOINT || type == GEOS_MULTILINESTRING ||
               type == GEOS_GEOMETRYCOLLECTION) {
        for (int i = 0; i < GEOSGetNumGeometries_r(h, g); ++i)
            collect(h, GEOSGetGeometryN_r(h, g, i), points, lines);
    }
}

// The two ends of each line of a (merged) line geometry.
void lineEnds(GEOSContextHandle_t h, const GEOSGeometry* g, std::vector<TLPoint>& points) {
    if (!g || GEOSisEmpty_r(h, g) == 1) return;
    const int type = GEOSGeomTypeId_r(h, g);
    if (type == GEOS_LINESTRING || type == GEOS_LINEARRING) {
        const GEOSCoordSequence* seq = GEOSGeom_getCoordSeq_r(h, g);
        unsigned int size = 0;
        if (!seq || !GEOSCoordSeq_getSize_r(h, seq, &size) || size == 0) return;
        for (unsigned int i : {0u, size - 1}) {
            double x = 0, y = 0;
            GEOSCoordSeq_getXY_r(h, seq, i, &x, &y);
            points.emplace_back(x, y);
        }
        return;
    }
    for (int i = 0; i < GEOSGetNumGeometries_r(h, g); ++i)
        lineEnds(h, GEOSGetGeometryN_r(h, g, i), points);
}

bool samePoint(const CLineSnipper::Vertex& a, const CLineSnipper::Vertex& b) {
    return a.x == b.x && a.y == b.y;
}

}  // namespace

CLineSnipper::CLineSnipper(double pointLimit, double lineLimit)
    : mPointLimit(pointLimit), mLineLimit(lineLimit) {}

void CLineSnipper::AddCutter(const CvectorEntityBase& cutter) {
    for (int k = 0; k < cutter.path_GetSize(); ++k) {
        int first = 0, count = 0;
        cutter.path_GetRange(k, first, count);
        Path path;
        for (int i = first; i < first + count; ++i) {
            Vertex v{0, 0, 0};
            cutter.point_GetXYZ(i, &v.x, &v.y, &v.z);
            path.push_back(v);
        }
        if (path.empty()) continue;
        const bool closed = path.size() >= 3 && samePoint(path.front(), path.back());
        if (cutter.entity_GetType() != CvectorEntityBase::EntityPolygon && !closed) {
            mCutterEnds.emplace_back(path.front().x, path.front().y);
            if (path.size() > 1) mCutterEnds.emplace_back(path.back().x, path.back().y);
        }
        mCutterPaths.push_back(std::move(path));
    }
    mPrepared = false;
}

bool CLineSnipper::prepareCutters() {
    if (!mPrepared) {
        mCutter = mCutterPaths.empty() ? nullptr : toGeosLine(mCutterPaths);
        mPrepared = true;
    }
    return mCutter != nullptr;
}

std::vector<TLPoint> CLineSnipper::meetingPoints(const Path& path) const {
    std::vector<TLPoint> points;
    GEOSContextHandle_t h = TLGeosContext::Handle();
    TLGeosContext::GeometryPtr target = toGeosLine({path});
    if (!target) return points;
    TLGeosContext::GeometryPtr meeting(GEOSIntersection_r(h, target.get(), mCutter.get()));
    if (!meeting) return points;
    std::vector<GEOSGeometry*> lines;
    collect(h, meeting.get(), points, lines);
    if (lines.empty()) return points;
    // Stretches that run on from one another are one stretch: only its two ends split.
    TLGeosContext::GeometryPtr all(GEOSGeom_createCollection_r(
        h, GEOS_MULTILINESTRING, lines.data(), static_cast<unsigned int>(lines.size())));
    TLGeosContext::GeometryPtr merged(all ? GEOSLineMerge_r(h, all.get()) : nullptr);
    lineEnds(h, merged ? merged.get() : all.get(), points);
    return points;
}

void CLineSnipper::locate(const Path& path, const std::vector<double>& measures,
                          const TLPoint& point, double tolerance, double eps,
                          std::vector<Split>& splits) const {
    for (std::size_t i = 0; i + 1 < path.size(); ++i) {
        const Vertex& a = path[i];
        const Vertex& b = path[i + 1];
        const double dx = b.x - a.x, dy = b.y - a.y;
        const double lengthSquared = dx * dx + dy * dy;
        double t =
            lengthSquared > 0 ? ((point.x - a.x) * dx + (point.y - a.y) * dy) / lengthSquared : 0.0;
        t = std::clamp(t, 0.0, 1.0);
        Vertex foot{a.x + t * dx, a.y + t * dy, a.z + t * (b.z - a.z)};
        if (std::hypot(point.x - foot.x, point.y - foot.y) > tolerance) continue;
        if (std::hypot(foot.x - a.x, foot.y - a.y) <= eps)
            splits.push_back({double(i), measures[i], a});
        else if (std::hypot(foot.x - b.x, foot.y - b.y) <= eps)
            splits.push_back({double(i + 1), measures[i + 1], b});
        else
            splits.push_back({i + t, measures[i] + t * std::sqrt(lengthSquared), foot});
    }
}

std::vector<CLineSnipper::Split> CLineSnipper::keptSplits(std::vector<Split> splits, double length,
                                                          bool ring) const {
    std::sort(splits.begin(), splits.end(), [](const Split& a, const Split& b) {
        return a.measure < b.measure || (a.measure == b.measure && a.position < b.position);
    });
    const double limit = std::max(mPointLimit, mLineLimit);
    auto farEnough = [limit](double gap) { return gap > 0 && gap >= limit; };
    std::vector<Split> kept;
    double previous = 0.0;
    for (const Split& split : splits) {
        if (ring && kept.empty()) {
            kept.push_back(split);
            previous = split.measure;
            continue;
        }
        if (!farEnough(split.measure - previous)) continue;
        if (!ring && !farEnough(length - split.measure)) continue;
        kept.push_back(split);
        previous = split.measure;
    }
    while (ring && kept.size() > 1 && !farEnough(length - kept.back().measure + kept[0].measure))
        kept.pop_back();
    return kept;
}

CLineSnipper::Path CLineSnipper::piece(const Path& path, const Split& from, const Split& to) {
    Path out{from.point};
    for (std::size_t k = std::size_t(std::floor(from.position)) + 1; double(k) < to.position; ++k)
        out.push_back(path[k]);
    out.push_back(to.point);
    return out;
}

bool CLineSnipper::SplitPath(const Path& path, std::vector<Path>& pieces) {
    const std::size_t n = path.size();
    if (n < 2 || !prepareCutters()) {
        pieces.push_back(path);
        return false;
    }
    const bool ring = n >= 4 && samePoint(path.front(), path.back());
    std::vector<double> measures(n, 0.0);
    double size = 1.0;
    for (std::size_t i = 0; i < n; ++i) {
        if (i > 0)
            measures[i] =
                measures[i - 1] + std::hypot(path[i].x - path[i - 1].x, path[i].y - path[i - 1].y);
        size = std::max({size, std::fabs(path[i].x), std::fabs(path[i].y)});
    }
    const double length = measures[n - 1];
    const double eps = kHair * size;

    std::vector<Split> splits;
    for (const TLPoint& point : meetingPoints(path))
        locate(path, measures, point, eps, eps, splits);
    if (mPointLimit > 0)
        for (const TLPoint& end : mCutterEnds)
            locate(path, measures, end, mPointLimit, eps, splits);
    if (ring) {
        // The last vertex is the first: a split there is a split at the start.
        for (Split& split : splits)
            if (split.measure >= length) split = {0.0, 0.0, path[0]};
    }
    const std::vector<Split> kept = keptSplits(splits, length, ring);

    if (!ring) {
        if (kept.empty()) {
            pieces.push_back(path);
            return false;
        }
        Split from{0.0, 0.0, path[0]};
        for (const Split& split : kept) {
            pieces.push_back(piece(path, from, split));
            from = split;
        }
        pieces.push_back(piece(path, from, {double(n - 1), length, path[n - 1]}));
        return true;
    }
    if (kept.size() < 2) {
        pieces.push_back(path);
        return false;
    }
    for (std::size_t i = 0; i + 1 < kept.size(); ++i)
        pieces.push_back(piece(path, kept[i], kept[i + 1]));
    // The piece over the start: the ring's vertices once more after its end.
    Path twice(path);
    twice.insert(twice.end(), path.begin() + 1, path.end());
    Split wrapEnd = kept[0];
    wrapEnd.position += double(n - 1);
    wrapEnd.measure += length;
    pieces.push_back(piece(twice, kept.back(), wrapEnd));
    return true;
}

}  // namespace TMObjects
