#include <gtest/gtest.h>

#include <cmath>

#include "data/CHelper.h"
#include "data/CcurrencyFunc.h"
#include "data/CdataManager.h"
#include "tlgeo/TLGeometryWkt.h"
#include "tlmap/TLFeatureLayer.h"

using namespace TMObjects;

namespace {

TLRefPtr<TLGeometry> wkt(const char* text) {
    TLRefPtr<TLGeometry> g = TLGeometryWkt::FromWkt(text);
    EXPECT_TRUE(g) << text;
    return g;
}

// A package of a boundary layer (number 1) holding one entity and a layer of caught entities
// (number 2).
class MeetEdge : public ::testing::Test {
protected:
    void SetUp() override {
        package = manager.package_GetAt(manager.package_Add());
        boundaryLayer = package->GetLayers().add();
        caughtLayer = package->GetLayers().add();
    }
    int add(int layer, const char* text) {
        const int index = package->entity_Add(1);
        CvectorEntityData* entity = package->entity_GetAt(index);
        CHelper::TmGeometryToChunkData(wkt(text).get(), entity, false);
        package->GetLayers().getAt(layer)->AddChunk(entity);
        return index;
    }
    std::string shape(int index, int kind) {
        return TLGeometryWkt::ToWkt(
            CHelper::ChunkDataToTmGeometry(package->entity_GetAt(index), kind, false, false, false)
                .get());
    }
    int match(int boundary, double x1, double y1, double x2, double y2) {
        return manager.handMovementMeetEdge(0, boundaryLayer, caughtLayer, boundary, 0, x1, y1, x2,
                                            y2);
    }

    CdataManager manager;
    CvectorPackageData* package = nullptr;
    int boundaryLayer = 0, caughtLayer = 0;
};

}  // namespace

TEST(PointLineSpace, TheWholeLineOrTheSegment) {
    double fx = 0, fy = 0;
    EXPECT_DOUBLE_EQ(CcurrencyFunc::point_LineSpace(20, 5, 0, 0, 10, 0, &fx, &fy, 1), 5.0);
    EXPECT_DOUBLE_EQ(fx, 20.0);
    EXPECT_DOUBLE_EQ(fy, 0.0);
    EXPECT_DOUBLE_EQ(CcurrencyFunc::point_LineSpace(20, 5, 0, 0, 10, 0, &fx, &fy, 0),
                     std::hypot(10.0, 5.0));
    EXPECT_DOUBLE_EQ(fx, 10.0);
    // A line of no length has its foot at its point.
    EXPECT_DOUBLE_EQ(CcurrencyFunc::point_LineSpace(3, 4, 0, 0, 0, 0, &fx, &fy, 1), 5.0);
    EXPECT_DOUBLE_EQ(fx, 0.0);
}

TEST_F(MeetEdge, NearestVertexTheFirstOnATie) {
    const int e = add(boundaryLayer, "LINESTRING (0 0, 10 0, 0 0, 20 0)");
    double fx = -1, fy = -1, d = -1;
    EXPECT_EQ(manager.entity_GetMinDistance(0, e, 1, 0, fx, fy, d), 0);
    EXPECT_DOUBLE_EQ(d, 1.0);
    EXPECT_EQ(manager.entity_GetMinDistance(0, e, 9, 1, fx, fy, d), 1);
    EXPECT_DOUBLE_EQ(fx, 10.0);
    EXPECT_EQ(manager.entity_GetMinDistance(0, 7, 0, 0, fx, fy, d), -1);
}

TEST_F(MeetEdge, VerticesLandOnAVertexNearbyElseOnTheirFootAndTheBoundaryIsPutIn) {
    const int boundary = add(boundaryLayer, "LINESTRING (0 0, 0 40, 0 70, 0 100)");
    // The first vertex is within one unit of (0, 0); the second lands on its foot at (0, 90).
    const int caught = add(caughtLayer, "LINESTRING (0.6 0.5, -2 90, -50 90)");
    EXPECT_EQ(match(boundary, -10, -10, 10, 110), 2);
    EXPECT_EQ(shape(caught, 11), "LINESTRING (0 0, 0 40, 0 70, 0 90, -50 90)");
    EXPECT_EQ(shape(boundary, 11), "LINESTRING (0 0, 0 40, 0 70, 0 100)");
}

TEST_F(MeetEdge, OutsideTheRectangleNothingMoves) {
    const int boundary = add(boundaryLayer, "LINESTRING (0 0, 0 100)");
    const int caught = add(caughtLayer, "LINESTRING (2 10, 2 50, 2 90)");
    // The corners may come in any order.
    EXPECT_EQ(match(boundary, 5, 60, -5, 40), 1);
    EXPECT_EQ(shape(caught, 11), "LINESTRING (2 10, 0 50, 2 90)");
}

TEST_F(MeetEdge, RoundARingTheShorterWayAndNeighboursOnOneSpotMerge) {
    const int boundary = add(boundaryLayer, "POLYGON ((0 0, 100 0, 100 100, 0 100, 0 0))");
    // Lands at (100, 90) and (90, 100): the shorter way between them passes (100, 100).
    const int caught = add(caughtLayer, "POLYGON ((101 90, 150 150, 90 101, 101 90))");
    EXPECT_EQ(match(boundary, 80, 80, 120, 120), 3);
    EXPECT_EQ(shape(caught, 13), "POLYGON ((100 90, 150 150, 90 100, 100 100, 100 90))");
    // Two neighbours on one spot become one vertex.
    const int pair = add(caughtLayer, "LINESTRING (99.5 0.5, 100.5 -0.5, 200 0)");
    match(boundary, 90, -10, 110, 10);
    EXPECT_EQ(shape(pair, 11), "LINESTRING (100 0, 200 0)");
}

TEST(ChunkConversion, ALineAskedForAsAPolygonStaysALine) {
    CvectorEntityData e;
    CHelper::TmGeometryToChunkData(wkt("LINESTRING (0 0, 10 0, 10 10)").get(), &e, false);
    TLRefPtr<TLGeometry> back = CHelper::ChunkDataToTmGeometry(&e, 13, false, false, false);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->GetType(), TLGeometry::GeoPolyline);
}

TEST(CopyDataToPackage, FeaturesWithTheirValuesAndTheirIdAsOid) {
    TLRefPtr<TLFeatureLayer> layer(TLFeatureLayer::CreateMemoryLayer(
        TLString("roads"), TLLayer::LineLayer, TLFields(), nullptr));
    TLFeature first;
    first.SetGeometry(wkt("LINESTRING (0 0, 1 1)"));
    TLFeature second;
    second.SetGeometry(wkt("LINESTRING (5 5, 6 6)"));
    const int a = layer->GetDatasource()->Insert(first);
    const int b = layer->GetDatasource()->Insert(second);
    CvectorPackageData package;
    CRvLayer* copy = package.CreateEbpLayer(TLString("roads"), nullptr);
    EXPECT_EQ(CHelper::copyDataToPackage(layer.get(), &package, copy, false, nullptr), 2);
    EXPECT_EQ(package.entity_GetAt(0)->entity_GetAttribValueByName(TLString("OID")).ToInt(), a);
    EXPECT_EQ(package.entity_GetAt(1)->entity_GetAttribValueByName(TLString("OID")).ToInt(), b);
    EXPECT_EQ(package.entity_GetAt(1)->GetLayerID(), copy->GetLayerID());
    layer->AddSelect(b);
    CvectorPackageData selected;
    EXPECT_EQ(CHelper::copyDataToPackage(layer.get(), &selected, nullptr, true, nullptr), 1);
}
