#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "GeoTestShapes.h"
#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoMultiPoint.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeometryWkt.h"

using namespace TMObjects;

namespace {

std::string roundTrip(const std::string& wkt) {
    TLRefPtr<TLGeometry> g = TLGeometryWkt::FromWkt(wkt);
    return g ? TLGeometryWkt::ToWkt(g.get()) : "null";
}

std::string viaWkb(TLGeometry* g) {
    const std::string wkb = TLGeometryWkt::ToWkb(g);
    TLRefPtr<TLGeometry> back =
        TLGeometryWkt::FromWkb(reinterpret_cast<const unsigned char*>(wkb.data()), wkb.size());
    return back ? TLGeometryWkt::ToWkt(back.get()) : "null";
}

template <class T>
TLRefPtr<T> reopened(T& original) {
    TLFileFunc file;
    EXPECT_TRUE(original.save(file));
    file.Rewind();
    TLRefPtr<T> copy(new T);
    EXPECT_TRUE(copy->open(file));
    EXPECT_EQ(file.Remaining(), 0u);
    return copy;
}

}  // namespace

TEST(Wkt, PrintsEveryKindAndReadsItBack) {
    const char* texts[] = {
        "POINT (1 2)",
        "POINT Z (1 2 3)",
        "POINT EMPTY",
        "MULTIPOINT ((1 2), (3 4))",
        "LINESTRING (0 0, 1 1, 2 0)",
        "MULTILINESTRING ((0 0, 1 1), (5 5, 6 6))",
        "LINESTRING Z (0 0 1, 1 1 2)",
        "LINESTRING EMPTY",
        "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0), (4 4, 4 6, 6 6, 6 4, 4 4))",
        "MULTIPOLYGON (((0 0, 1 0, 1 1, 0 0)), ((5 5, 6 5, 6 6, 5 5)))",
        "POLYGON EMPTY",
    };
    for (const char* text : texts) EXPECT_EQ(roundTrip(text), text);
    // Other spellings are read and printed the one way.
    EXPECT_EQ(roundTrip("linestring(0 0,1.50 2)"), "LINESTRING (0 0, 1.5 2)");
    EXPECT_EQ(roundTrip("GEOMETRYCOLLECTION (POINT (1 2))"), "POINT (1 2)");
    EXPECT_EQ(roundTrip("MULTILINESTRING ((0 0, 1 1))"), "LINESTRING (0 0, 1 1)");
}

TEST(Wkt, GroupsHolesUnderTheirOuterRingAndPrintsEnvelopesAsPolygons) {
    // A hole given before its outer ring, and a second polygon: printed outer first.
    auto polygon = makePolygon(
        {{2, 2, 3, 2, 3, 3, 2, 3}, {0, 0, 5, 0, 5, 5, 0, 5}, {10, 10, 11, 10, 11, 11, 10, 11}});
    EXPECT_EQ(TLGeometryWkt::ToWkt(polygon.get()),
              "MULTIPOLYGON (((0 0, 5 0, 5 5, 0 5, 0 0), (2 2, 3 2, 3 3, 2 3, 2 2)), "
              "((10 10, 11 10, 11 11, 10 11, 10 10)))");
    TLGeoEnvelope envelope(1, 2, 3, 4);
    EXPECT_EQ(TLGeometryWkt::ToWkt(&envelope), "POLYGON ((1 2, 3 2, 3 4, 1 4, 1 2))");
    TLGeoEnvelope none;
    EXPECT_EQ(TLGeometryWkt::ToWkt(&none), "POLYGON EMPTY");
    EXPECT_EQ(TLGeometryWkt::ToWkt(nullptr), "");
}

TEST(Wkt, NumbersAreShortestTextsThatReadBackOrFixedDecimals) {
    TLGeoPoint point(0.1 + 0.2, 100);
    EXPECT_EQ(TLGeometryWkt::ToWkt(&point), "POINT (0.30000000000000004 100)");
    point.PutCoords(512345.678, -3456789.012);
    EXPECT_EQ(TLGeometryWkt::ToWkt(&point), "POINT (512345.678 -3456789.012)");
    point.PutCoords(1e-7, 1e21);
    EXPECT_EQ(TLGeometryWkt::ToWkt(&point), "POINT (1e-07 1e+21)");
    EXPECT_EQ(roundTrip("POINT (1e-07 1e+21)"), "POINT (1e-07 1e+21)");
    point.PutCoords(2.0 / 3.0, 1.5);
    EXPECT_EQ(TLGeometryWkt::ToWkt(&point, 3), "POINT (0.667 1.500)");
    EXPECT_EQ(TLGeometryWkt::ToWkt(&point, 0), "POINT (1 2)");

    // Shortest texts read back to the very same doubles.
    point.PutCoords(1.0 / 3.0, -2.0 / 7.0);
    TLRefPtr<TLGeometry> back = TLGeometryWkt::FromWkt(TLGeometryWkt::ToWkt(&point));
    ASSERT_TRUE(back);
    EXPECT_EQ(static_cast<TLGeoPoint*>(back.get())->GetX(), 1.0 / 3.0);
    EXPECT_EQ(static_cast<TLGeoPoint*>(back.get())->GetY(), -2.0 / 7.0);
}

