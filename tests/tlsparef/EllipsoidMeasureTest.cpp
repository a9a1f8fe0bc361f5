#include <gtest/gtest.h>

#include <geodesic.h>
#include <proj.h>

#include <cmath>
#include <vector>

#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlsparef/TLEllipseCalcFunc.h"

using namespace TMObjects;

namespace {

constexpr double kA = 6378137.0;
constexpr double kF = 1.0 / 298.257223563;
constexpr double kUtmScale = 0.9996;
const char* const kWgs84 = "+proj=longlat +datum=WGS84 +no_defs";
const char* const kUtm32 = "+proj=utm +zone=32 +datum=WGS84 +units=m +no_defs";

// The reference values come from PROJ's C port of the geodesic routines, not from the
// GeographicLib classes under test.
double referenceDistance(double lon1, double lat1, double lon2, double lat2) {
    geod_geodesic g;
    geod_init(&g, kA, kF);
    double s12 = 0;
    geod_inverse(&g, lat1, lon1, lat2, lon2, &s12, nullptr, nullptr);
    return s12;
}

double referenceArea(std::vector<double> lonLat) {
    geod_geodesic g;
    geod_init(&g, kA, kF);
    std::vector<double> lats, lons;
    for (std::size_t i = 0; i < lonLat.size(); i += 2) {
        lons.push_back(lonLat[i]);
        lats.push_back(lonLat[i + 1]);
    }
    double area = 0, perimeter = 0;
    geod_polygonarea(&g, lats.data(), lons.data(), int(lats.size()), &area, &perimeter);
    return std::fabs(area);
}

// The ellipsoidal zone between the equator and a parallel, one degree of longitude wide, in
// closed form (the authalic integral).
double zoneArea(double latitude) {
    const double e2 = kF * (2 - kF), e = std::sqrt(e2), b = kA * (1 - kF);
    const double s = std::sin(latitude * M_PI / 180);
    const double q = s / (2 * (1 - e2 * s * s)) + std::log((1 + e * s) / (1 - e * s)) / (4 * e);
    return b * b * (M_PI / 180) * q;
}

void addRing(TLGeoPolygon& polygon, std::vector<double> xy) {
    polygon.BeginPath();
    polygon.BeginSegment(1);
    for (std::size_t i = 0; i < xy.size(); i += 2) polygon.AddXY(xy[i], xy[i + 1]);
}

std::vector<double> square(double x, double y, double size) {
    return {x, y, x + size, y, x + size, y + size, x, y + size};
}

std::vector<double> reversed(std::vector<double> xy) {
    std::vector<double> out;
    for (std::size_t i = xy.size(); i >= 2; i -= 2) {
        out.push_back(xy[i - 2]);
        out.push_back(xy[i - 1]);
    }
    return out;
}

TLEllipseParameterNew parameterOf(const char* projection) {
    TLEllipseParameterNew parameter;
    parameter.calcParameter(TLString(projection));
    return parameter;
}

}  // namespace

TEST(EllipsoidParameter, TakesTheEllipsoidFromTheTextOrFallsBackToWgs84) {
    TLEllipseParameterNew fresh;
    EXPECT_EQ(fresh.SemiMajorAxis(), kA);
    EXPECT_DOUBLE_EQ(fresh.Flattening(), kF);

    auto wgs84 = parameterOf(kWgs84);
    EXPECT_EQ(wgs84.SemiMajorAxis(), kA);
    EXPECT_DOUBLE_EQ(wgs84.Flattening(), kF);
    EXPECT_TRUE(wgs84.IsGeographic());

    auto hayford = parameterOf("+proj=longlat +ellps=intl +no_defs");
    EXPECT_EQ(hayford.SemiMajorAxis(), 6378388.0);
    EXPECT_DOUBLE_EQ(hayford.Flattening(), 1.0 / 297.0);

    auto grs80Utm = parameterOf("+proj=utm +zone=33 +ellps=GRS80 +units=m +no_defs");
    EXPECT_EQ(grs80Utm.SemiMajorAxis(), 6378137.0);
    EXPECT_DOUBLE_EQ(grs80Utm.Flattening(), 1.0 / 298.257222101);
    EXPECT_FALSE(grs80Utm.IsGeographic());

    auto sphere = parameterOf("+proj=longlat +R=6371000 +no_defs");
    EXPECT_EQ(sphere.SemiMajorAxis(), 6371000.0);
    EXPECT_EQ(sphere.Flattening(), 0.0);

    for (const char* none : {"", "nonsense", "EPSG:999999"}) {
        auto fallback = parameterOf(none);
        EXPECT_EQ(fallback.SemiMajorAxis(), kA) << none;
        EXPECT_DOUBLE_EQ(fallback.Flattening(), kF) << none;
        EXPECT_TRUE(fallback.IsGeographic()) << none;
    }
    // A parameter can be filled again for another system.
    hayford.calcParameter(TLString(kUtm32));
    EXPECT_EQ(hayford.SemiMajorAxis(), kA);
    EXPECT_FALSE(hayford.IsGeographic());
}

