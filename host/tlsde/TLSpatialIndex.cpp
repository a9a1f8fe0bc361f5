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
#include "tlsde/TLPackedRTree.h"

namespace bg = boost::geometry;
namespace bgi = boost::geometry::index;

namespace TMObjects {

namespace {

using Pt = bg::model::point<double, 2, bg::cs::cartesian>;
using Box = bg::model::box<Pt>;

// The segments are indexed in chunks: a run of up to kChunk consecutive segments of one part,
// kept as its bounds, the feature's slot and the raw indexes it covers. The coordinates stay in
// the feature's geometry and are read from there when a search reaches the chunk, so that the
// index holds one small entry for every kChunk segments instead of a copy of each. A lone vertex
// is a chunk of one vertex.
constexpr int kChunk = 16;

// A search reads a line's or a polygon's coordinates through `parts`, which lives as long as its
// geometry (the slot keeps the geometry alive), with no detour through the slot; other kinds
// are read through the slot.
struct ChunkKey {
    const TLPartList* parts;
    int slot;
    int id;     // the feature's
    int start;  // raw index of the first vertex
    int count;  // vertices in the run: segments + 1, or 1 for a lone vertex
    bool lone() const { return count == 1; }
    bool operator==(const ChunkKey& o) const {
        return slot == o.slot && start == o.start && count == o.count;
    }
};

using BoundValue = std::pair<Box, int>;
using ChunkValue = std::pair<Box, ChunkKey>;
using Params = bgi::quadratic<16>;
using BoundTree = bgi::rtree<BoundValue, Params>;
using ChunkTree = bgi::rtree<ChunkValue, Params>;

bool finite(double x, double y) {
    return std::isfinite(x) && std::isfinite(y);
}

bool finiteAt(const double* xy, int i) {
    return finite(xy[2 * i], xy[2 * i + 1]);
}

// How the index reads a feature's coordinates back.
enum class Source { Parts, Point, Envelope, Raw };

// An indexed feature: its id, its geometry (kept alive, since chunks read from it) and the
// bounds it was entered with, by which its chunks are found again on removal. A removed feature
// leaves its slot behind without a geometry: chunks of the packed tree may still name it.
struct Slot {
    int id = -1;
    TLRefPtr<TLGeometry> geometry;
    Source source = Source::Raw;
    Box box;
};

// The (x, y) pairs of a slot's geometry; a point's pair and an envelope's four sides (a closed
// ring from the lower left corner) come in `own`. Null when the geometry has no coordinates.
const double* coordinatesOf(const Slot& slot, double (&own)[10], int& count) {
    TLGeometry* g = slot.geometry.get();
    count = 0;
    switch (slot.source) {
        case Source::Parts: {
            const TLPartList& parts = g->GetType() == TLGeometry::GeoPolyline
                                          ? static_cast<TLGeoPolyline*>(g)->Parts()
                                          : static_cast<TLGeoPolygon*>(g)->Parts();
            count = parts.PointCount();
            return parts.Raw();
        }
        case Source::Point: {
            const auto* point = static_cast<TLGeoPoint*>(g);
            own[0] = point->GetX(), own[1] = point->GetY();
            count = 1;
            return own;
        }
        case Source::Envelope: {
            double x0, y0, x1, y1;
            static_cast<TLGeoEnvelope*>(g)->QueryCoords(&x0, &y0, &x1, &y1);
            const double ring[10] = {x0, y0, x1, y0, x1, y1, x0, y1, x0, y0};
            std::copy(ring, ring + 10, own);
            count = 5;
            return own;
        }
        case Source::Raw: {
            double* xy = nullptr;
            return g->GetRawPoints(&xy, count) && xy && count > 0 ? xy : nullptr;
        }
    }
    return nullptr;
}

// Hands the chunks of one run of vertices to `emit(box, key)`; a run of one vertex is a lone
// point. Segments with an end that is not a finite number are left out, so that bad coordinates
// never reach the tree.
template <class Emit>
void addRun(const ChunkKey& of, const double* xy, int first, int count, Emit& emit) {
    if (count == 1) {
        const double x = xy[2 * first], y = xy[2 * first + 1];
        if (finite(x, y))
            emit(Box(Pt(x, y), Pt(x, y)), ChunkKey{of.parts, of.slot, of.id, first, 1});
        return;
    }
    const int last = first + count - 1;
    for (int s = first; s < last; s += kChunk) {
        const int e = std::min(s + kChunk, last);
        double x0 = std::numeric_limits<double>::infinity(), y0 = x0, x1 = -x0, y1 = -x0;
        bool any = false;
        for (int i = s; i < e; ++i) {
            if (!finiteAt(xy, i) || !finiteAt(xy, i + 1)) continue;
            for (int v = i; v <= i + 1; ++v) {
                x0 = std::min(x0, xy[2 * v]), x1 = std::max(x1, xy[2 * v]);
                y0 = std::min(y0, xy[2 * v + 1]), y1 = std::max(y1, xy[2 * v + 1]);
            }
            any = true;
        }
        if (any)
            emit(Box(Pt(x0, y0), Pt(x1, y1)), ChunkKey{of.parts, of.slot, of.id, s, e - s + 1});
    }
}

template <class Emit>
void addParts(int slot, int id, const TLPartList& parts, Emit& emit) {
    const ChunkKey of{&parts, slot, id, 0, 0};
    const double* xy = parts.Raw();
    const int total = parts.PointCount();
    for (int p = 0; p < parts.PartCount(); ++p) {
        const int first = parts.PartStart(p);
        const int end = p + 1 < parts.PartCount() ? parts.PartStart(p + 1) : total;
        if (first >= 0 && end > first && end <= total) addRun(of, xy, first, end - first, emit);
    }
}

// Sets how the slot's coordinates are read and hands out its chunks.
template <class Emit>
void chunksOf(int index, Slot& slot, Emit& emit) {
    TLGeometry* geometry = slot.geometry.get();
    if (!geometry || geometry->IsEmpty()) return;
    double own[10];
    int count = 0;
    if (auto* line = dynamic_cast<TLGeoPolyline*>(geometry)) {
        slot.source = Source::Parts;
        return addParts(index, slot.id, line->Parts(), emit);
    }
    if (auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry)) {
        slot.source = Source::Parts;
        return addParts(index, slot.id, polygon->Parts(), emit);
    }
    const ChunkKey of{nullptr, index, slot.id, 0, 0};
    if (dynamic_cast<TLGeoPoint*>(geometry)) {
        slot.source = Source::Point;
        return addRun(of, coordinatesOf(slot, own, count), 0, 1, emit);
    }
    if (dynamic_cast<TLGeoEnvelope*>(geometry)) {
        slot.source = Source::Envelope;
        return addRun(of, coordinatesOf(slot, own, count), 0, 5, emit);
    }
    // Any other kind: points (a multipoint) stand alone, anything else is one run.
    slot.source = Source::Raw;
    const double* xy = coordinatesOf(slot, own, count);
    if (!xy) return;
    if (geometry->GetDimension() > 0) return addRun(of, xy, 0, count, emit);
    for (int i = 0; i < count; ++i) addRun(of, xy, i, 1, emit);
}

// About how many chunks a geometry gives, to size the arrays once.
std::size_t chunkEstimate(TLGeometry* geometry) {
    const TLPartList* parts = nullptr;
    if (auto* line = dynamic_cast<TLGeoPolyline*>(geometry)) parts = &line->Parts();
    if (auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry)) parts = &polygon->Parts();
    if (!parts) return 4;
    return std::size_t(parts->PointCount() / kChunk + parts->PartCount());
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

// The chunks of a bulk load sit in a packed tree; chunks of features entered afterwards go into
// a tree that takes inserts and removals, and a removed feature's packed chunks are passed over
// (its slot has no geometry any more). The next Rebuild packs everything again.
struct TLSpatialIndex::Impl {
    BoundTree bounds;
    TLPackedRTree packed;
    std::vector<ChunkKey> packedKeys;  // in the packed tree's order
    ChunkTree added;
    std::vector<Slot> slots;
    // Whether each slot still holds its feature: a small array that searches check before they
    // read, rather than the slot itself.
    std::vector<unsigned char> live;
    std::unordered_map<int, int> slotOf;  // feature id -> slot

