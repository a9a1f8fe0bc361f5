#include <cmath>

#include "ViewFixture.h"
#include "tlsparef/TLCoordinateSystem.h"

namespace TMObjects {
namespace {

using Kinds = std::vector<RecordingListener::Kind>;
using R = RecordingListener;

void expectRect(const TLRect& r, double xmin, double xmax, double ymin, double ymax,
                double tolerance = 1e-9) {
    ASSERT_FALSE(r.IsEmpty());
    EXPECT_NEAR(r.XMinimum(), xmin, tolerance);
    EXPECT_NEAR(r.XMaximum(), xmax, tolerance);
    EXPECT_NEAR(r.YMinimum(), ymin, tolerance);
    EXPECT_NEAR(r.YMaximum(), ymax, tolerance);
}

class MapView : public ViewFixture {};

TEST_F(MapView, RepaintRequestsReachTheListenerAndNeedNone) {
    view->RefreshMap(false, TLRect(1, 2, 3, 4));
    view->Refresh(nullptr, TLMapCache::SelectionCache, TLRect());
    view->UpdateView(true);
    view->RefreshOverlay();
    view->UpdateMap();
    EXPECT_EQ(listener.kinds(),
              (Kinds{R::RefreshMap, R::Refresh, R::UpdateView, R::RefreshOverlay, R::UpdateMap}));
    EXPECT_EQ(listener.calls[0].rect, TLRect(1, 2, 3, 4));
    EXPECT_TRUE(listener.calls[1].rect.IsEmpty());
    EXPECT_EQ(listener.calls[1].layer, nullptr);
    EXPECT_EQ(listener.calls[1].value, 2);

    // Headless and without anyone listening, the same calls simply do nothing.
    view->SetListener(nullptr);
    view->RefreshMap(false, TLRect());
    view->UpdateView(true);
    view->PanToBound(TLRect(0, 1, 0, 1));
    TLRefPtr<TLGeometry> point = makePoint(1, 1);
    view->TwinkleGeometry(point.get(), nullptr, 3);
    view->setClipPolygon(nullptr);
    EXPECT_EQ(listener.calls.size(), 5u);
}

TEST_F(MapView, PanKeepsTheScaleAndZoomShowsTheRectangle) {
    view->PanToBound(TLRect(1000, 1010, 2000, 2010));
    expectRect(view->GetVisibleRect(), 605, 1405, 1705, 2305);
    EXPECT_EQ(view->GetDisplayTransform()->mResolution, 1.0);

    view->ZoomToBound(TLRect(100, 180, 0, 60));
    expectRect(view->GetVisibleRect(), 100, 180, 0, 60);
    EXPECT_DOUBLE_EQ(view->GetDisplayTransform()->mResolution, 0.1);

    // A point has no size to zoom to: the view only moves there.
    view->ZoomToBound(TLRect(500, 500, 500, 500));
    expectRect(view->GetVisibleRect(), 460, 540, 470, 530);
    EXPECT_DOUBLE_EQ(view->GetDisplayTransform()->mResolution, 0.1);

    // A line along one axis still fixes the scale.
    view->ZoomToBound(TLRect(0, 0, 0, 1200));
    expectRect(view->GetVisibleRect(), -800, 800, 0, 1200);

    const int moves = listener.count(R::BoundsChanged);
    EXPECT_EQ(moves, 4);
    view->ZoomToBound(TLRect());
    view->PanToBound(TLRect());
    view->ZoomToBound(TLRect(NAN, 0, 0, 1));
    view->SetVisibleBounds(TLRect(0, INFINITY, 0, 1));
    view->SetDeviceSize(0, 100);
    expectRect(view->GetVisibleRect(), -800, 800, 0, 1200);
    EXPECT_EQ(listener.count(R::BoundsChanged), moves);
}

TEST_F(MapView, SelectionBoundIsTakenInTheMapSystem) {
    setMapSystem("EPSG:3857");
    TLFeatureLayer* places = addLayer(TLLayer::PointLayer, "EPSG:4326");
    const int berlin = addFeature(places, makePoint(13.4, 52.5));
    const int paris = addFeature(places, makePoint(2.35, 48.85));
    addFeature(places, makePoint(-70, -30));  // not selected
    TLFeatureLayer* lines = addLayer(TLLayer::LineLayer, "EPSG:3857");
    const int road = addFeature(lines, makeLine({{{0, 0}, {100000, 50000}}}));

    // Nothing selected: the view stays where it is.
    view->ZoomToSelection(places);
    view->PanToSelection(nullptr);
    expectRect(view->GetVisibleRect(), 0, 800, 0, 600);

    places->AddSelect(paris);
    view->PanToSelection(places);
    const TLPoint p = webMercator(2.35, 48.85);
    expectRect(view->GetVisibleRect(), p.x - 400, p.x + 400, p.y - 300, p.y + 300, 1e-4);

    places->AddSelect(berlin);
    view->ZoomToSelection(places);
    const TLPoint b = webMercator(13.4, 52.5);
    const TLRect shown = view->GetVisibleRect();
    EXPECT_NEAR(shown.XMinimum(), p.x, 1e-4);
    EXPECT_NEAR(shown.XMaximum(), b.x, 1e-4);
    EXPECT_NEAR(shown.Center().y, (p.y + b.y) / 2, 1e-4);

    // Null takes every layer's selection.
    lines->AddSelect(road);
    view->ZoomToSelection(nullptr);
    EXPECT_NEAR(view->GetVisibleRect().YMinimum(), 0, 1e-6);
    EXPECT_NEAR(view->GetVisibleRect().YMaximum(), b.y, 1e-4);
}

TEST_F(MapView, TwinkleAndClipTellTheListenerAtOnce) {
    TLRefPtr<TLGeometry> a = makePoint(1, 1), b = makeLine({{{0, 0}, {1, 1}}});
    view->TwinkleGeometry(a.get(), nullptr, 3);
    view->TwinkleGeometry(nullptr, nullptr, 3);
    TLGeometry* several[3] = {b.get(), nullptr, a.get()};
    view->TwinkleGeometrysInOrder(several, 3, nullptr, nullptr, nullptr, 120);
    view->TwinkleGeometrysInOrder(nullptr, 3, nullptr, nullptr, nullptr, 120);
    ASSERT_EQ(listener.kinds(), (Kinds{R::Twinkle, R::Twinkle, R::Twinkle}));
    EXPECT_EQ(listener.calls[0].geometry, a.get());
    EXPECT_EQ(listener.calls[0].value, 3);
    EXPECT_EQ(listener.calls[1].geometry, b.get());
    EXPECT_EQ(listener.calls[2].geometry, a.get());

    listener.calls.clear();
    {
        TLGeoPolygon mask;  // a temporary, as the mask tools pass it
        mask.BeginPath();
        mask.BeginSegment(1);
        const double corners[][2] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
        for (const auto& xy : corners) mask.AddXY(xy[0], xy[1]);
        mask.EndEntity();
        mask.Forward();
        view->setClipPolygon(&mask);
        ASSERT_NE(view->clipPolygon(), nullptr);
        EXPECT_NE(view->clipPolygon(), &mask);
    }
    EXPECT_DOUBLE_EQ(view->clipPolygon()->GetArea(), 100);
    TLGeoPolygon empty;
    view->setClipPolygon(&empty);
    EXPECT_EQ(view->clipPolygon(), nullptr);
    view->setClipPolygon(nullptr);
    EXPECT_EQ(view->clipPolygon(), nullptr);
    EXPECT_EQ(listener.kinds(), (Kinds{R::Clip, R::Clip, R::Clip}));
}

TEST_F(MapView, MapUnitFollowsTheMapSystem) {
    EXPECT_EQ(view->GetMapUnit(), TLUnitUnknown);
    EXPECT_EQ(view->GetDisplayTransform()->mUnits, 0);
    setMapSystem("EPSG:3857");
    EXPECT_EQ(view->GetMapUnit(), TLUnitMeter);
    EXPECT_EQ(view->GetDisplayTransform()->mUnits, TLMeters);
    setMapSystem("EPSG:4326");
    EXPECT_EQ(view->GetMapUnit(), TLUnitDegree);
    EXPECT_EQ(view->GetDisplayTransform()->mUnits, TLDecimalDegrees);
    setMapSystem("EPSG:2263");  // New York Long Island, US survey feet
    EXPECT_EQ(view->GetMapUnit(), TLUnitFeet);
}

}  // namespace
}  // namespace TMObjects
