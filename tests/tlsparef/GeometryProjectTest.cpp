#include <gtest/gtest.h>

#include <cmath>

#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlsparef/TLCoordinateSystem.h"
#include "tlsparef/TLGeometryProject.h"

using namespace TMObjects;

namespace {

constexpr double kMetre = 1e-6;
constexpr double kDegree = 1e-9;
constexpr double kRadius = 6378137.0;  // the sphere of Web Mercator

// Spherical Mercator written out, to check PROJ's numbers independently.
double mercatorX(double lon) {
    return kRadius * lon * M_PI / 180.0;
}
double mercatorY(double lat) {
    return kRadius * std::log(std::tan(M_PI / 4 + lat * M_PI / 360.0));
}

TLRefPtr<TLCoordinateSystem> load(const char* text) {
    return TLSpatialObjectFactory::LoadCoordinateSystem(TLString(text));
}

class Projector : public ::testing::Test {
protected:
    void SetUp() override {
        wgs84 = load("EPSG:4326");
        mercator = load("EPSG:3857");
        utm32 = load("EPSG:32632");
        ASSERT_TRUE(wgs84 && mercator && utm32);
        ASSERT_TRUE(toMercator.SetPrj(wgs84.get(), mercator.get(), nullptr));
    }
    TLRefPtr<TLCoordinateSystem> wgs84, mercator, utm32;
    TLGeometryProject toMercator;
};

TLRefPtr<TLGeoPolygon> lonLatSquare(double lon, double lat, double size) {
    TLRefPtr<TLGeoPolygon> polygon(new TLGeoPolygon());
    polygon->BeginPath();
    polygon->BeginSegment(1);
    polygon->AddXY(lon, lat);
    polygon->AddXY(lon + size, lat);
    polygon->AddXY(lon + size, lat + size);
    polygon->AddXY(lon, lat + size);
    polygon->EndEntity();
    return polygon;
}

}  // namespace

TEST_F(Projector, PointsMatchPublishedWebMercatorValuesBothWays) {
    TLPoint point(10.0, 50.0);
    ASSERT_TRUE(toMercator.ProjPoint(point));
    EXPECT_NEAR(point.x, 1113194.9079327357, kMetre);
    EXPECT_NEAR(point.y, 6446275.841017158, kMetre);

    TLGeometryProject back;
    ASSERT_TRUE(back.SetPrj(mercator.get(), wgs84.get(), nullptr));
    ASSERT_TRUE(back.ProjPoint(point));
    EXPECT_NEAR(point.x, 10.0, kDegree);
    EXPECT_NEAR(point.y, 50.0, kDegree);

    TLGeoPoint geoPoint(-75.0, -33.0);
    ASSERT_TRUE(toMercator.ProjTmPoint(&geoPoint));
    EXPECT_NEAR(geoPoint.GetX(), mercatorX(-75.0), kMetre);
    EXPECT_NEAR(geoPoint.GetY(), mercatorY(-33.0), kMetre);
}

TEST_F(Projector, LongitudeStaysFirstDespiteTheAuthorityOrder) {
    // EPSG:4326 is latitude first by its definition; the host's x is longitude all the same.
    TLGeometryProject toUtm;
    ASSERT_TRUE(toUtm.SetPrj(wgs84.get(), utm32.get(), nullptr));
    double x = 9.0, y = 0.0;  // on the zone's central meridian, at the equator
    ASSERT_TRUE(toUtm.ProjXY(x, y));
    EXPECT_NEAR(x, 500000.0, kMetre);
    EXPECT_NEAR(y, 0.0, kMetre);

    TLGeometryProject toLonLatFirst;
    auto lonLat = load("+proj=longlat +datum=WGS84 +no_defs");
    ASSERT_TRUE(toLonLatFirst.SetPrj(wgs84.get(), lonLat.get(), nullptr));
    x = 10.0, y = 50.0;
    ASSERT_TRUE(toLonLatFirst.ProjXY(x, y));
    EXPECT_NEAR(x, 10.0, kDegree);
    EXPECT_NEAR(y, 50.0, kDegree);
}

TEST_F(Projector, LinesAndPolygonsAreProjectedInPlaceThroughAllParts) {
    TLGeoPolyline line;
    line.BeginPath();
    line.BeginSegment();
    line.AddXY(10.0, 50.0);
    line.AddXY(11.0, 51.0);
    line.BeginPath();
    line.BeginSegment();
    line.AddXY(-20.0, -10.0);
    line.AddXY(-21.0, -11.0);
    line.EndEntity();
    ASSERT_TRUE(toMercator.ProjTmPolyline(&line));
    const double expected[] = {10, 50, 11, 51, -20, -10, -21, -11};
    ASSERT_EQ(line.Parts().PointCount(), 4);
    ASSERT_EQ(line.GetPathCount(), 2);
    for (int i = 0; i < 4; ++i) {
        EXPECT_NEAR(line.Parts().Point(i).x, mercatorX(expected[2 * i]), kMetre) << i;
        EXPECT_NEAR(line.Parts().Point(i).y, mercatorY(expected[2 * i + 1]), kMetre) << i;
    }

    auto polygon = lonLatSquare(10.0, 50.0, 1.0);
    const int count = polygon->Parts().PointCount();
    ASSERT_TRUE(toMercator.ProjTmGeometry(polygon.get(), TLGeometry::GeoPolygon));
    ASSERT_EQ(polygon->Parts().PointCount(), count);
    EXPECT_NEAR(polygon->Parts().Point(2).x, mercatorX(11.0), kMetre);
    EXPECT_NEAR(polygon->Parts().Point(2).y, mercatorY(51.0), kMetre);
    EXPECT_EQ(polygon->Parts().Point(0), polygon->Parts().Point(count - 1));
}

