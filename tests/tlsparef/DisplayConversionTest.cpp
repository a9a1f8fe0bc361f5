#include <gtest/gtest.h>

#include <cmath>

#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLDisplay.h"
#include "tlmap/TLMap.h"

using namespace TMObjects;

namespace {

constexpr double kMetre = 1e-6;
constexpr double kDegree = 1e-9;
constexpr double kRadius = 6378137.0;

double mercatorX(double lon) {
    return kRadius * lon * M_PI / 180.0;
}
double mercatorY(double lat) {
    return kRadius * std::log(std::tan(M_PI / 4 + lat * M_PI / 360.0));
}

TLRefPtr<TLCoordinateSystem> load(const char* text) {
    return TLSpatialObjectFactory::LoadCoordinateSystem(TLString(text));
}

// A map in Web Mercator shown on a display, and a layer reference in geographic WGS 84.
class DisplayConversion : public ::testing::Test {
protected:
    void SetUp() override {
        map.SetSpatialReference(load("EPSG:3857"));
        layer = load("EPSG:4326");
        ASSERT_TRUE(map.GetSpatialReference() && layer);
    }
    TLMap map;
    TLDisplay display{&map};
    TLRefPtr<TLCoordinateSystem> layer;
};

}  // namespace

TEST_F(DisplayConversion, MapCoordinatesGoIntoTheLayerSystem) {
    TLPoint point(1113194.9079327357, 6446275.841017158);
    EXPECT_TRUE(display.ToPoint(layer.get(), point));
    EXPECT_NEAR(point.x, 10.0, kDegree);
    EXPECT_NEAR(point.y, 50.0, kDegree);

    TLGeoPoint geoPoint(1113194.9079327357, 6446275.841017158);
    EXPECT_TRUE(display.ToGeometry(layer.get(), &geoPoint));
    EXPECT_NEAR(geoPoint.GetX(), 10.0, kDegree);
    EXPECT_NEAR(geoPoint.GetY(), 50.0, kDegree);

    // Repeated conversions (one per commit) give the same answer from the kept pipeline.
    for (int i = 0; i < 3; ++i) {
        TLPoint again(mercatorX(-3.0), mercatorY(40.0));
        EXPECT_TRUE(display.ToPoint(layer.get(), again));
        EXPECT_NEAR(again.x, -3.0, kDegree);
        EXPECT_NEAR(again.y, 40.0, kDegree);
    }
}

TEST_F(DisplayConversion, LayerCoordinatesComeBackIntoTheMapSystem) {
    TLGeoPolygon polygon;
    polygon.BeginPath();
    polygon.BeginSegment(1);
    polygon.AddXY(10.0, 50.0);
    polygon.AddXY(11.0, 50.0);
    polygon.AddXY(11.0, 51.0);
    polygon.EndEntity();
    EXPECT_TRUE(display.ToMapGeometry(layer.get(), &polygon));
    EXPECT_NEAR(polygon.Parts().Point(0).x, 1113194.9079327357, kMetre);
    EXPECT_NEAR(polygon.Parts().Point(0).y, 6446275.841017158, kMetre);
    EXPECT_NEAR(polygon.Parts().Point(2).x, mercatorX(11.0), kMetre);
    EXPECT_NEAR(polygon.Parts().Point(2).y, mercatorY(51.0), kMetre);

    TLRect rect(10.0, 11.0, 50.0, 51.0);
    EXPECT_TRUE(display.ToMapRect(layer.get(), rect));
    EXPECT_NEAR(rect.XMinimum(), mercatorX(10.0), kMetre);
    EXPECT_NEAR(rect.XMaximum(), mercatorX(11.0), kMetre);
    EXPECT_NEAR(rect.YMinimum(), mercatorY(50.0), kMetre);
    EXPECT_NEAR(rect.YMaximum(), mercatorY(51.0), kMetre);

    // The bound of one point has no size and stays the point.
    TLRect pointBound(10.0, 10.0, 50.0, 50.0);
    EXPECT_TRUE(display.ToMapRect(layer.get(), pointBound));
    EXPECT_FALSE(pointBound.IsEmpty());
    EXPECT_NEAR(pointBound.XMinimum(), 1113194.9079327357, kMetre);
    EXPECT_NEAR(pointBound.XMaximum(), 1113194.9079327357, kMetre);
    EXPECT_NEAR(pointBound.YMaximum(), 6446275.841017158, kMetre);
}