TEST(EllipsoidDistance, GeodesicLengthsInMetres) {
    auto wgs84 = parameterOf(kWgs84);
    // JFK to LHR, the example of the geodesic documentation: 5551.76 km.
    const double jfkLhr = TLEllipseCalcFunc::CalcEllipseDis(wgs84, -73.8, 40.6, -0.5, 51.6);
    EXPECT_NEAR(jfkLhr, 5551759.400319, 1e-6);
    EXPECT_NEAR(jfkLhr, referenceDistance(-73.8, 40.6, -0.5, 51.6), 1e-6);
    // Along the equator the geodesic is the equator itself: a times the angle.
    EXPECT_NEAR(TLEllipseCalcFunc::CalcEllipseDis(wgs84, 0, 0, 1, 0), kA * M_PI / 180, 1e-6);
    // The quarter meridian of WGS 84.
    EXPECT_NEAR(TLEllipseCalcFunc::CalcEllipseDis(wgs84, 0, 0, 0, 90), 10001965.729312724, 1e-6);
    EXPECT_EQ(TLEllipseCalcFunc::CalcEllipseDis(wgs84, 12.5, 41.9, 12.5, 41.9), 0.0);
    // Direction does not matter.
    EXPECT_DOUBLE_EQ(TLEllipseCalcFunc::CalcEllipseDis(wgs84, -0.5, 51.6, -73.8, 40.6), jfkLhr);

    // On Hayford's ellipsoid the same arc of the equator is longer by the larger axis.
    auto hayford = parameterOf("+proj=longlat +ellps=intl +no_defs");
    EXPECT_NEAR(TLEllipseCalcFunc::CalcEllipseDis(hayford, 0, 0, 1, 0), 6378388.0 * M_PI / 180,
                1e-6);

    EXPECT_TRUE(std::isnan(TLEllipseCalcFunc::CalcEllipseDis(wgs84, 0, 0, 0, 95)));
    EXPECT_TRUE(std::isnan(TLEllipseCalcFunc::CalcEllipseDis(wgs84, NAN, 0, 0, 1)));
}

TEST(EllipsoidDistance, ProjectedCoordinatesAreMeasuredOnTheEllipsoid) {
    auto utm = parameterOf(kUtm32);
    ASSERT_FALSE(utm.IsGeographic());
    // On the central meridian northing is the meridian arc times the scale factor.
    EXPECT_NEAR(TLEllipseCalcFunc::CalcEllipseDis(utm, 500000, 5540000, 500000, 5541000),
                1000.0 / kUtmScale, 1e-6);
    double x = 500000, y = 0;
    ASSERT_TRUE(utm.ToLonLat(x, y));
    EXPECT_NEAR(x, 9.0, 1e-9);
    EXPECT_NEAR(y, 0.0, 1e-9);
    // Easting 1e8 m lies nowhere on the earth.
    EXPECT_TRUE(std::isnan(TLEllipseCalcFunc::CalcEllipseDis(utm, 1e8, 0, 500000, 0)));
}

