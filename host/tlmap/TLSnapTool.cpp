#include "tlmap/TLSnapTool.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLSnap.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsde/TLSharedFeatureStore.h"
#include "tlsde/TLSpatialIndex.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

namespace {

bool finite(const TLPoint& p) {
    return std::isfinite(p.x) && std::isfinite(p.y);
}

double distance(const TLPoint& a, const TLPoint& b) {
    return std::sqrt(a.SqrDist(b));
}

using Vertices = std::vector<std::pair<double, double>>;

Vertices sortedVertices(TLGeometry* geometry) {
    Vertices out;
    double* xy = nullptr;
    int count = 0;
    if (geometry && geometry->GetRawPoints(&xy, count) && xy) {
        out.reserve(std::size_t(count));
        for (int i = 0; i < count; ++i) out.emplace_back(xy[2 * i], xy[2 * i + 1]);
    }
    std::sort(out.begin(), out.end());
    return out;
}

// Whether every vertex of `geometry` is among `vertices`.
bool coveredBy(TLGeometry* geometry, const Vertices& vertices) {
    double* xy = nullptr;
    int count = 0;
    if (!geometry->GetRawPoints(&xy, count) || !xy) return true;
    for (int i = 0; i < count; ++i) {
        if (!std::binary_search(vertices.begin(), vertices.end(),
                                std::make_pair(xy[2 * i], xy[2 * i + 1])))
            return false;
    }
    return true;
}

}  // namespace

// Projectors between the map's system and one layer's, kept while both systems stay the same
// objects. `differ` false means the layer is searched in map coordinates as they are.
struct TLSnapTool::LayerProjection {
    TLRefPtr<TLCoordinateSystem> mapReference;
    TLRefPtr<TLCoordinateSystem> layerReference;
    bool differ = false;
    bool usable = false;
    TLGeometryProject toLayer;
    TLGeometryProject toMap;

    // The query point and a tolerance in the layer's system that covers the map tolerance in
    // every direction (projections used for maps are conformal, so locally a circle stays
    // nearly a circle).
    bool queryInLayer(const TLPoint& p, double tolerance, TLPoint& q, double& layerTolerance) {
        q = p;
        if (!toLayer.ProjXY(q.x, q.y) || !finite(q)) return false;
        layerTolerance = 0.0;
        const double offsets[4][2] = {{1, 0}, {-1, 0}, {0, 1}, {0, -1}};
        for (const auto& o : offsets) {
            TLPoint e(p.x + o[0] * tolerance, p.y + o[1] * tolerance);
            if (!toLayer.ProjXY(e.x, e.y) || !finite(e)) return false;
            layerTolerance = std::max(layerTolerance, distance(q, e));
        }
        return true;
    }

    bool backToMap(TLPoint& p) { return toMap.ProjXY(p.x, p.y) && finite(p); }
};

void TLSnapTool::Candidate::offer(const TLPoint& p, double d) {
    if (found && d >= distance) return;
    found = true;
    distance = d;
    point = p;
}

TLSnapEnvironment* TLSnapEnvironment::Instance() {
    static TLSnapEnvironment environment;
    return &environment;
}

TLSnapTool::TLSnapTool() = default;

TLSnapTool::~TLSnapTool() = default;

bool TLSnapTool::Init(TLToolBuddy* buddy) {
    mBuddy = buddy;
    mHasResult = false;
    mType = TLSnapNone;
    mProjections.clear();
    return view() != nullptr;
}

TLMapView* TLSnapTool::view() const {
    return mBuddy ? mBuddy->GetMapView() : nullptr;
}

bool TLSnapTool::CanSnap() {
    return TLSnapEnvironment::Instance()->isEnabled();
}

bool TLSnapTool::Snap(TLPoint p, TLFeatureLayer* layer) {
    return Snap(p.x, p.y, layer);
}

