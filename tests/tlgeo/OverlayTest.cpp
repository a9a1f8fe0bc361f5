#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <utility>

#include "GeoTestShapes.h"
#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoMultiPoint.h"
#include "tlgeo/TLGeoPoint.h"

using namespace TMObjects;

namespace {

int ringsOf(const TLRefPtr<TLGeometry>& g) {
    auto* polygon = dynamic_cast<TLGeoPolygon*>(g.get());
    return polygon ? polygon->GetRingCount() : -1;
}

}  // namespace

TEST(Relations, AnswerTheSimpleFeatureRelations) {
    auto a = makeBox(0, 0, 10, 10);
    auto b = makeBox(5, 5, 15, 15);
    TLGeoPoint inside(5, 5), onEdge(10, 3), outside(20, 20);
    auto crossing = makeLine({{-5, 5, 5, 5}});
    TLGeoEnvelope sameAsA(0, 0, 10, 10);

    EXPECT_TRUE(a->Contains(&inside));
    EXPECT_FALSE(a->Contains(&onEdge));
    EXPECT_TRUE(inside.Within(a.get()));
    EXPECT_TRUE(a->Touches(&onEdge));
    EXPECT_TRUE(a->Overlaps(b.get()));
    EXPECT_FALSE(a->Overlaps(&inside));
    EXPECT_TRUE(crossing->Crosses(a.get()));
    EXPECT_TRUE(a->Disjoint(&outside));
    EXPECT_TRUE(a->Equals(&sameAsA));
    EXPECT_TRUE(sameAsA.Contains(&inside));
    EXPECT_TRUE(a->Intersects(b.get()));
    EXPECT_FALSE(a->Intersects(&outside));
    EXPECT_FALSE(a->Contains(nullptr));

    EXPECT_TRUE(a->Relation(b.get(), TLSpatialRelIntersects));
    EXPECT_TRUE(a->Relation(b.get(), TLSpatialRelOverlaps));
    EXPECT_TRUE(a->Relation(&inside, TLSpatialRelContains));
    EXPECT_TRUE(inside.Relation(a.get(), TLSpatialRelWithin));
    EXPECT_TRUE(a->Relation(&onEdge, TLSpatialRelTouches));
    EXPECT_TRUE(crossing->Relation(a.get(), TLSpatialRelCrosses));
    EXPECT_TRUE(a->Relation(&outside, TLSpatialRelDisjoint));
    EXPECT_TRUE(a->Relation(&sameAsA, TLSpatialRelEquals));
    EXPECT_FALSE(a->Relation(b.get(), TLSpatialRelUndefined));
    // The bounds of a diagonal line meet the box; the line itself does not.
    auto diagonal = makeLine({{11, 0, 20, 9}});
    TLGeoPoint corner(12, 8);
    EXPECT_FALSE(a->Relation(diagonal.get(), TLSpatialRelIntersects));
    EXPECT_TRUE(corner.Relation(diagonal.get(), TLSpatialRelEnvelopeIntersects));
    EXPECT_FALSE(corner.Relation(diagonal.get(), TLSpatialRelIntersects));

    auto right = makeBox(13, 0, 20, 10);
    EXPECT_EQ(a->Distance(right.get()), 3);
    EXPECT_EQ(a->Distance(&inside), 0);
    TLGeoPolygon empty;
    EXPECT_EQ(a->Distance(&empty), -1);
    EXPECT_EQ(a->Distance(nullptr), -1);
}

