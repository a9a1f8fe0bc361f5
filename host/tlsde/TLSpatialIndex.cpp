#include "tlsde/TLSpatialIndex.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <utility>

#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <boost/iterator/function_output_iterator.hpp>

#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"

namespace bg = boost::geometry;
namespace bgi = boost::geometry::index;

namespace TMObjects {

namespace {

using Pt = bg::model::point<double, 2, bg::cs::cartesian>;
using Box = bg::model::box<Pt>;

// A segment is kept as its bounding box plus two bits telling which corners its ends are, so a
// tree entry is 40 bytes and still gives back the exact end points. Bit 0: the start has the
// larger x; bit 1: the start has the larger y; bit 2: a lone vertex rather than a segment whose
// two ends coincide.
struct SegKey {
    int featureId;
    int packed;  // start raw index << 3 | lone bit | corner bits
    int start() const { return packed >> 3; }
    bool lone() const { return (packed & 4) != 0; }
    bool operator==(const SegKey& o) const {
        return featureId == o.featureId && packed == o.packed;
    }
};

using BoundValue = std::pair<Box, int>;
using SegValue = std::pair<Box, SegKey>;
using Params = bgi::quadratic<16>;
using BoundTree = bgi::rtree<BoundValue, Params>;
using SegTree = bgi::rtree<SegValue, Params>;

bool finite(double x, double y) {
    return std::isfinite(x) && std::isfinite(y);
}

SegValue makeSegment(int id, int start, double ax, double ay, double bx, double by) {
    const int bits = (ax > bx ? 1 : 0) | (ay > by ? 2 : 0);
    Box box(Pt(std::min(ax, bx), std::min(ay, by)), Pt(std::max(ax, bx), std::max(ay, by)));
    return {box, SegKey{id, (start << 3) | bits}};
}

SegValue makeLoneVertex(int id, int index, double x, double y) {
    SegValue v = makeSegment(id, index, x, y, x, y);
    v.second.packed |= 4;
    return v;
}

TLSegmentRef toRef(const SegValue& v) {
    const Pt& lo = v.first.min_corner();
    const Pt& hi = v.first.max_corner();
    const int bits = v.second.packed & 3;
    const double ax = (bits & 1) ? hi.get<0>() : lo.get<0>();
    const double bx = (bits & 1) ? lo.get<0>() : hi.get<0>();
    const double ay = (bits & 2) ? hi.get<1>() : lo.get<1>();
    const double by = (bits & 2) ? lo.get<1>() : hi.get<1>();
    return TLSegmentRef{v.second.featureId, v.second.start(), TLPoint(ax, ay), TLPoint(bx, by)};
}

// Appends the segments of one run of vertices; a run of one vertex is a lone point. Vertices that
// are not finite numbers are left out, so that bad coordinates never reach the tree.
void addRun(int id, const double* xy, int first, int count, std::vector<SegValue>& out) {
    if (count == 1) {
        const double x = xy[2 * first], y = xy[2 * first + 1];
        if (finite(x, y)) out.push_back(makeLoneVertex(id, first, x, y));
        return;
    }
    for (int i = first; i + 1 < first + count; ++i) {
        const double ax = xy[2 * i], ay = xy[2 * i + 1];
        const double bx = xy[2 * i + 2], by = xy[2 * i + 3];
        if (finite(ax, ay) && finite(bx, by)) out.push_back(makeSegment(id, i, ax, ay, bx, by));
    }
}

void addParts(int id, const TLPartList& parts, std::vector<SegValue>& out) {
    const double* xy = parts.Raw();
    const int total = parts.PointCount();
    for (int p = 0; p < parts.PartCount(); ++p) {
        const int first = parts.PartStart(p);
        const int end = p + 1 < parts.PartCount() ? parts.PartStart(p + 1) : total;
        if (first >= 0 && end > first && end <= total) addRun(id, xy, first, end - first, out);
    }
}

void segmentsOf(int id, TLGeometry* geometry, std::vector<SegValue>& out) {
    if (!geometry || geometry->IsEmpty()) return;
    if (auto* line = dynamic_cast<TLGeoPolyline*>(geometry))
        return addParts(id, line->Parts(), out);
    if (auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry))
        return addParts(id, polygon->Parts(), out);
    if (auto* point = dynamic_cast<TLGeoPoint*>(geometry)) {
        const double xy[2] = {point->GetX(), point->GetY()};
        return addRun(id, xy, 0, 1, out);
    }
    if (auto* envelope = dynamic_cast<TLGeoEnvelope*>(geometry)) {
        // The four sides, counted as a closed ring starting at the lower left corner.
        double x0, y0, x1, y1;
        envelope->QueryCoords(&x0, &y0, &x1, &y1);
        const double ring[10] = {x0, y0, x1, y0, x1, y1, x0, y1, x0, y0};
        return addRun(id, ring, 0, 5, out);
    }
    // Any other kind: points (a multipoint) stand alone, anything else is one run.
    double* xy = nullptr;
    int count = 0;
    if (!geometry->GetRawPoints(&xy, count) || !xy || count <= 0) return;
    if (geometry->GetDimension() > 0) return addRun(id, xy, 0, count, out);
    for (int i = 0; i < count; ++i) addRun(id, xy, i, 1, out);
}

bool boundOf(const std::vector<SegValue>& segments, std::size_t from, Box& box) {
    if (from >= segments.size()) return false;
    box = segments[from].first;
    for (std::size_t i = from + 1; i < segments.size(); ++i) bg::expand(box, segments[i].first);
    return true;
}

Box searchBox(const TLPoint& p, double tolerance) {
    return Box(Pt(p.x - tolerance, p.y - tolerance), Pt(p.x + tolerance, p.y + tolerance));
}

// The point of segment a-b nearest to p, and its squared distance.
double footOnSegment(const TLPoint& p, const TLPoint& a, const TLPoint& b, TLPoint& foot) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double len2 = dx * dx + dy * dy;
    double t = len2 > 0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / len2 : 0.0;
    t = std::clamp(t, 0.0, 1.0);
    foot = t == 0.0 ? a : (t == 1.0 ? b : TLPoint(a.x + t * dx, a.y + t * dy));
    return p.SqrDist(foot);
}