TEST(EllipsoidArea, GeodesicPolygonAreas) {
    auto wgs84 = parameterOf(kWgs84);
    TLGeoPolygon cell;
    addRing(cell, square(0, 0, 1));
    cell.EndEntity();
    const double cellArea = TLEllipseCalcFunc::CalcEllipseAcreage(wgs84, &cell);
    EXPECT_NEAR(cellArea, 12308778361.469, 1e-3);
    EXPECT_NEAR(cellArea, referenceArea(square(0, 0, 1)), 1e-3);
    // Its upper edge is a geodesic that bows poleward of the parallel by a few metres, so the
    // cell is a little larger than the zone between the parallels: less than a 5 m strip more.
    EXPECT_GT(cellArea, zoneArea(1.0));
    EXPECT_LT(cellArea - zoneArea(1.0), 5.0 * kA * M_PI / 180);

    // The direction of the ring does not matter.
    TLGeoPolygon clockwise;
    addRing(clockwise, reversed(square(0, 0, 1)));
    clockwise.EndEntity();
    EXPECT_NEAR(TLEllipseCalcFunc::CalcEllipseAcreage(wgs84, &clockwise), cellArea, 1e-3);

    // A hole is subtracted whichever way it runs; an island inside it counts again.
    const double holeArea = referenceArea(square(0.25, 0.25, 0.5));
    const double islandArea = referenceArea(square(0.4, 0.4, 0.2));
    for (bool sameDirection : {false, true}) {
        TLGeoPolygon holed;
        addRing(holed, square(0, 0, 1));
        addRing(holed, sameDirection ? square(0.25, 0.25, 0.5) : reversed(square(0.25, 0.25, 0.5)));
        addRing(holed, square(0.4, 0.4, 0.2));
        holed.EndEntity();
        EXPECT_NEAR(TLEllipseCalcFunc::CalcEllipseAcreage(wgs84, &holed),
                    cellArea - holeArea + islandArea, 1e-2)
            << sameDirection;
    }

    // Several outer rings are summed.
    TLGeoPolygon two;
    addRing(two, square(0, 0, 1));
    addRing(two, square(20, 60, 1));
    two.EndEntity();
    EXPECT_NEAR(TLEllipseCalcFunc::CalcEllipseAcreage(wgs84, &two),
                cellArea + referenceArea(square(20, 60, 1)), 1e-2);
}

TEST(EllipsoidArea, ProjectedSquareAndWhatHasNoArea) {
    // A square of 1 km in UTM 32N, on the central meridian, covers 1 km / 0.9996 squared.
    auto utm = parameterOf(kUtm32);
    TLGeoPolygon square1km;
    addRing(square1km, square(499500, 5540000, 1000));
    square1km.EndEntity();
    const double area = TLEllipseCalcFunc::CalcEllipseAcreage(utm, &square1km);
    EXPECT_NEAR(area, 1e6 / (kUtmScale * kUtmScale), 0.05);

    // The same corners taken to longitude and latitude by PROJ directly.
    PJ* toLonLat = proj_create_crs_to_crs(nullptr, kUtm32, kWgs84, nullptr);
    ASSERT_NE(toLonLat, nullptr);
    std::vector<double> corners = square(499500, 5540000, 1000), lonLat;
    for (std::size_t i = 0; i < corners.size(); i += 2) {
        PJ_COORD c = proj_trans(toLonLat, PJ_FWD, proj_coord(corners[i], corners[i + 1], 0, 0));
        lonLat.push_back(c.lp.lam);
        lonLat.push_back(c.lp.phi);
    }
    proj_destroy(toLonLat);
    EXPECT_NEAR(area, referenceArea(lonLat), 1e-4);

    auto wgs84 = parameterOf(kWgs84);
    TLGeoPolyline line;
    line.BeginPath();
    line.BeginSegment();
    line.AddXY(0, 0);
    line.AddXY(1, 1);
    line.EndEntity();
    TLGeoPoint point(1, 1);
    EXPECT_EQ(TLEllipseCalcFunc::CalcEllipseAcreage(wgs84, &line), 0.0);
    EXPECT_EQ(TLEllipseCalcFunc::CalcEllipseAcreage(wgs84, &point), 0.0);
    EXPECT_EQ(TLEllipseCalcFunc::CalcEllipseAcreage(wgs84, nullptr), 0.0);
    TLGeoPolygon empty;
    EXPECT_EQ(TLEllipseCalcFunc::CalcEllipseAcreage(wgs84, &empty), 0.0);

    TLGeoPolygon beyondPole;
    addRing(beyondPole, {0, 80, 1, 80, 1, 95});
    beyondPole.EndEntity();
    EXPECT_TRUE(std::isnan(TLEllipseCalcFunc::CalcEllipseAcreage(wgs84, &beyondPole)));
}
