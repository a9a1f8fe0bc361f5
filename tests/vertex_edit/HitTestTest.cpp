#include <gtest/gtest.h>

#include "edit/TLVertexHit.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"

namespace TMObjects {
namespace {

struct XYPair {
    double x, y;
};

// Two paths: (0,0)-(10,0)-(10,10) and (20,0)-(30,0); raw indexes 0..2 and 3..4.
TLRefPtr<TLGeoPolyline> twoPartLine() {
    TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline);
    line->BeginPath();
    line->AddXY(0, 0);
    line->AddXY(10, 0);
    line->AddXY(10, 10);
    line->BeginPath();
    line->AddXY(20, 0);
    line->AddXY(30, 0);
    line->EndEntity();
    return line;
}

TEST(HitVertex, TheBoxIsSquareAndOpenAtItsEdges) {
    TLRefPtr<TLGeoPolyline> line = twoPartLine();
    double x = -1, y = -1;
    // A corner of the box is farther than the tolerance as the crow flies, and still a hit.
    EXPECT_EQ(hitVertex(line.get(), 11.9, 1.9, 2.0, x, y), 1);
    EXPECT_EQ(x, 10.0);
    EXPECT_EQ(y, 0.0);
    EXPECT_EQ(hitVertex(line.get(), 12.0, 0.0, 2.0, x, y), -1);
    EXPECT_EQ(hitVertex(line.get(), 10.0, -2.0, 2.0, x, y), -1);
}

TEST(HitVertex, CountsTheVerticesOfEarlierPartsAndTakesTheFirstInRange) {
    TLRefPtr<TLGeoPolyline> line = twoPartLine();
    double x = 0, y = 0;
    EXPECT_EQ(hitVertex(line.get(), 29.0, 0.5, 2.0, x, y), 4);
    EXPECT_EQ(x, 30.0);
    // Vertices 1 and 2 are both in a large box: the first wins, not the nearest.
    EXPECT_EQ(hitVertex(line.get(), 10.0, 9.0, 20.0, x, y), 0);
}

TEST(HitVertex, PointsNullsAndOtherTypes) {
    double x = 0, y = 0;
    TLGeoPoint point(5, 5);
    EXPECT_EQ(hitVertex(&point, 6, 4, 2.0, x, y), 0);
    EXPECT_EQ(x, 5.0);
    EXPECT_EQ(hitVertex(&point, 7, 5, 2.0, x, y), -1);
    EXPECT_EQ(hitVertex(nullptr, 0, 0, 2.0, x, y), -1);
}

TEST(HitSegment, TheDistanceIsClosedAndEndsAreNotExtended) {
    TLRefPtr<TLGeoPolyline> line = twoPartLine();
    EXPECT_EQ(hitSegment(line.get(), 5.0, 2.0, 2.0), 0);
    EXPECT_EQ(hitSegment(line.get(), 5.0, 2.0001, 2.0), -1);
    // Just past the end of a segment: no hit, however near the end vertex.
    EXPECT_EQ(hitSegment(line.get(), 30.1, 0.0, 2.0), -1);
    EXPECT_EQ(hitSegment(line.get(), 11.0, 5.0, 2.0), 1);
}

TEST(HitSegment, IndexesTheRawArrayAndNeverAPartsLastVertex) {
    TLRefPtr<TLGeoPolyline> line = twoPartLine();
    // The gap between the parts (10,10)-(20,0) is no segment.
    EXPECT_EQ(hitSegment(line.get(), 15.0, 5.0, 1.0), -1);
    EXPECT_EQ(hitSegment(line.get(), 25.0, 0.5, 1.0), 3);
}

TEST(HitSegment, WalksEachRingOfAPolygon) {
    TLRefPtr<TLGeoPolygon> polygon(new TLGeoPolygon);
    polygon->BeginPath();
    for (XYPair p : {XYPair{0, 0}, {100, 0}, {100, 100}, {0, 100}}) polygon->AddXY(p.x, p.y);
    polygon->BeginPath();
    for (XYPair p : {XYPair{40, 40}, {40, 60}, {60, 60}, {60, 40}}) polygon->AddXY(p.x, p.y);
    polygon->EndEntity();
    // Outer ring: 5 raw points with its closing vertex; the hole's segment 2 is raw index 7.
    EXPECT_EQ(hitSegment(polygon.get(), 60.5, 50.0, 1.0), 7);
    EXPECT_EQ(hitSegment(polygon.get(), 0.5, 50.0, 1.0), 3);
    TLGeoPoint point(0, 0);
    EXPECT_EQ(hitSegment(&point, 0, 0, 1.0), -1);
    EXPECT_EQ(hitSegment(nullptr, 0, 0, 1.0), -1);
}

}  // namespace
}  // namespace TMObjects