    int addSlot(int id, TLGeometry* geometry) {
        slots.emplace_back();
        slots.back().id = id;
        slots.back().geometry = geometry;
        live.push_back(1);
        return int(slots.size()) - 1;
    }
    void dropLastSlot() {
        slots.pop_back();
        live.pop_back();
    }

    // Calls f(featureId, rawIndex, a, b, lone) for every segment, and every lone vertex (a == b),
    // of the chunks that meet the box.
    template <class F>
    void visit(const Box& box, F&& f) const {
        auto read = [&](const ChunkKey& key) {
            if (!live[std::size_t(key.slot)]) return;
            double own[10];
            int count = 0;
            const double* xy = nullptr;
            if (key.parts) {
                xy = key.parts->Raw();
                count = key.parts->PointCount();
            } else {
                xy = coordinatesOf(slots[std::size_t(key.slot)], own, count);
            }
            // A geometry changed in place and not entered again yet may have fewer points by
            // now: what is gone is not read.
            const int end = std::min(key.start + key.count, count);
            if (!xy || key.start >= end) return;
            if (key.lone()) {
                if (!finiteAt(xy, key.start)) return;
                const TLPoint p(xy[2 * key.start], xy[2 * key.start + 1]);
                return f(key.id, key.start, p, p, true);
            }
            for (int i = key.start; i + 1 < end; ++i) {
                if (!finiteAt(xy, i) || !finiteAt(xy, i + 1)) continue;
                f(key.id, i, TLPoint(xy[2 * i], xy[2 * i + 1]),
                  TLPoint(xy[2 * i + 2], xy[2 * i + 3]), false);
            }
        };
        const Pt& lo = box.min_corner();
        const Pt& hi = box.max_corner();
        packed.Search(lo.get<0>(), lo.get<1>(), hi.get<0>(), hi.get<1>(),
                      [&](std::size_t at) { read(packedKeys[at]); });
        if (added.empty()) return;
        added.query(bgi::intersects(box), boost::make_function_output_iterator(
                                              [&](const ChunkValue& v) { read(v.second); }));
    }
};

TLSpatialIndex::TLSpatialIndex() : mImpl(std::make_unique<Impl>()) {}

TLSpatialIndex::~TLSpatialIndex() = default;

void TLSpatialIndex::Insert(int id, TLGeometry* geometry) {
    Remove(id);
    Impl& impl = *mImpl;
    const int s = impl.addSlot(id, geometry);
    std::vector<ChunkValue> chunks;
    auto emit = [&chunks](const Box& box, const ChunkKey& key) { chunks.emplace_back(box, key); };
    chunksOf(s, impl.slots.back(), emit);
    if (chunks.empty()) return impl.dropLastSlot();
    Box box = chunks.front().first;
    for (const ChunkValue& c : chunks) bg::expand(box, c.first);
    impl.slots.back().box = box;
    impl.slotOf.emplace(id, s);
    impl.bounds.insert(BoundValue(box, id));
    impl.added.insert(chunks.begin(), chunks.end());
}

void TLSpatialIndex::Remove(int id) {
    Impl& impl = *mImpl;
    auto it = impl.slotOf.find(id);
    if (it == impl.slotOf.end()) return;
    const int s = it->second;
    impl.slotOf.erase(it);
    Slot& slot = impl.slots[std::size_t(s)];
    impl.bounds.remove(BoundValue(slot.box, id));
    // Every chunk of the feature lies inside the box it was entered with, so this finds them
    // all even when the geometry has been changed in place since.
    std::vector<ChunkValue> mine;
    impl.added.query(bgi::intersects(slot.box) &&
                         bgi::satisfies([s](const ChunkValue& v) { return v.second.slot == s; }),
                     std::back_inserter(mine));
    impl.added.remove(mine.begin(), mine.end());
    slot = Slot();
    impl.live[std::size_t(s)] = 0;
}

void TLSpatialIndex::Rebuild(const std::vector<std::pair<int, TLGeometry*>>& features) {
    Impl fresh;
    std::size_t estimate = 0;
    for (const auto& entry : features) estimate += chunkEstimate(entry.second);
    std::vector<TLPackedRTree::Box> boxes;
    std::vector<ChunkKey> keys;
    std::vector<BoundValue> bounds;
    boxes.reserve(estimate);
    keys.reserve(estimate);
    bounds.reserve(features.size());
    fresh.slots.reserve(features.size());
    fresh.live.reserve(features.size());
    fresh.slotOf.reserve(features.size());
    Box box;
    bool any = false;
    auto emit = [&](const Box& b, const ChunkKey& key) {
        const Pt& lo = b.min_corner();
        const Pt& hi = b.max_corner();
        boxes.push_back(TLPackedRTree::Outward(lo.get<0>(), lo.get<1>(), hi.get<0>(), hi.get<1>()));
        keys.push_back(key);
        if (any)
            bg::expand(box, b);
        else
            box = b;
        any = true;
    };
    for (const auto& [id, geometry] : features) {
        if (fresh.slotOf.count(id)) continue;  // the first entry of a repeated id wins
        const int s = fresh.addSlot(id, geometry);
        any = false;
        chunksOf(s, fresh.slots.back(), emit);
        if (!any) {
            fresh.dropLastSlot();
            continue;
        }
        fresh.slots.back().box = box;
        fresh.slotOf.emplace(id, s);
        bounds.emplace_back(box, id);
    }
    // The range constructor packs the tree of bounds, which is far faster than inserting one by
    // one and gives better-filled nodes.
    fresh.bounds = BoundTree(bounds.begin(), bounds.end());
    std::vector<std::uint32_t> order;
    fresh.packed.Build(boxes, order);
    fresh.packedKeys.resize(keys.size());
    for (std::size_t i = 0; i < order.size(); ++i) fresh.packedKeys[i] = keys[order[i]];
    *mImpl = std::move(fresh);
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
    // A chunk whose bounds meet the rectangle can have segments that pass by it.
    mImpl->visit(box, [&](int id, int start, const TLPoint& a, const TLPoint& b, bool) {
        if (meets(a, b, box)) out.push_back(TLSegmentRef{id, start, a, b});
    });
}

bool TLSpatialIndex::NearestSegment(const TLPoint& p, double tolerance, TLSegmentRef& hit,
                                    TLPoint& foot) const {
    if (!usable(p, tolerance)) return false;
    const double limit = tolerance * tolerance;
    double best = std::numeric_limits<double>::infinity();
    bool found = false;
    mImpl->visit(
        searchBox(p, tolerance), [&](int id, int start, const TLPoint& a, const TLPoint& b, bool) {
            // A segment whose bounds stay clear of the search box cannot be near
            // enough: no need to work out its foot.
            if (std::min(a.x, b.x) > p.x + tolerance || std::max(a.x, b.x) < p.x - tolerance ||
                std::min(a.y, b.y) > p.y + tolerance || std::max(a.y, b.y) < p.y - tolerance)
                return;
            TLPoint f;
            const double d2 = footOnSegment(p, a, b, f);
            if (d2 > limit) return;
            if (found && !better(d2, id, start, best, hit.featureId, hit.start)) return;
            best = d2;
            hit = TLSegmentRef{id, start, a, b};
            foot = f;
            found = true;
        });
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
    mImpl->visit(searchBox(p, tolerance),
                 [&](int id, int start, const TLPoint& a, const TLPoint& b, bool lone) {
                     consider(id, start, a);
                     if (!lone) consider(id, start + 1, b);
                 });
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