TEST(Wkt, BadTextGivesNull) {
    const char* bad[] = {
        "",
        "POINT",
        "POINT (1)",
        "POINT (1 2",
        "POINT (a b)",
        "LINESTRING (0 0, 1)",
        "POLYGON ((0 0, 1 0, 1 1))",  // not closed
        "CIRCLE (0 0, 1)",
        "GEOMETRYCOLLECTION (POINT (1 2), LINESTRING (0 0, 1 1))",  // mixed dimensions
    };
    for (const char* text : bad) EXPECT_FALSE(TLGeometryWkt::FromWkt(text)) << text;
    EXPECT_FALSE(TLGeometryWkt::FromWkb(nullptr, 0));
    const unsigned char junk[] = {1, 2, 3, 4, 5};
    EXPECT_FALSE(TLGeometryWkt::FromWkb(junk, sizeof junk));
}

TEST(Wkb, RoundTripsKeepTypesPartsAndZ) {
    const char* texts[] = {
        "POINT (1.25 -2)",
        "POINT Z (1 2 3)",
        "MULTIPOINT ((1 2), (3 4))",
        "LINESTRING (0 0, 1 1, 2 0)",
        "MULTILINESTRING ((0 0, 1 1), (5 5, 6 6))",
        "POLYGON Z ((0 0 1, 10 0 2, 10 10 3, 0 0 1))",
        "MULTIPOLYGON (((0 0, 1 0, 1 1, 0 0)), ((5 5, 6 5, 6 6, 5 5)))",
        "POLYGON EMPTY",
    };
    for (const char* text : texts) {
        TLRefPtr<TLGeometry> g = TLGeometryWkt::FromWkt(text);
        ASSERT_TRUE(g) << text;
        EXPECT_EQ(viaWkb(g.get()), text);
    }
    const std::string wkb = TLGeometryWkt::ToWkb(TLGeometryWkt::FromWkt("POINT (1 2)").get());
    ASSERT_EQ(wkb.size(), 21u);
    EXPECT_EQ(wkb[0], 1);  // little-endian
    TLGeoEnvelope envelope(0, 0, 1, 1);
    EXPECT_EQ(viaWkb(&envelope), "POLYGON ((0 0, 1 0, 1 1, 0 1, 0 0))");
}

TEST(Serialize, SaveAndOpenRestoreEveryKindExactly) {
    auto polygon = makePolygon({{0, 0, 10, 0, 10, 10, 0, 10}, {4, 4, 4, 6, 6, 6, 6, 4}});
    polygon->Put_Z(2.5);
    auto polygonCopy = reopened(*polygon);
    EXPECT_EQ(TLGeometryWkt::ToWkt(polygonCopy.get()), TLGeometryWkt::ToWkt(polygon.get()));

    auto line = makeLine({{0.1, 0.2, 1e300, -4}, {5, 5, 6, 6, 7, 7}});
    line->BeginPath();  // an empty path is kept as it stands
    auto lineCopy = reopened(*line);
    EXPECT_EQ(lineCopy->GetPathCount(), 3);
    EXPECT_EQ(TLGeometryWkt::ToWkt(lineCopy.get()), TLGeometryWkt::ToWkt(line.get()));

    TLGeoPoint point(1.5, -2.5);
    point.Put_Z(7);
    auto pointCopy = reopened(point);
    EXPECT_EQ(TLGeometryWkt::ToWkt(pointCopy.get()), "POINT Z (1.5 -2.5 7)");
    TLGeoPoint emptyPoint;
    EXPECT_TRUE(reopened(emptyPoint)->IsEmpty());

    TLGeoEnvelope envelope(1, 2, 3, 4);
    EXPECT_EQ(reopened(envelope)->GetBound(), TLRect(1, 3, 2, 4));
    TLGeoMultiPoint points;
    points.AddPoint(1, 2);
    points.AddPoint(3, 4);
    EXPECT_EQ(TLGeometryWkt::ToWkt(reopened(points).get()), "MULTIPOINT ((1 2), (3 4))");
}

TEST(Serialize, OpenRefusesWrongTypesAndDamagedStreamsWithoutChangingAnything) {
    auto line = makeLine({{0, 0, 1, 1}});
    TLFileFunc file;
    line->save(file);
    std::vector<std::uint8_t> bytes = file.Data();

    TLGeoPolygon polygon;
    file.Rewind();
    EXPECT_FALSE(polygon.open(file));
    EXPECT_TRUE(polygon.IsEmpty());

    // Cut short at every length: never a crash, never a half-read line.
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        TLFileFunc shortFile;
        shortFile.SetData(std::vector<std::uint8_t>(bytes.begin(), bytes.begin() + long(size)));
        auto target = makeLine({{9, 9, 8, 8}});
        EXPECT_FALSE(target->open(shortFile)) << size;
        EXPECT_EQ(TLGeometryWkt::ToWkt(target.get()), "LINESTRING (9 9, 8 8)");
    }

    // A point count far beyond the bytes that follow.
    std::vector<std::uint8_t> huge = bytes;
    const std::int32_t manyPoints = 0x7fffffff;
    std::memcpy(huge.data() + 1 + 4 + 4, &manyPoints, 4);
    TLFileFunc hugeFile;
    hugeFile.SetData(huge);
    TLGeoPolyline target;
    EXPECT_FALSE(target.open(hugeFile));
    EXPECT_TRUE(target.IsEmpty());
}
