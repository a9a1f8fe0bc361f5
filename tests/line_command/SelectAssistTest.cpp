#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "digitize/TLSelectAssistTool.h"
#include "hostkit/TLHostBuddy.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlsparef/TLCoordinateSystem.h"

namespace TMObjects {
namespace {

using Segment = std::vector<double>;  // x1, y1, x2, y2

// A view of 800 x 600 pixels over map x 0..800, y 0..600: three pixels are three map units.
class SelectAssist : public ::testing::Test {
protected:
    void SetUp() override {
        map = TLRefPtr<TLMap>(new TLMap);
        view = std::make_unique<TLMapView>(map);
        view->SetDeviceSize(800, 600);
        view->SetVisibleBounds(TLRect(0, 800, 0, 600));
        buddy = std::make_unique<TLHostBuddy>(view.get());
    }

    TLFeatureLayer* addLayer(TLLayer::LayerType type, const char* crs = nullptr) {
        TLRefPtr<TLCoordinateSystem> reference =
            crs ? TLSpatialObjectFactory::LoadCoordinateSystem(crs) : nullptr;
        TLFeatureLayer* layer =
            TLFeatureLayer::CreateMemoryLayer("layer", type, TLFields(), reference);
        map->InsertLayer(-1, layer, true);
        return layer;
    }

    int add(TLFeatureLayer* layer, TLRefPtr<TLGeometry> geometry) {
        TLFeature feature;
        feature.SetGeometry(geometry);
        return layer->GetDatasource()->Insert(feature);
    }

    int addLine(TLFeatureLayer* layer, const std::vector<TLPoint>& vertices) {
        TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline);
        for (const TLPoint& p : vertices) line->AddXY(p.x, p.y);
        line->EndEntity();
        return add(layer, line);
    }

    Segment pick(double x, double y) {
        Segment s(4, -1.0);
        assist.PickSegment(buddy.get(), &x, &y, &s[0], &s[1], &s[2], &s[3]);
        return s;
    }

    TLRefPtr<TLMap> map;
    std::unique_ptr<TLMapView> view;
    std::unique_ptr<TLHostBuddy> buddy;
    TLSelectAssistTool assist;
};

TEST_F(SelectAssist, TheFirstHitWinsNotTheNearest) {
    TLFeatureLayer* lower = addLayer(TLLayer::LineLayer);
    TLFeatureLayer* upper = addLayer(TLLayer::LineLayer);
    addLine(lower, {{0, 100}, {800, 100}});
    // In the last layer of the list: the lower id, though farther, and in it the first segment.
    addLine(upper, {{0, 102.5}, {800, 102.5}});
    addLine(upper, {{0, 101}, {300, 101}, {300, 99}, {800, 99}});
    EXPECT_EQ(pick(400, 100), (Segment{0, 102.5, 800, 102.5}));

    addLine(lower, {{0, 202}, {800, 202}, {800, 200}, {0, 200}});
    EXPECT_EQ(pick(400, 200), (Segment{0, 202, 800, 202}));
}

TEST_F(SelectAssist, OnlyWithinThreePixelsAndOnlyOnTheSegmentItself) {
    TLFeatureLayer* roads = addLayer(TLLayer::LineLayer);
    addLine(roads, {{100, 100}, {300, 100}});
    EXPECT_EQ(pick(200, 103), (Segment{100, 100, 300, 100}));
    EXPECT_EQ(pick(200, 103.5), (Segment{0, 0, 0, 0}));
    EXPECT_EQ(pick(302, 100), (Segment{0, 0, 0, 0})) << "beyond the end, the foot is off it";

    // At ten map units a pixel the reach is thirty units.
    view->SetVisibleBounds(TLRect(0, 8000, 0, 6000));
    EXPECT_EQ(pick(200, 129), (Segment{100, 100, 300, 100}));
}

TEST_F(SelectAssist, TheStepBetweenTwoPartsCountsOnlyWhereTheFeatureReaches) {
    TLFeatureLayer* roads = addLayer(TLLayer::LineLayer);
    TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline);
    line->BeginPath();
    line->AddXY(0, 100);
    line->AddXY(100, 100);
    line->BeginPath();
    line->AddXY(300, 100);
    line->AddXY(400, 98);
    line->EndEntity();
    add(roads, line);
    // The feature does not come near (200, 100): the search does not give it at all.
    EXPECT_EQ(pick(200, 100), (Segment{0, 0, 0, 0}));
    // Near its second part it is given, and the step comes first in vertex order.
    EXPECT_EQ(pick(300, 101), (Segment{100, 100, 300, 100}));
}