bool TLSnapTool::Snap(const double& x, const double& y, TLFeatureLayer* layer) {
    mHasResult = false;
    mType = TLSnapNone;
    TLMapView* v = view();
    if (!v) return false;
    TLDisplayTransform* transform = v->GetDisplayTransform();
    TLSnapEnvironment* environment = TLSnapEnvironment::Instance();
    const TLPoint p(x, y);
    const double tolerance = environment->getTolerance() * transform->mResolution;
    if (!finite(p) || !std::isfinite(tolerance) || tolerance < 0) return false;

    Candidate vertex, segment;
    TLMap* map = v->GetMap();
    TLRefPtr<TLCoordinateSystem> mapReference = map ? map->GetSpatialReference() : nullptr;
    if (layer) {
        // A layer named by the caller is searched even when it is not drawn.
        searchLayer(layer, mapReference.get(), p, tolerance, vertex, segment);
    } else if (map) {
        for (const TLRefPtr<TLLayer>& each : map->GetLayers(true)) {
            auto* features = dynamic_cast<TLFeatureLayer*>(each.get());
            if (features && searchable(features, transform))
                searchLayer(features, mapReference.get(), p, tolerance, vertex, segment);
        }
    }
    searchCached(p, tolerance, vertex, segment);

    if (vertex.found) {
        mType = TLSnapVertex;
        mResult = vertex.point;
    } else if (segment.found) {
        mType = TLSnapSegment;
        mResult = segment.point;
    }
    mHasResult = mType != TLSnapNone;
    return mHasResult;
}

bool TLSnapTool::searchable(TLFeatureLayer* layer, TLDisplayTransform* transform) const {
    if (!layer->IsVisible() || !layer->IsValid()) return false;
    if (layer->GetVisibleInAllScale()) return true;
    // Scale limits are denominators: the maximum scale is the smallest denominator. With both
    // limits set the range between them counts, whichever way round they were given.
    const double denominator = transform->GetScaleRatio();
    double smallest = layer->GetVisibleScaleMax(), largest = layer->GetVisibleScaleMin();
    if (smallest > 0 && largest > 0 && smallest > largest) std::swap(smallest, largest);
    if (smallest > 0 && denominator < smallest) return false;
    if (largest > 0 && denominator > largest) return false;
    return true;
}

TLSnapTool::LayerProjection* TLSnapTool::projectionFor(TLFeatureLayer* layer,
                                                       TLCoordinateSystem* mapReference) {
    TLRefPtr<TLCoordinateSystem> layerReference = layer->GetSpatialReference();
    if (!mapReference || !layerReference) return nullptr;
    std::unique_ptr<LayerProjection>& entry = mProjections[layer->GetLayerId()];
    if (!entry || entry->mapReference.get() != mapReference ||
        entry->layerReference != layerReference) {
        entry = std::make_unique<LayerProjection>();
        entry->mapReference = mapReference;
        entry->layerReference = layerReference;
        entry->differ = !mapReference->IsSame(layerReference.get());
        entry->usable =
            !entry->differ || (entry->toLayer.SetPrj(mapReference, layerReference.get(), nullptr) &&
                               entry->toMap.SetPrj(layerReference.get(), mapReference, nullptr));
    }
    return entry->differ || !entry->usable ? entry.get() : nullptr;
}

