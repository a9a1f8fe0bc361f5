#include <gtest/gtest.h>

#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"

using namespace TMObjects;

namespace {

// A 10 x 10 square with a 2 x 2 hole, both clockwise and the hole given first, so that neither
// order nor direction can tell the hole.
TLGeoPolygon squareWithHole() {
    TLGeoPolygon polygon;
    double hole[] = {4, 4, 4, 6, 6, 6, 6, 4};
    double outer[] = {0, 0, 0, 10, 10, 10, 10, 0};
    polygon.CreateRing(hole, 4);
    polygon.CreateRing(outer, 4);
    polygon.EndEntity();
    return polygon;
}

}  // namespace

TEST(Forward, TurnsOuterRingsCounterClockwiseAndHolesClockwise) {
    TLGeoPolygon polygon = squareWithHole();
    EXPECT_TRUE(polygon.GetRing(0)->IsClockwise());
    EXPECT_TRUE(polygon.GetRing(1)->IsClockwise());
    EXPECT_EQ(polygon.Forward(), 1);  // only the outer ring turns
    EXPECT_TRUE(polygon.GetRing(0)->IsClockwise());
    EXPECT_FALSE(polygon.GetRing(1)->IsClockwise());
    EXPECT_EQ(polygon.GetRing(1)->GetSignedArea(), 100);
    // Turned in place: it still starts and ends at its first point.
    EXPECT_EQ(polygon.GetRing(1)->GetPoint(0), TLPoint(0, 0));
    EXPECT_EQ(polygon.GetRing(1)->GetPoint(1), TLPoint(10, 0));
    EXPECT_EQ(polygon.Forward(), 0);

    // An island inside the hole is an outer ring again.
    double island[] = {4.5, 4.5, 5.5, 4.5, 5.5, 5.5, 4.5, 5.5};
    polygon.CreateRing(island, 4);
    polygon.EndEntity();
    EXPECT_EQ(polygon.Forward(), 0);
    EXPECT_FALSE(polygon.GetRing(2)->IsClockwise());
    EXPECT_EQ(polygon.GetArea(), 100 - 4 + 1);
}

TEST(Forward, ARingDrawnOverAnEarlierOneIsItsHoleAndTheyEncloseNothing) {
    TLGeoPolygon polygon;
    double square[] = {0, 0, 10, 0, 10, 10, 0, 10};
    polygon.CreateRing(square, 4);
    polygon.CreateRing(square, 4);
    polygon.EndEntity();
    EXPECT_EQ(polygon.Forward(), 1);  // the second turns as a hole
    EXPECT_FALSE(polygon.GetRing(0)->IsClockwise());
    EXPECT_TRUE(polygon.GetRing(1)->IsClockwise());
    EXPECT_EQ(polygon.GetArea(), 0);
    EXPECT_FALSE(polygon.IsValid());

    // Two equal squares apart stay two outer rings.
    TLGeoPolygon apart;
    double other[] = {20, 0, 30, 0, 30, 10, 20, 10};
    apart.CreateRing(square, 4);
    apart.CreateRing(other, 4);
    apart.EndEntity();
    EXPECT_EQ(apart.Forward(), 0);
    EXPECT_EQ(apart.GetArea(), 200);
}

TEST(Measures, AreaLengthAndPerimeterCountHolesAndEveryPart) {
    TLGeoPolygon polygon = squareWithHole();
    EXPECT_EQ(polygon.GetArea(), 96);
    EXPECT_EQ(polygon.GetLength(), 48);  // both rings
    EXPECT_TRUE(polygon.IsValid());

    // A second outer ring beside the first adds its area.
    double beside[] = {20, 0, 23, 0, 23, 4, 20, 4, 20, 0};
    polygon.CreateRing(beside, 5);
    EXPECT_EQ(polygon.GetArea(), 108);
    EXPECT_EQ(polygon.GetLength(), 62);

    TLGeoPolyline line;
    line.AddXY(0, 0);
    line.AddXY(3, 4);
    line.BeginPath();
    line.AddXY(10, 10);
    line.AddXY(10, 12);
    EXPECT_EQ(line.GetLength(), 7);
    EXPECT_EQ(line.GetArea(), 0);

    TLGeoEnvelope envelope(1, 2, 4, 6);
    EXPECT_EQ(envelope.GetArea(), 12);
    EXPECT_EQ(envelope.GetLength(), 14);
    EXPECT_EQ(TLGeoPoint(1, 1).GetLength(), 0);
}

TEST(Measures, CentroidAndLabelPointLieWhereExpected) {
    TLGeoPolygon polygon = squareWithHole();
    EXPECT_EQ(polygon.Centroid(), TLPoint(5, 5));
    const TLPoint label = polygon.LabelPoint();
    TLGeoPoint labelPoint(label.x, label.y);
    EXPECT_TRUE(polygon.Contains(&labelPoint));
    double x = 0, y = 0;
    polygon.LabelPoint(x, y);
    EXPECT_EQ(TLPoint(x, y), label);

    TLGeoPolyline line;
    line.AddXY(0, 0);
    line.AddXY(4, 0);
    EXPECT_EQ(line.Centroid(), TLPoint(2, 0));
    EXPECT_EQ(TLGeoEnvelope(0, 0, 4, 2).Centroid(), TLPoint(2, 1));
    EXPECT_EQ(TLGeoPoint(7, 8).LabelPoint(), TLPoint(7, 8));

    EXPECT_FALSE(TLGeoPolygon().Centroid().Valid());
    EXPECT_FALSE(TLGeoPoint().LabelPoint().Valid());
}
