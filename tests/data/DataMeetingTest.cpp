#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/CHelper.h"
#include "data/CcurrencyFunc.h"
#include "data/CdataManager.h"
#include "data/CparameterSet.h"
#include "tlgeo/TLGeometryWkt.h"

using namespace TMObjects;

namespace {

struct Meeting {
    int code;
    double x, y;
};

Meeting meet(double ax, double ay, double bx, double by, double cx, double cy, double dx, double dy,
             double tolerance = CparameterSet::commonDot(10)) {
    Meeting m{0, -99, -99};
    m.code = CcurrencyFunc::edge_edge(ax, ay, bx, by, cx, cy, dx, dy, &m.x, &m.y, tolerance);
    return m;
}

CvectorEntityData* addEntity(CvectorPackageData* package, int layer, const std::string& wkt) {
    CvectorEntityData* entity = package->entity_GetAt(package->entity_Add(1));
    TLRefPtr<TLGeometry> geometry = TLGeometryWkt::FromWkt(wkt);
    EXPECT_TRUE(CHelper::TmGeometryToChunkData(geometry.get(), entity, false)) << wkt;
    package->GetLayers().getAt(layer)->AddChunk(entity);
    entity->entity_ForeWard();
    return entity;
}

std::string wktOf(const CvectorEntityData* entity) {
    TLRefPtr<TLGeometry> g =
        CHelper::ChunkDataToTmGeometry(entity, TLGeometry::GeoPolygon, false, false, false);
    return TLGeometryWkt::ToWkt(g.get());
}

}  // namespace

TEST(DataMeeting, CommonDotIsTenToTheMinusDigits) {
    EXPECT_DOUBLE_EQ(CparameterSet::commonDot(10), 1e-10);
    EXPECT_DOUBLE_EQ(CparameterSet::commonDot(3), 1e-3);
}

TEST(DataMeeting, ACrossingInsideBothIsCodedWithAllFourEnds) {
    const Meeting m = meet(0, 0, 10, 10, 0, 10, 10, 0);
    EXPECT_EQ(m.code, 1234);
    EXPECT_DOUBLE_EQ(m.x, 5);
    EXPECT_DOUBLE_EQ(m.y, 5);
    EXPECT_EQ(meet(0, 0, 10, 0, 0, 1, 10, 1).code, 0);  // parallel
    EXPECT_EQ(meet(0, 0, 4, 0, 5, -1, 5, 1).code, 0);   // short of it
}

TEST(DataMeeting, EndsOnEndsAreNamedByTheEndsThatMeet) {
    EXPECT_EQ(meet(0, 0, 10, 0, 0, 0, 0, 10).code, 13);
    EXPECT_EQ(meet(0, 0, 10, 0, 0, 10, 0, 0).code, 14);
    EXPECT_EQ(meet(0, 0, 10, 0, 10, 0, 10, 10).code, 23);
    const Meeting m = meet(0, 0, 10, 0, 10, 10, 10, 0);
    EXPECT_EQ(m.code, 24);
    EXPECT_DOUBLE_EQ(m.x, 10);
    EXPECT_DOUBLE_EQ(m.y, 0);
    // Within the tolerance and no further.
    EXPECT_EQ(meet(0, 0, 10, 0, 10.05, 0.05, 10, 10, 0.1).code, 23);
    EXPECT_EQ(meet(0, 0, 10, 0, 10.5, 0.5, 20, 10, 0.1).code, 0);
}