TEST(Overlays, GiveExactShapesOfTheLibrarysOwnTypes) {
    auto a = makeBox(0, 0, 10, 10);
    auto b = makeBox(5, 5, 15, 15);

    TLRefPtr<TLGeometry> both = a->Intersect(b.get(), 0);
    ASSERT_TRUE(both);
    EXPECT_EQ(both->GetType(), TLGeometry::GeoPolygon);
    auto expected = makeBox(5, 5, 10, 10);
    EXPECT_TRUE(both->Equals(expected.get()));
    EXPECT_EQ(both->GetArea(), 25);

    TLRefPtr<TLGeometry> either = a->Union(b.get(), 0);
    EXPECT_EQ(either->GetArea(), 175);
    EXPECT_EQ(ringsOf(either), 1);
    EXPECT_EQ(a->Difference(b.get(), 0)->GetArea(), 75);

    // A difference that leaves a hole, and a union of apart squares: two rings each.
    auto small = makeBox(4, 4, 6, 6);
    TLRefPtr<TLGeometry> holed = a->Difference(small.get(), 0);
    EXPECT_EQ(ringsOf(holed), 2);
    EXPECT_EQ(holed->GetArea(), 96);
    auto far = makeBox(20, 0, 30, 10);
    TLRefPtr<TLGeometry> apart = a->Union(far.get(), 0);
    EXPECT_EQ(ringsOf(apart), 2);
    EXPECT_EQ(apart->GetArea(), 200);

    // Nothing in common: an empty polygon, not a null pointer.
    TLRefPtr<TLGeometry> none = a->Intersect(far.get(), 0);
    ASSERT_TRUE(none);
    EXPECT_EQ(none->GetType(), TLGeometry::GeoPolygon);
    EXPECT_TRUE(none->IsEmpty());
    EXPECT_FALSE(a->Intersect(nullptr, 0));

    // A line cut by the box.
    auto line = makeLine({{-5, 5, 15, 5}});
    TLRefPtr<TLGeometry> cut = line->Intersect(a.get(), 0);
    EXPECT_EQ(cut->GetType(), TLGeometry::GeoPolyline);
    EXPECT_EQ(cut->GetLength(), 10);
    TLRefPtr<TLGeometry> rest = line->Difference(a.get(), 0);
    EXPECT_EQ(static_cast<TLGeoPolyline*>(rest.get())->GetPathCount(), 2);
    EXPECT_EQ(rest->GetLength(), 10);

    // Lines crossing once give a point, twice a multipoint.
    auto axis = makeLine({{0, 0, 10, 0}});
    auto once = makeLine({{5, -1, 5, 1}});
    auto twice = makeLine({{2, -1, 2, 1, 8, 1, 8, -1}});
    TLRefPtr<TLGeometry> crossing = axis->Intersect(once.get(), 0);
    ASSERT_EQ(crossing->GetType(), TLGeometry::GeoPoint);
    EXPECT_EQ(static_cast<TLGeoPoint*>(crossing.get())->GetX(), 5);
    TLRefPtr<TLGeometry> crossings = axis->Intersect(twice.get(), 0);
    ASSERT_EQ(crossings->GetType(), TLGeometry::GeoMultipoint);
    auto* points = static_cast<TLGeoMultiPoint*>(crossings.get());
    ASSERT_EQ(points->GetPointCount(), 2);
    // GEOS does not promise an order of the crossing points.
    std::set<std::pair<double, double>> found;
    for (int i = 0; i < 2; ++i) found.emplace(points->GetPoint(i).x, points->GetPoint(i).y);
    EXPECT_EQ(found, (std::set<std::pair<double, double>>{{2, 0}, {8, 0}}));

    // Overlap in one place and a shared edge in another: the polygon part is kept.
    auto twoParts = makePolygon({{10, 0, 20, 0, 20, 5, 10, 5}, {8, 8, 12, 8, 12, 12, 8, 12}});
    TLRefPtr<TLGeometry> mixed = a->Intersect(twoParts.get(), 0);
    EXPECT_EQ(mixed->GetType(), TLGeometry::GeoPolygon);
    EXPECT_EQ(mixed->GetArea(), 4);

    // An envelope takes part as its polygon, and its results are polygons.
    TLGeoEnvelope window(0, 0, 10, 10);
    TLRefPtr<TLGeometry> windowed = window.Intersect(b.get(), 0);
    EXPECT_EQ(windowed->GetType(), TLGeometry::GeoPolygon);
    EXPECT_TRUE(windowed->Equals(expected.get()));
}

TEST(Overlays, ToleranceSnapsNearlyCoincidentEdgesTogether) {
    auto a = makeBox(0, 0, 10, 10);
    auto nearly = makeBox(10.0004, 0, 20, 10);
    EXPECT_EQ(ringsOf(a->Union(nearly.get(), 0)), 2);
    TLRefPtr<TLGeometry> snapped = a->Union(nearly.get(), 0.001);
    EXPECT_EQ(ringsOf(snapped), 1);
    EXPECT_EQ(snapped->GetArea(), 200);
    auto whole = makeBox(0, 0, 20, 10);
    EXPECT_TRUE(snapped->Equals(whole.get()));
    // Far from the other geometry nothing moves: the corner at (20, 10) stays.
    EXPECT_EQ(snapped->GetBound(), TLRect(0, 20, 0, 10));

    // A sliver left by an edge a hair inside the box disappears with a tolerance.
    auto inner = makeBox(0.0002, -1, 12, 11);
    EXPECT_GT(a->Difference(inner.get(), 0)->GetArea(), 0);
    EXPECT_TRUE(a->Difference(inner.get(), 0.001)->IsEmpty());
}

