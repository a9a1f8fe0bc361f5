#include <gtest/gtest.h>

#include "tlsparef/TLCoordinateSystem.h"

using namespace TMObjects;

namespace {

TLRefPtr<TLCoordinateSystem> load(const char* text) {
    return TLSpatialObjectFactory::LoadCoordinateSystem(TLString(text));
}

}  // namespace

TEST(CoordinateSystem, LoadsAuthorityWktAndProjStringsAndRefusesTheRest) {
    auto wgs84 = load("EPSG:4326");
    ASSERT_TRUE(wgs84);
    EXPECT_TRUE(wgs84->IsValid());
    EXPECT_EQ(wgs84->GetName(), TLString("WGS 84"));
    EXPECT_EQ(wgs84->GetAuthorityCode(), TLString("EPSG:4326"));
    EXPECT_EQ(wgs84->GetDefinition(), TLString("EPSG:4326"));

    auto fromWkt = load(wgs84->ExportToWkt().toStdString().c_str());
    ASSERT_TRUE(fromWkt);
    EXPECT_EQ(fromWkt->GetAuthorityCode(), TLString("EPSG:4326"));

    auto fromProj = load("+proj=utm +zone=32 +datum=WGS84 +units=m +no_defs");
    ASSERT_TRUE(fromProj);
    EXPECT_FALSE(fromProj->IsGeographic());
    EXPECT_EQ(fromProj->GetAuthorityCode(), TLString(""));

    EXPECT_FALSE(load(""));
    EXPECT_FALSE(load("   "));
    EXPECT_FALSE(load("EPSG:999999"));
    EXPECT_FALSE(load("not a coordinate system"));
    // A PROJ string that is an operation and no system at all.
    EXPECT_FALSE(load("+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad"));

    TLCoordinateSystem broken("nonsense");
    EXPECT_FALSE(broken.IsValid());
    EXPECT_FALSE(broken.IsGeographic());
    EXPECT_FALSE(broken.IsSame(&broken));
    EXPECT_EQ(broken.ExportToString(), TLString(""));
    EXPECT_EQ(broken.ExportToWkt(), TLString(""));
    EXPECT_EQ(broken.GetName(), TLString(""));
    EXPECT_FALSE(broken.GetGeographicSystem());
    double a = 1, f = 1;
    EXPECT_FALSE(broken.GetEllipsoid(a, f));
}

TEST(CoordinateSystem, TellsGeographicFromProjected) {
    for (const char* geographic :
         {"EPSG:4326", "EPSG:4979", "+proj=longlat +ellps=intl +no_defs",
          // +towgs84 makes PROJ wrap the system in a bound one; it stays geographic.
          "+proj=longlat +ellps=krass +towgs84=24,-123,-94,0,0,0,0"}) {
        EXPECT_TRUE(load(geographic)->IsGeographic()) << geographic;
        EXPECT_FALSE(load(geographic)->IsProjected()) << geographic;
    }
    // Web Mercator's PROJ string carries +nadgrids=@null, which binds it as well.
    for (const char* projected : {"EPSG:3857", "EPSG:32632", "EPSG:5972",
                                  "+proj=merc +a=6378137 +b=6378137 +nadgrids=@null +no_defs"}) {
        EXPECT_FALSE(load(projected)->IsGeographic()) << projected;
        EXPECT_TRUE(load(projected)->IsProjected()) << projected;
    }
    EXPECT_FALSE(TLCoordinateSystem("nonsense").IsProjected());
}

TEST(CoordinateSystem, SameSystemWhateverTheSpellingDifferentOtherwise) {
    auto wgs84 = load("EPSG:4326");
    auto wkt = load(wgs84->ExportToWkt().toStdString().c_str());
    auto lonLatFirst = load("+proj=longlat +datum=WGS84 +no_defs");
    auto mercator = load("EPSG:3857");
    auto utm = load("EPSG:32632");

    EXPECT_TRUE(wgs84->IsSame(wgs84.get()));
    EXPECT_TRUE(wgs84->IsSame(wkt.get()));
    EXPECT_TRUE(wkt->IsSame(wgs84.get()));
    EXPECT_TRUE(wgs84->IsSame(lonLatFirst.get()));  // axis order does not count
    EXPECT_FALSE(wgs84->IsSame(mercator.get()));
    EXPECT_FALSE(mercator->IsSame(utm.get()));
    EXPECT_FALSE(wgs84->IsSame(nullptr));
    TLCoordinateSystem broken("nonsense");
    EXPECT_FALSE(wgs84->IsSame(&broken));
}

TEST(CoordinateSystem, TextFormCarriesTheEllipsoidAndLoadsBack) {
    EXPECT_EQ(load("EPSG:4326")->ExportToString(), TLString("+proj=longlat +datum=WGS84 +no_defs"));
    const TLString utm = load("EPSG:32632")->ExportToString();
    EXPECT_EQ(utm, TLString("+proj=utm +zone=32 +datum=WGS84 +units=m +no_defs"));

    auto reloaded = load(utm.toStdString().c_str());
    ASSERT_TRUE(reloaded);
    EXPECT_TRUE(reloaded->IsSame(load("EPSG:32632").get()));

    double a = 0, f = 0;
    ASSERT_TRUE(load("+proj=longlat +ellps=intl +no_defs")->GetEllipsoid(a, f));
    EXPECT_EQ(a, 6378388.0);
    EXPECT_DOUBLE_EQ(f, 1.0 / 297.0);
    ASSERT_TRUE(load("EPSG:32632")->GetEllipsoid(a, f));
    EXPECT_EQ(a, 6378137.0);
    EXPECT_DOUBLE_EQ(f, 1.0 / 298.257223563);
}

TEST(CoordinateSystem, GeographicBaseOfAProjectedSystem) {
    auto base = load("EPSG:32632")->GetGeographicSystem();
    ASSERT_TRUE(base);
    EXPECT_TRUE(base->IsGeographic());
    EXPECT_TRUE(base->IsSame(load("EPSG:4326").get()));
    // The definition is a text that loads back to the same system.
    auto reloaded = TLSpatialObjectFactory::LoadCoordinateSystem(base->GetDefinition());
    ASSERT_TRUE(reloaded);
    EXPECT_TRUE(reloaded->IsSame(base.get()));

    auto itself = load("EPSG:4326")->GetGeographicSystem();
    ASSERT_TRUE(itself);
    EXPECT_TRUE(itself->IsSame(load("EPSG:4326").get()));
}