TEST_F(SelectAssist, PolygonRingsArePickedLikeLinesOtherKindsNot) {
    TLFeatureLayer* wells = addLayer(TLLayer::PointLayer);
    addLine(wells, {{0, 300}, {800, 300}});
    EXPECT_EQ(pick(400, 300), (Segment{0, 0, 0, 0})) << "a point layer is not searched";

    TLFeatureLayer* parcels = addLayer(TLLayer::PolygonLayer);
    TLRefPtr<TLGeoPolygon> square(new TLGeoPolygon);
    square->BeginPath();
    square->BeginSegment(1);
    for (TLPoint p : {TLPoint(100, 100), TLPoint(200, 100), TLPoint(200, 200), TLPoint(100, 200),
                      TLPoint(100, 100)})
        square->AddXY(p.x, p.y);
    square->EndEntity();
    add(parcels, square);
    EXPECT_EQ(pick(101, 150), (Segment{100, 200, 100, 100})) << "the closing edge";
    EXPECT_EQ(pick(150, 150), (Segment{0, 0, 0, 0})) << "the inside is no edge";
}

TEST_F(SelectAssist, TheFeaturePicksSelectWhatTheyFind) {
    TLFeatureLayer* roads = addLayer(TLLayer::LineLayer);
    const int id = addLine(roads, {{100, 100}, {300, 100}, {300, 300}});
    TLPoint start, end, foot(-1, -1);

    EXPECT_FALSE(assist.PickFeature(buddy.get(), TLPoint(500, 500), start, end));
    EXPECT_FALSE(roads->HasSelectedFeatures());

    TLRefPtr<TLGeometry> picked =
        assist.PickFeatureAndFoot(buddy.get(), TLPoint(298, 250), start, end, foot);
    ASSERT_TRUE(picked);
    EXPECT_EQ(picked->GetType(), TLGeometry::GeoPolyline);
    EXPECT_EQ(start, TLPoint(300, 100));
    EXPECT_EQ(end, TLPoint(300, 300));
    EXPECT_EQ(foot, TLPoint(300, 250));
    EXPECT_EQ(roads->GetSelectedIds(), std::vector<int>{id});

    roads->ClearSelect(false);
    ASSERT_TRUE(assist.PickFeature(buddy.get(), TLPoint(150, 101), start, end));
    EXPECT_EQ(start, TLPoint(100, 100));
    EXPECT_TRUE(roads->IsSelected(id));
}

// A layer in another system is searched with the pick square taken into that system, and the
// square stays so for the layers after it. The vertices are compared with the map point as they
// stand. Map in metres (Web Mercator), the upper layer in degrees.
TEST_F(SelectAssist, InAnotherSystemThePointMeetsTheLayersCoordinatesAsTheyStand) {
    map->SetSpatialReference(TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:3857"));
    TLFeatureLayer* roads = addLayer(TLLayer::LineLayer, "EPSG:3857");
    addLine(roads, {{8, 0}, {20, 0}});
    EXPECT_EQ(pick(10, 1), (Segment{8, 0, 20, 0}));

    // Above it an empty layer in degrees: the square, now about 0.00006 to 0.00012 degrees
    // wide, no longer meets the road below.
    TLFeatureLayer* tracks = addLayer(TLLayer::LineLayer, "EPSG:4326");
    EXPECT_EQ(pick(10, 1), (Segment{0, 0, 0, 0}));

    // A track through the square in degrees is a candidate, and its segment from 5 to 15
    // degrees is one metre from the map point (10, 1) as the numbers stand.
    addLine(tracks, {{0, 0}, {0.00015, 0}, {5, 0}, {15, 0}});
    EXPECT_EQ(pick(10, 1), (Segment{5, 0, 15, 0}));
}

TEST_F(SelectAssist, WithoutAViewTheResultsAreLeftAlone) {
    buddy->SetMapView(nullptr);
    EXPECT_EQ(pick(1, 1), (Segment{-1, -1, -1, -1}));
}

}  // namespace
}  // namespace TMObjects