TEST_F(Projector, EnvelopeBecomesTheBoundsOfTheProjectedRectangle) {
    TLGeoEnvelope envelope(10.0, 50.0, 11.0, 51.0);
    ASSERT_TRUE(toMercator.ProjTmGeometry(&envelope, envelope.GetType()));
    double xmin, ymin, xmax, ymax;
    envelope.QueryCoords(&xmin, &ymin, &xmax, &ymax);
    EXPECT_NEAR(xmin, mercatorX(10.0), kMetre);
    EXPECT_NEAR(ymin, mercatorY(50.0), kMetre);
    EXPECT_NEAR(xmax, mercatorX(11.0), kMetre);
    EXPECT_NEAR(ymax, mercatorY(51.0), kMetre);

    // In UTM the parallels bow towards the pole away from the central meridian (9 degrees), so
    // the lowest point of the rectangle lies in the middle of its lower edge, not at a corner.
    TLGeometryProject toUtm;
    ASSERT_TRUE(toUtm.SetPrj(wgs84.get(), utm32.get(), nullptr));
    double cornerX = 3.0, cornerY = 50.0, middleX = 9.0, middleY = 50.0;
    ASSERT_TRUE(toUtm.ProjXY(cornerX, cornerY));
    ASSERT_TRUE(toUtm.ProjXY(middleX, middleY));
    ASSERT_LT(middleY, cornerY - 1000.0);
    TLGeoEnvelope wide(3.0, 50.0, 15.0, 51.0);
    ASSERT_TRUE(toUtm.ProjTmGeometry(&wide));
    wide.QueryCoords(&xmin, &ymin, &xmax, &ymax);
    EXPECT_NEAR(ymin, middleY, kMetre);
    EXPECT_NEAR(xmin + xmax, 1000000.0, 1e-3);  // symmetric about the central meridian

    TLGeoEnvelope empty;
    EXPECT_TRUE(toMercator.ProjTmGeometry(&empty));
    EXPECT_TRUE(empty.IsEmpty());
}

TEST_F(Projector, FailingCoordinateLeavesTheWholeGeometryUnchanged) {
    TLGeoPoint beyondPole(10.0, 95.0);
    EXPECT_FALSE(toMercator.ProjTmGeometry(&beyondPole));
    EXPECT_EQ(beyondPole.GetX(), 10.0);
    EXPECT_EQ(beyondPole.GetY(), 95.0);

    TLGeoPolyline line;
    line.BeginPath();
    line.BeginSegment();
    line.AddXY(10.0, 50.0);
    line.AddXY(10.0, 95.0);
    line.EndEntity();
    EXPECT_FALSE(toMercator.ProjTmGeometry(&line));
    EXPECT_EQ(line.Parts().Point(0), TLPoint(10.0, 50.0));
    EXPECT_EQ(line.Parts().Point(1), TLPoint(10.0, 95.0));

    TLGeoEnvelope envelope(10.0, 80.0, 11.0, 95.0);
    EXPECT_FALSE(toMercator.ProjTmGeometry(&envelope));
    double xmin, ymin, xmax, ymax;
    envelope.QueryCoords(&xmin, &ymin, &xmax, &ymax);
    EXPECT_EQ(xmin, 10.0);
    EXPECT_EQ(ymax, 95.0);

    // 91 degrees off the central meridian of zone 32 there is no transverse Mercator.
    TLGeometryProject toUtm;
    ASSERT_TRUE(toUtm.SetPrj(wgs84.get(), utm32.get(), nullptr));
    auto polygon = lonLatSquare(99.5, -0.5, 1.0);
    EXPECT_FALSE(toUtm.ProjTmGeometry(polygon.get()));
    EXPECT_EQ(polygon->Parts().Point(0), TLPoint(99.5, -0.5));
    TLPoint offZone(100.0, 0.0);
    EXPECT_FALSE(toUtm.ProjPoint(offZone));
    EXPECT_EQ(offZone, TLPoint(100.0, 0.0));
}

TEST_F(Projector, RefusesWithoutAUsableTransformation) {
    TLGeometryProject unset;
    TLPoint point(10.0, 50.0);
    EXPECT_FALSE(unset.ProjPoint(point));
    TLGeoPoint geoPoint(10.0, 50.0);
    EXPECT_FALSE(unset.ProjTmGeometry(&geoPoint));
    EXPECT_EQ(geoPoint.GetX(), 10.0);

    TLCoordinateSystem broken("nonsense");
    TLGeometryProject failed;
    EXPECT_FALSE(failed.SetPrj(wgs84.get(), nullptr, nullptr));
    EXPECT_FALSE(failed.SetPrj(nullptr, wgs84.get(), nullptr));
    EXPECT_FALSE(failed.SetPrj(&broken, wgs84.get(), nullptr));
    EXPECT_FALSE(failed.ProjPoint(point));
    EXPECT_EQ(point, TLPoint(10.0, 50.0));

    // A failed SetPrj also drops the transformation set before.
    TLGeometryProject reused;
    ASSERT_TRUE(reused.SetPrj(wgs84.get(), mercator.get(), nullptr));
    EXPECT_FALSE(reused.SetPrj(wgs84.get(), &broken, nullptr));
    EXPECT_FALSE(reused.ProjPoint(point));

    // The kind named by the caller must be the geometry's own.
    EXPECT_FALSE(toMercator.ProjTmGeometry(&geoPoint, TLGeometry::GeoPolygon));
    EXPECT_EQ(geoPoint.GetX(), 10.0);
    EXPECT_FALSE(toMercator.ProjTmGeometry(nullptr));
}