// A line running exactly through a vertex of another, without a vertex of its own there, meets
// the two segments at that vertex as "T"s (3, 4), which are no meeting; with a vertex there it
// meets both (the ends' codes).
TEST(DataMeeting, ACrossingExactlyAtAVertexIsCodedByTheEndsThatLieThere) {
    // The ring's segments (0 10, 5 5) and (5 5, 10 10); the line y = 5 through their vertex.
    EXPECT_EQ(meet(0, 5, 10, 5, 0, 10, 5, 5).code, 4);
    EXPECT_EQ(meet(0, 5, 10, 5, 5, 5, 10, 10).code, 3);
    // The line with a vertex at (5, 5): its first segment ends there, its second starts there.
    EXPECT_EQ(meet(0, 5, 5, 5, 0, 10, 5, 5).code, 24);
    EXPECT_EQ(meet(0, 5, 5, 5, 5, 5, 10, 10).code, 23);
    EXPECT_EQ(meet(5, 5, 10, 5, 0, 10, 5, 5).code, 14);
    EXPECT_EQ(meet(5, 5, 10, 5, 5, 5, 10, 10).code, 13);
    // The line's own vertex inside the other's segment.
    const Meeting t = meet(5, 0, 5, 5, 0, 5, 10, 5);
    EXPECT_EQ(t.code, 2);
    EXPECT_DOUBLE_EQ(t.y, 5);
    EXPECT_EQ(meet(5, 5, 5, 10, 0, 5, 10, 5).code, 1);
}

TEST(DataMeeting, SegmentsRunningAlongEachOtherOverlap) {
    const Meeting m = meet(0, 0, 10, 0, 12, 0, 4, 0);
    EXPECT_EQ(m.code, -1234);
    EXPECT_DOUBLE_EQ(m.x, 4);
    EXPECT_EQ(meet(0, 0, 10, 0, 10, 0, 20, 0).code, 23);  // end to end in line: one point
    EXPECT_EQ(meet(0, 0, 10, 0, 0, 0, 10, 0).code, -1234);
}

TEST(DataMeeting, PointEdgeSpaceMeasuresToTheSegmentNotTheLine) {
    double fx = 0, fy = 0;
    EXPECT_DOUBLE_EQ(CcurrencyFunc::point_EdgeSpace(5, 3, 0, 0, 10, 0, &fx, &fy), 3);
    EXPECT_DOUBLE_EQ(fx, 5);
    EXPECT_DOUBLE_EQ(CcurrencyFunc::point_EdgeSpace(13, 4, 0, 0, 10, 0, &fx, &fy), 5);
    EXPECT_DOUBLE_EQ(fx, 10);
    EXPECT_DOUBLE_EQ(CcurrencyFunc::point_EdgeSpace(3, 4, 0, 0, 0, 0, &fx, &fy), 5);
}

TEST(DataMeeting, PointInLineOnOutlinesAndPathsWithinThePointLimit) {
    CdataManager manager;
    manager.set_dPointLimit(0.01);
    CvectorPackageData* package = manager.package_GetAt(manager.package_Add());
    const int layer = package->GetLayers().add();
    CvectorEntityData* polygon =
        addEntity(package, layer, "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))");
    CvectorEntityData* line = addEntity(package, layer, "LINESTRING (0 0, 10 0, 10 10)");
    EXPECT_NE(manager.point_InLine(polygon, 0, 5), 0);  // the closing edge
    EXPECT_NE(manager.point_InLine(polygon, 5, 10.005), 0);
    EXPECT_EQ(manager.point_InLine(polygon, 5, 5), 0);  // inside is not on it
    EXPECT_EQ(manager.point_InLine(line, 0, 5), 0);     // a line is not closed
    EXPECT_NE(manager.point_InLine(line, 10, 3), 0);
    EXPECT_EQ(manager.point_InLine(nullptr, 0, 0), 0);
}