// Ties between equally near candidates go to the lower feature id, then the lower raw index, so
// that a search answers the same whatever order the tree holds its entries in.
bool better(double d2, int id, int index, double bestD2, int bestId, int bestIndex) {
    if (d2 != bestD2) return d2 < bestD2;
    return id != bestId ? id < bestId : index < bestIndex;
}

// Whether segment a-b has a point in the closed box (Liang-Barsky clipping).
bool meets(const TLPoint& a, const TLPoint& b, const Box& box) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {a.x - box.min_corner().get<0>(), box.max_corner().get<0>() - a.x,
                         a.y - box.min_corner().get<1>(), box.max_corner().get<1>() - a.y};
    double t0 = 0.0, t1 = 1.0;
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0.0) {
            if (q[i] < 0.0) return false;
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0.0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
    }
    return t0 <= t1;
}

bool usable(const TLPoint& p, double tolerance) {
    return p.Valid() && std::isfinite(tolerance) && tolerance >= 0;
}

}  // namespace

struct TLSpatialIndex::Impl {
    BoundTree bounds;
    SegTree segments;
    std::unordered_map<int, Box> boxes;  // what each feature was entered with, for removal
};

TLSpatialIndex::TLSpatialIndex() : mImpl(std::make_unique<Impl>()) {}

TLSpatialIndex::~TLSpatialIndex() = default;

void TLSpatialIndex::Insert(int id, TLGeometry* geometry) {
    Remove(id);
    std::vector<SegValue> segments;
    segmentsOf(id, geometry, segments);
    Box box;
    if (!boundOf(segments, 0, box)) return;
    mImpl->boxes.emplace(id, box);
    mImpl->bounds.insert(BoundValue(box, id));
    mImpl->segments.insert(segments.begin(), segments.end());
}

void TLSpatialIndex::Remove(int id) {
    auto it = mImpl->boxes.find(id);
    if (it == mImpl->boxes.end()) return;
    const Box box = it->second;
    mImpl->boxes.erase(it);
    mImpl->bounds.remove(BoundValue(box, id));
    // Every segment of the feature lies inside the box it was entered with, so this finds them
    // all even when the geometry has been changed in place since.
    std::vector<SegValue> mine;
    mImpl->segments.query(bgi::intersects(box) && bgi::satisfies([id](const SegValue& v) {
                              return v.second.featureId == id;
                          }),
                          std::back_inserter(mine));
    mImpl->segments.remove(mine.begin(), mine.end());
}

