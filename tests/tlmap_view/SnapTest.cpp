#include "ViewFixture.h"
#include "tlmap/TLSnap.h"

namespace TMObjects {
namespace {

TEST(Snap, OneGeometryGivesItsVertexElseItsEdgeElseNothing) {
    TLSnap snap;
    TLRefPtr<TLGeometry> line = makeLine({{{0, 0}, {10, 0}, {10, 10}}});
    double x = -1, y = -1;
    EXPECT_EQ(snap.snap(TLPoint(9, 1), line.get(), 2, x, y), TLSnapVertex);
    EXPECT_EQ(TLPoint(x, y), TLPoint(10, 0));
    EXPECT_EQ(snap.snap(TLPoint(4, 1.5), line.get(), 2, x, y), TLSnapSegment);
    EXPECT_EQ(TLPoint(x, y), TLPoint(4, 0));
    EXPECT_EQ(snap.snap(TLPoint(4, 2.5), line.get(), 2, x, y), TLSnapNone);
    EXPECT_EQ(TLPoint(x, y), TLPoint(4, 0));
    EXPECT_EQ(snap.snap(TLPoint(4, 0), nullptr, 2, x, y), TLSnapNone);

    // A ring's closing edge counts, and so does every ring of a polygon.
    TLRefPtr<TLGeometry> square =
        makePolygon({{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {{20, 0}, {30, 0}, {30, 10}}});
    EXPECT_EQ(snap.snap(TLPoint(-0.5, 5), square.get(), 1, x, y), TLSnapSegment);
    EXPECT_EQ(TLPoint(x, y), TLPoint(0, 5));
    EXPECT_EQ(snap.snap(TLPoint(25, 5.5), square.get(), 1, x, y), TLSnapSegment);
    EXPECT_EQ(TLPoint(x, y), TLPoint(25.25, 5.25));

    TLRefPtr<TLGeometry> point = makePoint(3, 4);
    EXPECT_EQ(snap.snap(TLPoint(0, 0), point.get(), 5, x, y), TLSnapVertex);
    EXPECT_EQ(TLPoint(x, y), TLPoint(3, 4));
}

TEST(Snap, AllureEdgeIsTheCrossingEdgeNearestTheCentre) {
    TLSnap snap;
    TLRefPtr<TLGeometry> boundary = makeLine({{{0, 0}, {10, 0}, {10, 10}, {20, 10}}});
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    ASSERT_TRUE(snap.getAllureEdge(TLPoint(10.5, 5), boundary.get(), 1, 1, x1, y1, x2, y2));
    EXPECT_EQ(std::vector<double>({x1, y1, x2, y2}), std::vector<double>({10, 0, 10, 10}));

    // The box crosses the first two edges; the nearer one wins.
    ASSERT_TRUE(snap.getAllureEdge(TLPoint(9, 0.5), boundary.get(), 2, 2, x1, y1, x2, y2));
    EXPECT_EQ(std::vector<double>({x1, y1, x2, y2}), std::vector<double>({0, 0, 10, 0}));
    ASSERT_TRUE(snap.getAllureEdge(TLPoint(9.8, 2), boundary.get(), -1, -2.5, x1, y1, x2, y2));
    EXPECT_EQ(std::vector<double>({x1, y1, x2, y2}), std::vector<double>({10, 0, 10, 10}));

    // An edge that passes through the box without an end in it still crosses it.
    ASSERT_TRUE(snap.getAllureEdge(TLPoint(15, 10.2), boundary.get(), 0.5, 0.5, x1, y1, x2, y2));
    EXPECT_EQ(std::vector<double>({x1, y1, x2, y2}), std::vector<double>({10, 10, 20, 10}));

    x1 = y1 = x2 = y2 = 7;
    EXPECT_FALSE(snap.getAllureEdge(TLPoint(50, 50), boundary.get(), 5, 5, x1, y1, x2, y2));
    EXPECT_FALSE(snap.getAllureEdge(TLPoint(5, 0), nullptr, 5, 5, x1, y1, x2, y2));
    EXPECT_EQ(std::vector<double>({x1, y1, x2, y2}), std::vector<double>({7, 7, 7, 7}));
}

}  // namespace
}  // namespace TMObjects