TEST(DataMeeting, CompSurfaceChunkTellsTheSideOfTheLineThatBoundsThePiece) {
    CdataManager manager;
    CvectorPackageData* package = manager.package_GetAt(manager.package_Add());
    const int layer = package->GetLayers().add();
    CvectorEntityData* line = addEntity(package, layer, "LINESTRING (5 -5, 5 15)");
    CvectorEntityData* left = addEntity(package, layer, "POLYGON ((0 0, 5 0, 5 10, 0 10, 0 0))");
    CvectorEntityData* right = addEntity(package, layer, "POLYGON ((5 0, 10 0, 10 10, 5 10, 5 0))");
    CvectorEntityData* apart = addEntity(package, layer, "POLYGON ((6 0, 10 0, 10 10, 6 10, 6 0))");
    CvectorEntityData* corner = addEntity(package, layer, "POLYGON ((5 15, 6 15, 6 16, 5 15))");
    EXPECT_EQ(package->compSurfaceChunk(line, left, 0), 1);
    EXPECT_EQ(package->compSurfaceChunk(line, right, 0), -1);
    EXPECT_EQ(package->compSurfaceChunk(line, apart, 0), 0);
    EXPECT_EQ(package->compSurfaceChunk(line, corner, 0), 0);  // meets it at a point only
}

TEST(DataMeeting, MergingJoinsPolygonsThatShareAnEdgeAfterSnapping) {
    CdataManager manager;
    const int number = manager.package_Add();
    manager.setCurrPackageNo(number);
    CvectorPackageData* package = manager.package_GetAt(number);
    const int layer = package->GetLayers().add();
    package->GetLayers().getAt(layer)->SetLayerType(4);
    addEntity(package, layer, "POLYGON ((0 0, 5 0, 5 10, 0 10, 0 0))")->entity_SetHandle(4);
    // A hair off the first one's right edge: the snap at the point limit closes the gap.
    addEntity(package, layer, "POLYGON ((5.001 0, 10 0, 10 10, 5.001 10, 5.001 0))");
    // Meets the others at a corner only.
    addEntity(package, layer, "POLYGON ((10 10, 20 10, 20 20, 10 20, 10 10))");

    const int result = manager.currDataTopoOperate(2, 0, 0.01, 1, 111, 0);
    ASSERT_EQ(result, 1);
    CvectorPackageData* out = manager.package_GetAt(result);
    ASSERT_EQ(out->entity_GetSize(), 2);
    EXPECT_EQ(out->entity_GetAt(0)->GetSourceIds().GetSize(), 2);
    EXPECT_EQ(out->entity_GetAt(0)->entity_GetHandle(), 4);
    EXPECT_DOUBLE_EQ(out->entity_GetAt(0)->entity_CalcAcreage(0), 100);
    EXPECT_EQ(out->entity_GetAt(1)->GetSourceIds().GetAt(0), 3);
    EXPECT_EQ(manager.currDataTopoOperate(5, 0, 0.01, 1, 111, 0), -1);

    // Without the snap the hair stays a gap.
    manager.setCurrPackageNo(number);
    EXPECT_EQ(
        manager.package_GetAt(manager.currDataTopoOperate(2, 0, 0, 1, 111, 0))->entity_GetSize(),
        3);
}

TEST(DataMeeting, BindingMergesTheFlaggedEntitiesThatShareAnEdge) {
    CdataManager manager;
    const int number = manager.package_Add();
    CvectorPackageData* package = manager.package_GetAt(number);
    const int layer = package->GetLayers().add();
    CvectorEntityData* a = addEntity(package, layer, "POLYGON ((0 0, 5 0, 5 10, 0 10, 0 0))");
    CvectorEntityData* b = addEntity(package, layer, "POLYGON ((5 0, 10 0, 10 10, 5 10, 5 0))");
    CvectorEntityData* c = addEntity(package, layer, "POLYGON ((10 0, 20 0, 20 10, 10 10, 10 0))");
    a->entity_SetBindingFlag(1);
    b->entity_SetBindingFlag(1);
    (void)c;  // not flagged: stays as it is
    EXPECT_EQ(manager.package_BindingEntity(number, 1), 1);
    ASSERT_EQ(package->entity_GetSize(), 2);
    EXPECT_DOUBLE_EQ(package->entity_GetAt(0)->entity_CalcAcreage(0), 100);
    EXPECT_EQ(wktOf(package->entity_GetAt(1)), "POLYGON ((10 0, 20 0, 20 10, 10 10, 10 0))");
    EXPECT_EQ(manager.package_BindingEntity(9, 1), -1);
}