void TLSnapTool::searchLayer(TLFeatureLayer* layer, TLCoordinateSystem* mapReference,
                             const TLPoint& p, double tolerance, Candidate& vertex,
                             Candidate& segment) {
    TLRefPtr<TLFeatureTable> table = layer->GetDatasource();
    if (!table) return;
    TLSnapEnvironment* environment = TLSnapEnvironment::Instance();
    LayerProjection* projection = projectionFor(layer, mapReference);
    TLPoint q = p;
    double layerTolerance = tolerance;
    if (projection) {
        if (!projection->usable || !projection->queryInLayer(p, tolerance, q, layerTolerance))
            return;
    }
    TLSharedFeatureStore::Want(*table, TLRect(q.x - layerTolerance, q.x + layerTolerance,
                                              q.y - layerTolerance, q.y + layerTolerance));
    const TLSpatialIndex& index = table->Index();
    TLSegmentRef ref{};
    TLPoint hit;
    // Hits are measured again in map units: the layer's tolerance is only a covering one.
    if (environment->snapToVertex() && index.NearestVertex(q, layerTolerance, ref, hit)) {
        if (!projection || projection->backToMap(hit)) {
            const double d = distance(p, hit);
            if (d <= tolerance) vertex.offer(hit, d);
        }
    }
    // Any vertex beats every segment point, so once one is found segments need no search. The
    // index keeps lone points as segments of no length; they are vertices, not edges.
    if (vertex.found || !environment->snapToSegment()) return;
    const TLLayer::LayerType type = layer->GetLayerType();
    if (type == TLLayer::PointLayer || type == TLLayer::MultiPointLayer) return;
    if (!index.NearestSegment(q, layerTolerance, ref, hit) || ref.a == ref.b) return;
    if (projection) {
        // The view draws the segment straight between its projected ends: snap onto that.
        TLPoint a = ref.a, b = ref.b;
        if (!projection->backToMap(a) || !projection->backToMap(b)) return;
        hit = TLSnap::SegmentFoot(a, b, p);
    }
    const double d = distance(p, hit);
    if (d <= tolerance) segment.offer(hit, d);
}

void TLSnapTool::searchCached(const TLPoint& p, double tolerance, Candidate& vertex,
                              Candidate& segment) {
    TLSnapEnvironment* environment = TLSnapEnvironment::Instance();
    TLPoint hit;
    double d = 0.0;
    for (const TLRefPtr<TLGeometry>& shape : mCached) {
        if (environment->snapToVertex() && TLSnap::NearestVertex(shape.get(), p, tolerance, hit, d))
            vertex.offer(hit, d);
        if (environment->snapToSegment() &&
            TLSnap::NearestSegmentPoint(shape.get(), p, tolerance, hit, d))
            segment.offer(hit, d);
    }
    if (!environment->snapToVertex()) return;
    for (const TLPoint& point : environment->getPointSnapper()->cache()) {
        d = distance(p, point);
        if (d <= tolerance) vertex.offer(point, d);
    }
}

bool TLSnapTool::GetSnapXY(double& x, double& y) {
    if (!mHasResult) return false;
    x = mResult.x;
    y = mResult.y;
    return true;
}

bool TLSnapTool::GetSnappedPoint(TLPoint& p) {
    return GetSnapXY(p.x, p.y);
}

void TLSnapTool::Draw(TLDisplayTransform*, TLSnapEnvironment*) {
    TLMapView* v = view();
    if (!v) return;
    mMarkerShown = mHasResult;
    // Repaint only on a change: Draw runs on every pointer move.
    if (v->HasSnapMarker() == mHasResult && (!mHasResult || v->SnapMarker() == mResult)) return;
    v->SetSnapMarker(mResult, mHasResult);
    v->RefreshOverlay();
}

void TLSnapTool::CacheShapes(TLGeometry* geometry) {
    if (!geometry || geometry->IsEmpty()) return;
    // A copy: callers pass temporaries and stack objects.
    TLRefPtr<TLGeometry> copy = geometry->Clone();
    if (!copy) return;
    // Tools cache their growing band after every click (some on every move); a shape whose
    // vertices all reappear in the new one adds nothing, so the cache stays the size of what
    // is being drawn.
    const Vertices vertices = sortedVertices(copy.get());
    mCached.erase(std::remove_if(mCached.begin(), mCached.end(),
                                 [&](const TLRefPtr<TLGeometry>& shape) {
                                     return coveredBy(shape.get(), vertices);
                                 }),
                  mCached.end());
    mCached.push_back(copy);
}

void TLSnapTool::Reset() {
    mHasResult = false;
    mType = TLSnapNone;
    mCached.clear();
    if (!mMarkerShown) return;
    mMarkerShown = false;
    if (TLMapView* v = view()) {
        v->SetSnapMarker(TLPoint(), false);
        v->RefreshOverlay();
    }
}

}  // namespace TMObjects