TEST_F(DisplayConversion, EqualOrMissingSystemsLeaveValuesAlone) {
    const TLPoint original(1113194.9079327357, 6446275.841017158);
    auto sameAsMap = load(map.GetSpatialReference()->ExportToWkt().toStdString().c_str());
    for (TLCoordinateSystem* reference : {sameAsMap.get(), map.GetSpatialReference().get(),
                                          static_cast<TLCoordinateSystem*>(nullptr)}) {
        TLPoint point = original;
        EXPECT_TRUE(display.ToPoint(reference, point));
        EXPECT_EQ(point, original);
        TLGeoPoint geoPoint(original.x, original.y);
        EXPECT_TRUE(display.ToGeometry(reference, &geoPoint));
        EXPECT_TRUE(display.ToMapGeometry(reference, &geoPoint));
        EXPECT_EQ(geoPoint.GetX(), original.x);
        EXPECT_EQ(geoPoint.GetY(), original.y);
        TLRect rect(1.0, 2.0, 3.0, 4.0);
        EXPECT_TRUE(display.ToMapRect(reference, rect));
        EXPECT_EQ(rect, TLRect(1.0, 2.0, 3.0, 4.0));
    }

    TLRect empty;
    EXPECT_TRUE(display.ToMapRect(layer.get(), empty));
    EXPECT_TRUE(empty.IsEmpty());

    TLMap withoutSystem;
    TLDisplay plain(&withoutSystem);
    TLPoint point = original;
    EXPECT_TRUE(plain.ToPoint(layer.get(), point));
    EXPECT_EQ(point, original);
    TLDisplay noMap(nullptr);
    EXPECT_TRUE(noMap.ToPoint(layer.get(), point));
    EXPECT_EQ(point, original);

    EXPECT_FALSE(display.ToGeometry(layer.get(), nullptr));
    EXPECT_FALSE(display.ToMapGeometry(layer.get(), nullptr));
}

TEST_F(DisplayConversion, FollowsAChangeOfTheMapSystemAndRefusesWhatCannotBeConverted) {
    TLPoint point(mercatorX(9.0), 0.0);
    EXPECT_TRUE(display.ToPoint(layer.get(), point));
    EXPECT_NEAR(point.x, 9.0, kDegree);

    // Zone 32 of UTM now: the kept Mercator pipeline must not be used any more.
    map.SetSpatialReference(load("EPSG:32632"));
    point = TLPoint(500000.0, 0.0);
    EXPECT_TRUE(display.ToPoint(layer.get(), point));
    EXPECT_NEAR(point.x, 9.0, kDegree);
    EXPECT_NEAR(point.y, 0.0, kDegree);

    // Off the zone the conversion fails and the value stays as it was.
    TLGeoPoint geoPoint(100.0, 0.0);
    EXPECT_FALSE(display.ToMapGeometry(layer.get(), &geoPoint));
    EXPECT_EQ(geoPoint.GetX(), 100.0);
    TLRect rect(99.0, 101.0, -1.0, 1.0);
    EXPECT_FALSE(display.ToMapRect(layer.get(), rect));
    EXPECT_EQ(rect, TLRect(99.0, 101.0, -1.0, 1.0));

    TLCoordinateSystem broken("nonsense");
    TLPoint unchanged(500000.0, 0.0);
    EXPECT_FALSE(display.ToPoint(&broken, unchanged));
    EXPECT_EQ(unchanged, TLPoint(500000.0, 0.0));

    // Many references made on the fly, each a new object, all convert correctly; a system that
    // nobody holds through TLRefPtr (here on the stack) is used but never kept or released.
    TLCoordinateSystem onStack("EPSG:4326");
    for (int i = 0; i < 20; ++i) {
        auto fresh = load("EPSG:4326");
        TLPoint p(500000.0, 0.0);
        EXPECT_TRUE(display.ToPoint(fresh.get(), p));
        EXPECT_NEAR(p.x, 9.0, kDegree);
        TLPoint q(500000.0, 0.0);
        EXPECT_TRUE(display.ToPoint(&onStack, q));
        EXPECT_NEAR(q.x, 9.0, kDegree);
    }
    EXPECT_EQ(onStack.RefCount(), 0);
}