void TLSpatialIndex::Rebuild(const std::vector<std::pair<int, TLGeometry*>>& features) {
    std::vector<SegValue> segments;
    std::vector<BoundValue> bounds;
    std::unordered_map<int, Box> boxes;
    bounds.reserve(features.size());
    boxes.reserve(features.size());
    for (const auto& [id, geometry] : features) {
        if (boxes.count(id)) continue;  // the first entry of a repeated id wins
        const std::size_t from = segments.size();
        segmentsOf(id, geometry, segments);
        Box box;
        if (!boundOf(segments, from, box)) continue;
        boxes.emplace(id, box);
        bounds.emplace_back(box, id);
    }
    // The range constructors pack the trees, which is far faster than inserting one by one and
    // gives better-filled nodes.
    mImpl->bounds = BoundTree(bounds.begin(), bounds.end());
    mImpl->segments = SegTree(segments.begin(), segments.end());
    mImpl->boxes = std::move(boxes);
}

std::vector<int> TLSpatialIndex::Query(const TLRect& rect) const {
    std::vector<int> ids;
    if (rect.IsEmpty()) return ids;
    const Box box(Pt(rect.XMinimum(), rect.YMinimum()), Pt(rect.XMaximum(), rect.YMaximum()));
    mImpl->bounds.query(bgi::intersects(box),
                        boost::make_function_output_iterator(
                            [&ids](const BoundValue& v) { ids.push_back(v.second); }));
    return ids;
}

void TLSpatialIndex::QuerySegments(const TLRect& rect, std::vector<TLSegmentRef>& out) const {
    if (rect.IsEmpty()) return;
    const Box box(Pt(rect.XMinimum(), rect.YMinimum()), Pt(rect.XMaximum(), rect.YMaximum()));
    // The tree answers by the segments' bounds; a diagonal segment can have its bounds meet the
    // rectangle and still pass by it.
    mImpl->segments.query(bgi::intersects(box),
                          boost::make_function_output_iterator([&](const SegValue& v) {
                              const TLSegmentRef ref = toRef(v);
                              if (meets(ref.a, ref.b, box)) out.push_back(ref);
                          }));
}

bool TLSpatialIndex::NearestSegment(const TLPoint& p, double tolerance, TLSegmentRef& hit,
                                    TLPoint& foot) const {
    if (!usable(p, tolerance)) return false;
    const double limit = tolerance * tolerance;
    double best = std::numeric_limits<double>::infinity();
    bool found = false;
    mImpl->segments.query(
        bgi::intersects(searchBox(p, tolerance)),
        boost::make_function_output_iterator([&](const SegValue& v) {
            const TLSegmentRef ref = toRef(v);
            TLPoint f;
            const double d2 = footOnSegment(p, ref.a, ref.b, f);
            if (d2 > limit) return;
            if (found && !better(d2, ref.featureId, ref.start, best, hit.featureId, hit.start))
                return;
            best = d2;
            hit = ref;
            foot = f;
            found = true;
        }));
    return found;
}

bool TLSpatialIndex::NearestVertex(const TLPoint& p, double tolerance, TLSegmentRef& hit,
                                   TLPoint& vertex) const {
    if (!usable(p, tolerance)) return false;
    const double limit = tolerance * tolerance;
    double best = std::numeric_limits<double>::infinity();
    bool found = false;
    auto consider = [&](int id, int index, const TLPoint& v) {
        const double d2 = p.SqrDist(v);
        if (d2 > limit) return;
        if (found && !better(d2, id, index, best, hit.featureId, hit.start)) return;
        best = d2;
        hit = TLSegmentRef{id, index, v, v};
        vertex = v;
        found = true;
    };
    mImpl->segments.query(bgi::intersects(searchBox(p, tolerance)),
                          boost::make_function_output_iterator([&](const SegValue& v) {
                              const TLSegmentRef ref = toRef(v);
                              consider(ref.featureId, ref.start, ref.a);
                              if (!v.second.lone()) consider(ref.featureId, ref.start + 1, ref.b);
                          }));
    return found;
}

TLRect TLSpatialIndex::Extent() const {
    if (mImpl->bounds.empty()) return TLRect();
    const Box box = mImpl->bounds.bounds();
    return TLRect(box.min_corner().get<0>(), box.max_corner().get<0>(), box.min_corner().get<1>(),
                  box.max_corner().get<1>());
}

std::size_t TLSpatialIndex::Size() const {
    return mImpl->bounds.size();
}

}  // namespace TMObjects