TEST(Overlays, ClipBufferSimplifyAndBoundary) {
    auto line = makeLine({{-5, 5, 15, 5}});
    TLRefPtr<TLGeometry> clipped = line->Clip(TLRect(0, 10, 0, 10), 0);
    auto expected = makeLine({{0, 5, 10, 5}});
    EXPECT_TRUE(clipped->Equals(expected.get()));
    TLRefPtr<TLGeometry> nothing = line->Clip(TLRect(), 0);
    ASSERT_TRUE(nothing);
    EXPECT_TRUE(nothing->IsEmpty());
    EXPECT_EQ(nothing->GetType(), TLGeometry::GeoPolyline);

    auto segment = makeLine({{0, 0, 10, 0}});
    EXPECT_EQ(segment->Buffer(1, TmBufferFlat)->GetArea(), 20);
    EXPECT_EQ(segment->Buffer(1, TmBufferSquare)->GetArea(), 24);
    // Round ends: two half circles of 16 segments each (a 32-gon).
    const double pi = std::acos(-1.0);
    EXPECT_NEAR(segment->Buffer(1, TmBufferRound)->GetArea(), 20 + 16 * std::sin(pi / 16), 1e-12);
    auto box = makeBox(0, 0, 10, 10);
    TLRefPtr<TLGeometry> shrunk = box->Buffer(-1, TmBufferRound);
    EXPECT_EQ(shrunk->GetType(), TLGeometry::GeoPolygon);
    EXPECT_EQ(shrunk->GetArea(), 64);
    EXPECT_TRUE(box->Buffer(-6, TmBufferRound)->IsEmpty());
    EXPECT_FALSE(box->Buffer(NAN, TmBufferRound));

    auto wiggly = makeLine({{0, 0, 5, 0.01, 10, 0}, {0, 5, 5, 7, 10, 5}});
    EXPECT_TRUE(wiggly->Simplify(0.1));
    EXPECT_EQ(wiggly->GetSegmentInfo(nullptr), 2);
    EXPECT_EQ(wiggly->GetPath(0)->GetPointCount(), 2);
    EXPECT_EQ(wiggly->GetPath(1)->GetPointCount(), 3);
    auto broken = makeLine({{0, 0, 1, 1}});
    broken->AddXY(2, 0.001);
    broken->BeginPath();
    broken->AddXY(5, 5);  // a path of one point: left alone
    EXPECT_FALSE(broken->Simplify(1));
    EXPECT_EQ(broken->GetPath(0)->GetPointCount(), 3);

    auto holed = makePolygon({{0, 0, 10, 0, 10, 10, 0, 10}, {4, 4, 6, 4, 6, 6, 4, 6}});
    TLRefPtr<TLGeometry> rings = holed->Boundary();
    ASSERT_EQ(rings->GetType(), TLGeometry::GeoPolyline);
    EXPECT_EQ(static_cast<TLGeoPolyline*>(rings.get())->GetPathCount(), 2);
    EXPECT_EQ(rings->GetLength(), 48);
    TLRefPtr<TLGeometry> ends = makeLine({{0, 0, 10, 0, 10, 10}})->Boundary();
    ASSERT_EQ(ends->GetType(), TLGeometry::GeoMultipoint);
    EXPECT_EQ(static_cast<TLGeoMultiPoint*>(ends.get())->GetPoint(1), TLPoint(10, 10));
    EXPECT_TRUE(makeLine({{0, 0, 1, 0, 1, 1, 0, 0}})->Boundary()->IsEmpty());
    TLRefPtr<TLGeometry> outline = TLGeoEnvelope(0, 0, 2, 1).Boundary();
    EXPECT_EQ(outline->GetLength(), 6);
}

TEST(Validity, CatchesBrokenStructureAndSelfIntersection) {
    EXPECT_TRUE(makeBox(0, 0, 1, 1)->IsValid());
    EXPECT_FALSE(makePolygon({{0, 0, 2, 2, 2, 0, 0, 2}})->IsValid());  // a bow tie
    EXPECT_FALSE(makeLine({{0, 0}})->IsValid());
    EXPECT_TRUE(makeLine({{0, 0, 1, 1}})->IsValid());
    TLGeoPolygon open;
    double ring[] = {0, 0, 1, 0, 1, 1};
    open.CreateRing(ring, 3);
    EXPECT_FALSE(open.IsValid());
    EXPECT_FALSE(TLGeoPoint(NAN, 1).IsValid());
    EXPECT_TRUE(TLGeoPolygon().IsValid());
}
