#include <gtest/gtest.h>

#include "tlsparef/TLCoordinateSystem.h"
#include "tlsparef/TLGeoGraphicCoordinateSystem.h"
#include "tlsparef/TLProjectedCoordinateSystem.h"

using namespace TMObjects;

TEST(CoordinateSystemKind, AGeographicSystemGivesItsSpheroid) {
    TLRefPtr<TLCoordinateSystem> wgs84 = TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:4326");
    auto* geographic = dynamic_cast<TLGeoGraphicCoordinateSystem*>(wgs84.get());
    ASSERT_NE(geographic, nullptr);
    EXPECT_EQ(dynamic_cast<TLProjectedCoordinateSystem*>(wgs84.get()), nullptr);
    TLRefPtr<TLSpheroid> spheroid = geographic->getPSpheroid();
    ASSERT_TRUE(spheroid);
    EXPECT_DOUBLE_EQ(spheroid->GetMajorAxis(), 6378137.0);
    EXPECT_DOUBLE_EQ(spheroid->GetFlattening(), 1 / 298.257223563);

    TLRefPtr<TLCoordinateSystem> krassowsky =
        TLSpatialObjectFactory::LoadCoordinateSystem("+proj=longlat +ellps=krass");
    auto* other = dynamic_cast<TLGeoGraphicCoordinateSystem*>(krassowsky.get());
    ASSERT_NE(other, nullptr);
    EXPECT_DOUBLE_EQ(other->getPSpheroid()->GetMajorAxis(), 6378245.0);
}

TEST(CoordinateSystemKind, AProjectedSystemGivesTheFactorOfItsLinearUnit) {
    TLRefPtr<TLCoordinateSystem> utm = TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:32633");
    auto* metres = dynamic_cast<TLProjectedCoordinateSystem*>(utm.get());
    ASSERT_NE(metres, nullptr);
    EXPECT_DOUBLE_EQ(metres->GetLinearUnitFactor(), 1.0);

    TLRefPtr<TLCoordinateSystem> feet = TLSpatialObjectFactory::LoadCoordinateSystem(
        "+proj=tmerc +lat_0=0 +lon_0=15 +k=1 +x_0=0 +y_0=0 +ellps=GRS80 +units=ft");
    auto* inFeet = dynamic_cast<TLProjectedCoordinateSystem*>(feet.get());
    ASSERT_NE(inFeet, nullptr);
    EXPECT_DOUBLE_EQ(inFeet->GetLinearUnitFactor(), 0.3048);
    // A bound system (a datum shift given) keeps its projection's unit.
    TLRefPtr<TLCoordinateSystem> bound = TLSpatialObjectFactory::LoadCoordinateSystem(
        "+proj=utm +zone=33 +ellps=intl +towgs84=-87,-98,-121 +units=m");
    auto* boundMetres = dynamic_cast<TLProjectedCoordinateSystem*>(bound.get());
    ASSERT_NE(boundMetres, nullptr);
    EXPECT_DOUBLE_EQ(boundMetres->GetLinearUnitFactor(), 1.0);
}
