#include <gtest/gtest.h>

#include <stdexcept>

#include "data/CHelper.h"
#include "data/CcurrencyFunc.h"
#include "data/CdataManager.h"
#include "data/TLTopoCheckCommonFunc.h"
#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeometryWkt.h"
#include "tlmap/TLLayer.h"

using namespace TMObjects;

namespace {

TLRefPtr<TLGeometry> wkt(const char* text) {
    TLRefPtr<TLGeometry> g = TLGeometryWkt::FromWkt(text);
    EXPECT_TRUE(g) << text;
    return g;
}

std::string toWkt(TLGeometry* g) {
    return g ? TLGeometryWkt::ToWkt(g) : std::string("null");
}

}  // namespace

TEST(DataConversion, MultiPartLineGoesIntoPathsAndBackWithItsZ) {
    TLRefPtr<TLGeometry> line =
        wkt("MULTILINESTRING Z ((0 0 1, 10 0 2), (20 0 3, 30 5 4, 40 5 5))");
    CvectorEntityData e;
    ASSERT_TRUE(CHelper::TmPolylineToChunkData(line.get(), &e, true));
    EXPECT_EQ(e.entity_GetType(), CvectorEntityBase::EntityLine);
    EXPECT_EQ(e.path_GetSize(), 2);
    EXPECT_EQ(e.point_GetSize(), 5);
    EXPECT_TRUE(e.entity_HasZ());
    TLRefPtr<TLGeoPolyline> back = CHelper::ChunkDataToTmPolyline(&e, true, false, false);
    EXPECT_EQ(toWkt(back.get()), "MULTILINESTRING Z ((0 0 1, 10 0 2), (20 0 3, 30 5 4, 40 5 5))");
    back = CHelper::ChunkDataToTmPolyline(&e, false, false, false);
    EXPECT_EQ(toWkt(back.get()), "MULTILINESTRING ((0 0, 10 0), (20 0, 30 5, 40 5))");

    CvectorEntityData flat;
    ASSERT_TRUE(CHelper::TmPolylineToChunkData(line.get(), &flat, false));
    EXPECT_FALSE(flat.entity_HasZ());
}

TEST(DataConversion, FlagsCloseAndDropRepeats) {
    TLRefPtr<TLGeometry> line = wkt("LINESTRING (0 0, 10 0, 10 0, 10 10)");
    CvectorEntityData e;
    ASSERT_TRUE(CHelper::TmGeometryToChunkData(line.get(), &e, false));
    EXPECT_EQ(toWkt(CHelper::ChunkDataToTmPolyline(&e, false, true, true).get()),
              "LINESTRING (0 0, 10 0, 10 10, 0 0)");
}

TEST(DataConversion, PolygonRingsAndEnvelopes) {
    TLRefPtr<TLGeometry> polygon =
        wkt("POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0), (2 2, 2 4, 4 4, 4 2, 2 2))");
    CvectorEntityData e;
    ASSERT_TRUE(CHelper::TmPolygonToChunkData(polygon.get(), &e, false));
    EXPECT_EQ(e.entity_GetType(), CvectorEntityBase::EntityPolygon);
    EXPECT_EQ(e.path_GetSize(), 2);
    EXPECT_TRUE(e.entity_TestClose());
    EXPECT_EQ(
        toWkt(
            CHelper::ChunkDataToTmGeometry(&e, TLGeometry::GeoPolygon, false, false, false).get()),
        "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0), (2 2, 2 4, 4 4, 4 2, 2 2))");
    EXPECT_FALSE(CHelper::TmPolylineToChunkData(polygon.get(), &e, false));
    EXPECT_EQ(e.point_GetSize(), 0);

    TLRefPtr<TLGeometry> box(new TLGeoEnvelope(1, 2, 3, 4));
    ASSERT_TRUE(CHelper::TmPolygonToChunkData(box.get(), &e, false));
    EXPECT_EQ(
        toWkt(
            CHelper::ChunkDataToTmGeometry(&e, TLGeometry::GeoPolyline, false, false, false).get()),
        "LINESTRING (1 2, 3 2, 3 4, 1 4, 1 2)");
}

TEST(DataConversion, PointsNullsAndKinds) {
    TLRefPtr<TLGeometry> point(new TLGeoPoint(5, 6));
    CvectorEntityData e;
    ASSERT_TRUE(CHelper::TmGeometryToChunkData(point.get(), &e, false));
    EXPECT_EQ(e.entity_GetType(), CvectorEntityBase::EntityPoint);
    EXPECT_EQ(
        toWkt(CHelper::ChunkDataToTmGeometry(&e, TLGeometry::GeoPoint, false, false, false).get()),
        "POINT (5 6)");
    EXPECT_FALSE(CHelper::TmGeometryToChunkData(nullptr, &e, false));
    EXPECT_EQ(e.point_GetSize(), 0);
    EXPECT_FALSE(CHelper::ChunkDataToTmPolyline(&e, false, false, false));
    EXPECT_FALSE(CHelper::ChunkDataToTmGeometry(&e, TLGeometry::GeoPolygon, false, false, false));

    EXPECT_EQ(CHelper::layertype2gttype(TLLayer::LineLayer), 3);
    EXPECT_EQ(CHelper::layertype2gttype(TLLayer::PolygonLayer), 4);
    EXPECT_EQ(CHelper::layertype2gttype(TLLayer::PointLayer), 1);
    EXPECT_EQ(CHelper::layertype2gttype(TLLayer::RasterLayer), 0);
}

TEST(DataConversion, PreprocessingDropsRepeatedVerticesAndOrdersRings) {
    CvectorPackageData package;
    CvectorEntityData* line = package.entity_GetAt(package.entity_Add(2));
    CHelper::TmGeometryToChunkData(wkt("LINESTRING (0 0, 0 0, 5 0, 5 0, 5 5)").get(), line, false);
    CvectorEntityData* ring = package.entity_GetAt(1);
    CHelper::TmGeometryToChunkData(wkt("POLYGON ((0 0, 0 10, 10 10, 10 0, 0 0))").get(), ring,
                                   false);
    ASSERT_TRUE(TLTopoCheckCommonFunc::PreprocessingDataForOverlay(&package));
    EXPECT_EQ(toWkt(CHelper::ChunkDataToTmPolyline(line, false, false, false).get()),
              "LINESTRING (0 0, 5 0, 5 5)");
    double x = 0, y = 0;
    ring->point_GetXY(1, &x, &y);
    EXPECT_EQ(x, 10);
    EXPECT_EQ(y, 0);
    EXPECT_FALSE(TLTopoCheckCommonFunc::PreprocessingDataForOverlay(nullptr));
}
