#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <vector>

#include "ViewFixture.h"
#include "tlmap/TLSnap.h"
#include "tlmap/TLSnapTool.h"

namespace TMObjects {
namespace {

using R = RecordingListener;

class SnapTool : public ViewFixture {
protected:
    void SetUp() override {
        ViewFixture::SetUp();
        ASSERT_TRUE(snap.Init(buddy.get()));
    }
    // Snaps and answers where the point went, or nothing.
    std::optional<TLPoint> snapAt(double x, double y, TLFeatureLayer* layer = nullptr) {
        if (!snap.Snap(x, y, layer)) return std::nullopt;
        TLPoint p(-1, -1);
        EXPECT_TRUE(snap.GetSnappedPoint(p));
        return p;
    }
    // A line layer holding the polyline (0,100) (200,100) (200,300).
    TLFeatureLayer* addRoad() {
        TLFeatureLayer* roads = addLayer(TLLayer::LineLayer);
        addFeature(roads, makeLine({{{0, 100}, {200, 100}, {200, 300}}}));
        return roads;
    }
    TLSnapTool snap;
};

TEST_F(SnapTool, NearestVertexWinsOverAnyNearerSegmentPoint) {
    addRoad();
    EXPECT_EQ(snapAt(195, 103), TLPoint(200, 100));
    EXPECT_EQ(snap.LastType(), TLSnapVertex);
    EXPECT_EQ(snapAt(100, 104), TLPoint(100, 100));
    EXPECT_EQ(snap.LastType(), TLSnapSegment);
    EXPECT_EQ(snapAt(100, 111), std::nullopt);
    EXPECT_EQ(snap.LastType(), TLSnapNone);

    // Across layers the nearest vertex is taken.
    TLFeatureLayer* wells = addLayer(TLLayer::PointLayer);
    addFeature(wells, makePoint(196, 101));
    EXPECT_EQ(snapAt(195, 103), TLPoint(196, 101));

    TLSnapEnvironment::Instance()->setSnapToVertex(false);
    EXPECT_EQ(snapAt(195, 103), TLPoint(195, 100));
    TLSnapEnvironment::Instance()->setSnapToVertex(true);
    TLSnapEnvironment::Instance()->setSnapToSegment(false);
    EXPECT_EQ(snapAt(100, 104), std::nullopt);
}

TEST_F(SnapTool, ToleranceIsPixelsAtTheScaleShown) {
    addRoad();
    EXPECT_EQ(snapAt(100, 115), std::nullopt);
    view->SetVisibleBounds(TLRect(0, 1600, 0, 1200));  // two map units a pixel
    EXPECT_EQ(snapAt(100, 115), TLPoint(100, 100));
    EXPECT_EQ(snapAt(100, 121), std::nullopt);
    TLSnapEnvironment::Instance()->setTolerance(11);
    EXPECT_EQ(snapAt(100, 121), TLPoint(100, 100));
}

TEST_F(SnapTool, HiddenLayersAreNotSearchedUnlessNamed) {
    TLFeatureLayer* roads = addRoad();
    roads->SetVisible(false);
    EXPECT_EQ(snapAt(195, 103), std::nullopt);
    EXPECT_EQ(snapAt(195, 103, roads), TLPoint(200, 100));

    // Outside its scale range a layer is not drawn either; at 1 unit a pixel the scale is
    // about 1:3780.
    roads->SetVisible(true);
    roads->SetVisibleScales(100, 2000);
    EXPECT_EQ(snapAt(195, 103), std::nullopt);
    view->SetVisibleBounds(TLRect(0, 200, 0, 150));  // about 1:945
    EXPECT_EQ(snapAt(199, 101), TLPoint(200, 100));

    TLFeatureLayer* other = addLayer(TLLayer::PointLayer);
    addFeature(other, makePoint(199.5, 100.8));
    EXPECT_EQ(snapAt(199.5, 101), TLPoint(199.5, 100.8));
    EXPECT_EQ(snapAt(199.5, 101, roads), TLPoint(200, 100)) << "only the named layer counts";
}

TEST_F(SnapTool, LayerInAnotherSystemSnapsWhereItIsDrawn) {
    setMapSystem("EPSG:3857");
    TLFeatureLayer* roads = addLayer(TLLayer::LineLayer, "EPSG:4326");
    addFeature(roads, makeLine({{{10, 50}, {10.01, 50}}}));
    const TLPoint start = webMercator(10, 50), end = webMercator(10.01, 50);
    view->SetVisibleBounds(TLRect(start.x - 400, start.x + 400, start.y - 300, start.y + 300));

    const std::optional<TLPoint> vertex = snapAt(start.x + 3, start.y - 4);
    ASSERT_TRUE(vertex);
    EXPECT_NEAR(vertex->x, start.x, 1e-6);
    EXPECT_NEAR(vertex->y, start.y, 1e-6);
    EXPECT_EQ(snap.LastType(), TLSnapVertex);

    const double middle = (start.x + end.x) / 2;
    const std::optional<TLPoint> onRoad = snapAt(middle, start.y + 6);
    ASSERT_TRUE(onRoad);
    EXPECT_NEAR(onRoad->x, middle, 1e-6);
    EXPECT_NEAR(onRoad->y, start.y, 1e-6);
    EXPECT_EQ(snap.LastType(), TLSnapSegment);

    // Ten metres is ten pixels here, in every direction.
    EXPECT_EQ(snapAt(middle, start.y - 10.5), std::nullopt);
    EXPECT_EQ(snapAt(start.x - 10.5, start.y), std::nullopt);
    EXPECT_TRUE(snapAt(start.x - 9.5, start.y));
}

TEST_F(SnapTool, CachedShapesTakePartUntilReset) {
    addRoad();
    snap.CacheShapes(makePoint(100, 108).get());
    EXPECT_EQ(snapAt(100, 101), TLPoint(100, 108)) << "a cached vertex beats the road's edge";

    // The band of a tool grows click by click; the shape it replaces adds nothing.
    snap.CacheShapes(makeLine({{{100, 108}, {300, 108}}}).get());
    snap.CacheShapes(makeLine({{{100, 108}, {300, 108}, {300, 400}}}).get());
    snap.CacheShapes(makeLine({{{100, 108}, {300, 108}, {300, 400}}}).get());
    EXPECT_EQ(snap.CachedShapeCount(), 1);
    EXPECT_EQ(snapAt(297, 250), TLPoint(300, 250));
    {
        TLGeoPoint onStack(500, 500);  // tools may pass a shape that dies right after
        snap.CacheShapes(&onStack);
    }
    snap.CacheShapes(nullptr);
    EXPECT_EQ(snap.CachedShapeCount(), 2);
    EXPECT_EQ(snapAt(504, 497), TLPoint(500, 500));

    TLSnapEnvironment::Instance()->getPointSnapper()->cache().push_back(TLPoint(600, 50));
    EXPECT_EQ(snapAt(603, 52), TLPoint(600, 50));

    snap.Reset();
    EXPECT_EQ(snap.CachedShapeCount(), 0);
    EXPECT_EQ(snapAt(504, 497), std::nullopt);
    EXPECT_EQ(snapAt(100, 101), TLPoint(100, 100));
}

TEST_F(SnapTool, WithoutAResultThePointStaysAsItWas) {
    addRoad();
    // A press before any move: nothing has been searched yet.
    double x = 12.5, y = 7.25;
    EXPECT_FALSE(snap.GetSnapXY(x, y));
    EXPECT_EQ(TLPoint(x, y), TLPoint(12.5, 7.25));

    ASSERT_TRUE(snap.Snap(TLPoint(195, 103), nullptr));
    EXPECT_FALSE(snap.Snap(TLPoint(500, 500), nullptr));
    TLPoint p(500, 500);
    EXPECT_FALSE(snap.GetSnappedPoint(p));
    EXPECT_FALSE(snap.GetSnapXY(x, y));
    EXPECT_EQ(p, TLPoint(500, 500));
    EXPECT_EQ(TLPoint(x, y), TLPoint(12.5, 7.25));

    EXPECT_FALSE(snap.Snap(NAN, 100, nullptr));
    TLSnapTool unbound;
    EXPECT_FALSE(unbound.Init(nullptr));
    EXPECT_FALSE(unbound.Snap(195, 103, nullptr));
    EXPECT_FALSE(unbound.GetSnapXY(x, y));
    unbound.Draw(nullptr, TLSnapEnvironment::Instance());
    unbound.Reset();
}

TEST_F(SnapTool, DrawShowsTheMarkerAndRepaintsOnlyOnChange) {
    addRoad();
    snap.Snap(195, 103, nullptr);
    snap.Draw(view->GetDisplayTransform(), TLSnapEnvironment::Instance());
    EXPECT_TRUE(view->HasSnapMarker());
    EXPECT_EQ(view->SnapMarker(), TLPoint(200, 100));
    snap.Snap(196, 102, nullptr);
    snap.Draw(view->GetDisplayTransform(), TLSnapEnvironment::Instance());
    EXPECT_EQ(listener.count(R::RefreshOverlay), 1);

    snap.Snap(500, 500, nullptr);
    snap.Draw(view->GetDisplayTransform(), TLSnapEnvironment::Instance());
    EXPECT_FALSE(view->HasSnapMarker());
    EXPECT_EQ(listener.count(R::RefreshOverlay), 2);

    snap.Snap(195, 103, nullptr);
    snap.Draw(view->GetDisplayTransform(), TLSnapEnvironment::Instance());
    snap.Reset();
    EXPECT_FALSE(view->HasSnapMarker());
    EXPECT_EQ(listener.count(R::RefreshOverlay), 4);
}

// What a snap must find, worked out the slow way: every feature of every layer asked on its own.
struct BruteSnap {
    TLSnappingType type = TLSnapNone;
    double distance = std::numeric_limits<double>::infinity();
};

BruteSnap bruteSnap(const std::vector<TLFeatureLayer*>& layers, const TLPoint& p,
                    double tolerance) {
    BruteSnap vertex, segment;
    for (TLFeatureLayer* layer : layers) {
        for (int id : layer->GetDatasource()->GetIds()) {
            TLGeometry* geometry = layer->GetDatasource()->PeekFeature(id)->GetGeometry().get();
            TLPoint hit;
            double d = 0;
            if (TLSnap::NearestVertex(geometry, p, tolerance, hit, d) && d < vertex.distance)
                vertex = {TLSnapVertex, d};
            if (TLSnap::NearestSegmentPoint(geometry, p, tolerance, hit, d) && d < segment.distance)
                segment = {TLSnapSegment, d};
        }
    }
    return vertex.type != TLSnapNone ? vertex : segment;
}

// Random walks on two line layers and squares on a polygon layer, dense enough that a vertex, an
// edge and nothing are all common answers within the ten pixels.
TEST_F(SnapTool, FindsWhatASearchOfEveryFeatureFinds) {
    std::mt19937 rng(5);
    std::uniform_real_distribution<double> start(0, 800), step(-40, 40), size(5, 40);
    std::vector<TLFeatureLayer*> layers;
    for (int l = 0; l < 2; ++l) {
        layers.push_back(addLayer(TLLayer::LineLayer));
        for (int line = 0; line < 60; ++line) {
            TLRefPtr<TLGeoPolyline> walk(new TLGeoPolyline);
            double x = start(rng), y = start(rng) * 0.75;
            for (int v = 0; v < 25; ++v, x += step(rng), y += step(rng)) walk->AddXY(x, y);
            walk->EndEntity();
            addFeature(layers.back(), walk);
        }
    }
    layers.push_back(addLayer(TLLayer::PolygonLayer));
    for (int square = 0; square < 80; ++square) {
        const double x = start(rng), y = start(rng) * 0.75, s = size(rng);
        addFeature(layers.back(),
                   makePolygon({{{x, y}, {x + s, y}, {x + s, y + s}, {x, y + s}, {x, y}}}));
    }

    std::uniform_real_distribution<double> px(-20, 820), py(-20, 620);
    int answers[3] = {0, 0, 0};
    for (int q = 0; q < 3000; ++q) {
        const TLPoint p(px(rng), py(rng));
        SCOPED_TRACE(::testing::Message() << "at " << p.x << "," << p.y);
        const BruteSnap expected = bruteSnap(layers, p, 10.0);
        const std::optional<TLPoint> snapped = snapAt(p.x, p.y);
        ASSERT_EQ(snap.LastType(), expected.type);
        ++answers[expected.type];
        if (expected.type == TLSnapNone) continue;
        ASSERT_TRUE(snapped);
        // Of equally near targets either may be taken: the distance is what must agree.
        EXPECT_NEAR(std::sqrt(p.SqrDist(*snapped)), expected.distance, 1e-9);
    }
    for (int count : answers) EXPECT_GT(count, 300) << "none, vertex, edge";
}

}  // namespace
}  // namespace TMObjects
