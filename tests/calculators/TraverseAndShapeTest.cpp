#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "tlmap/TLDrawCommonTool.h"
#include "tlmap/TLMathHelper.h"

using TMObjects::TLDrawCommonTool;
using TMObjects::TLMathHelper;
using TMObjects::TLPoint;

namespace {

constexpr double kPi = 3.141592653589793;

// The turn the line tool reads from a click during a micro-traverse, in degrees, with A the
// second last vertex and B the last.
double clickedTurnAngle(TLPoint a, TLPoint b, TLPoint p) {
    const double ab = TLDrawCommonTool::Distance(a, b);
    const double bp = TLDrawCommonTool::Distance(b, p);
    const double ap = TLDrawCommonTool::Distance(a, p);
    double angle = std::acos((bp * bp + ab * ab - ap * ap) / (2 * ab * bp));
    if (!((p.y - b.y) * (b.x - a.x) - (p.x - b.x) * (b.y - a.y) > 0)) angle = 2 * kPi - angle;
    return angle * 180 / kPi;
}

TLPoint microPoint(TLPoint a, TLPoint b, double angle, double distance) {
    TLPoint q(NAN, NAN);
    EXPECT_TRUE(
        TLDrawCommonTool::CalculateMicroPoint(a.x, a.y, b.x, b.y, angle, distance, q.x, q.y));
    return q;
}

// The typed edge construction of the regular polygon: each vertex is the one before the
// previous, turned by the interior angle about the previous.
std::vector<TLPoint> polygonOnEdge(TLPoint a, TLPoint b, int n) {
    std::vector<TLPoint> list{a, b};
    const double interior = (n - 2) * kPi / n;
    for (std::size_t k = 0; list.size() < std::size_t(n); ++k) {
        TLPoint vertex;
        TLDrawCommonTool::ComputePoint(interior, list[k + 1], list[k].x, list[k].y, vertex);
        list.push_back(vertex);
    }
    return list;
}

void expectNear(TLPoint actual, TLPoint expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-9);
    EXPECT_NEAR(actual.y, expected.y, 1e-9);
}

}  // namespace

TEST(MicroTraverse, TypedAngleTurnsClockwiseFromTheBackSight) {
    const TLPoint a(0, 0), b(10, 0);
    expectNear(microPoint(a, b, 180, 5), TLPoint(15, 0));
    expectNear(microPoint(a, b, 90, 5), TLPoint(10, 5));
    expectNear(microPoint(a, b, 270, 5), TLPoint(10, -5));
    expectNear(microPoint(a, b, -90, 5), TLPoint(10, -5));
    expectNear(microPoint(a, b, 45, std::sqrt(2.0)), TLPoint(9, 1));

    double x = 99, y = 99;
    EXPECT_FALSE(TLDrawCommonTool::CalculateMicroPoint(3, 3, 3, 3, 90, 5, x, y));
    EXPECT_FALSE(TLDrawCommonTool::CalculateMicroPoint(0, 0, 1, 0, NAN, 5, x, y));
    EXPECT_EQ(x, 99.0);
    EXPECT_EQ(y, 99.0);
}

TEST(MicroTraverse, ClickedDirectionAndTypedAngleGiveTheSameVertex) {
    const std::pair<TLPoint, TLPoint> segments[] = {{TLPoint(2, 1), TLPoint(7, 4)},
                                                    {TLPoint(5, 5), TLPoint(-1, 2)},
                                                    {TLPoint(0, 0), TLPoint(0, -3)}};
    const TLPoint clicks[] = {TLPoint(9, 9),     TLPoint(12, 1),  TLPoint(3, 8),   TLPoint(1, -2),
                              TLPoint(7.5, 4.2), TLPoint(-6, -4), TLPoint(-3, 11), TLPoint(8, -7)};
    for (const auto& [a, b] : segments) {
        for (const TLPoint& click : clicks) {
            const double angle = clickedTurnAngle(a, b, click);
            SCOPED_TRACE(testing::Message() << "click " << click.x << "," << click.y);
            expectNear(microPoint(a, b, angle, TLDrawCommonTool::Distance(b, click)), click);
        }
    }
}

TEST(SpacePoint, TurnsSquareTwiceBetweenTheLastPointAndTheTarget) {
    const std::vector<TLPoint> line{TLPoint(0, 0), TLPoint(10, 0)};
    double ox = 99, oy = 99;
    ASSERT_TRUE(TLDrawCommonTool::CalculateSpacePoint(nullptr, line, 3, 5, ox, oy));
    EXPECT_EQ(ox, 10.0);
    EXPECT_EQ(oy, 5.0);
    ASSERT_TRUE(TLDrawCommonTool::CalculateSpacePoint(nullptr, line, 15, -4, ox, oy));
    EXPECT_EQ(ox, 10.0);
    EXPECT_EQ(oy, -4.0);

    // Closing a building back to its first vertex, as the close-after-interval key does.
    const std::vector<TLPoint> walls{TLPoint(0, 0), TLPoint(10, 0), TLPoint(10, 5)};
    ASSERT_TRUE(TLDrawCommonTool::CalculateSpacePoint(nullptr, walls, 0, 0, ox, oy));
    EXPECT_EQ(ox, 0.0);
    EXPECT_EQ(oy, 5.0);

    // An oblique wall, and a doubled last vertex that must not hide the direction.
    const std::vector<TLPoint> oblique{TLPoint(1, 1), TLPoint(4, 5), TLPoint(4, 5)};
    ASSERT_TRUE(TLDrawCommonTool::CalculateSpacePoint(nullptr, oblique, 0, 12, ox, oy));
    const TLPoint b(4, 5), corner(ox, oy), target(0, 12);
    EXPECT_NEAR(TLMathHelper::Angle(1, 1, b.x, b.y, corner.x, corner.y), kPi / 2, 1e-12);
    EXPECT_NEAR(TLMathHelper::Angle(b.x, b.y, corner.x, corner.y, target.x, target.y), kPi / 2,
                1e-12);
    expectNear(corner, TLPoint(-1.92, 9.44));
}

TEST(SpacePoint, RefusesWhenNoDirectionOrNoCornerIsNeeded) {
    double ox = 99, oy = 99;
    const std::vector<TLPoint> line{TLPoint(0, 0), TLPoint(10, 0)};
    EXPECT_FALSE(TLDrawCommonTool::CalculateSpacePoint(nullptr, {}, 3, 5, ox, oy));
    EXPECT_FALSE(TLDrawCommonTool::CalculateSpacePoint(nullptr, {TLPoint(1, 1)}, 3, 5, ox, oy));
    EXPECT_FALSE(TLDrawCommonTool::CalculateSpacePoint(nullptr, {TLPoint(1, 1), TLPoint(1, 1)}, 3,
                                                       5, ox, oy));
    EXPECT_FALSE(TLDrawCommonTool::CalculateSpacePoint(nullptr, line, 25, 0, ox, oy));  // ahead
    EXPECT_FALSE(TLDrawCommonTool::CalculateSpacePoint(nullptr, line, -5, 0, ox, oy));  // behind
    EXPECT_FALSE(TLDrawCommonTool::CalculateSpacePoint(nullptr, line, 10, 7, ox, oy));  // square
    EXPECT_FALSE(TLDrawCommonTool::CalculateSpacePoint(nullptr, line, 10, 0, ox, oy));  // last
    EXPECT_FALSE(TLDrawCommonTool::CalculateSpacePoint(nullptr, line, NAN, 0, ox, oy));
    EXPECT_EQ(ox, 99.0);
    EXPECT_EQ(oy, 99.0);
}

TEST(RegularPolygon, EdgeConstructionClosesWithEqualEdgesAndAngles) {
    const std::vector<TLPoint> square = polygonOnEdge(TLPoint(0, 0), TLPoint(2, 0), 4);
    ASSERT_EQ(square.size(), 4u);
    expectNear(square[2], TLPoint(2, -2));  // turned counter-clockwise: right of A to B
    expectNear(square[3], TLPoint(0, -2));

    for (int n : {3, 5, 7, 12, 360}) {
        SCOPED_TRACE(n);
        const std::vector<TLPoint> ring = polygonOnEdge(TLPoint(3, 1), TLPoint(6, 5), n);
        ASSERT_EQ(ring.size(), std::size_t(n));
        for (int i = 0; i < n; ++i) {
            const TLPoint& p = ring[i];
            const TLPoint& q = ring[(i + 1) % n];
            const TLPoint& r = ring[(i + 2) % n];
            EXPECT_NEAR(TLDrawCommonTool::Distance(p, q), 5.0, 1e-9);
            EXPECT_NEAR(TLMathHelper::Angle(p.x, p.y, q.x, q.y, r.x, r.y), (n - 2) * kPi / n, 1e-9);
        }
    }
}

TEST(RegularPolygon, CentreConstructionReturnsToTheFirstVertex) {
    const TLPoint centre(1, 2), first(4, 6);
    const int n = 6;
    TLPoint vertex = first;
    for (int i = 1; i <= n; ++i) {
        TLPoint next;
        TLDrawCommonTool::ComputePoint(2 * kPi / n, centre, vertex.x, vertex.y, next);
        EXPECT_NEAR(TLDrawCommonTool::Distance(centre, next), 5.0, 1e-12);
        EXPECT_NEAR(TLDrawCommonTool::Distance(vertex, next), 5.0, 1e-12);  // hexagon edge
        vertex = next;
    }
    expectNear(vertex, first);

    TLPoint unchanged;
    TLDrawCommonTool::ComputePoint(NAN, centre, 4, 6, unchanged);
    EXPECT_EQ(unchanged, first);
}

TEST(FreehandRectangle, CornersFollowTheFirstEdgeDirection) {
    TLPoint cornerB, cornerD;
    TLDrawCommonTool::GetIntersectPoint(TLPoint(0, 0), TLPoint(5, 0), TLPoint(3, 2), cornerB,
                                        cornerD);
    EXPECT_EQ(cornerB, TLPoint(3, 0));
    EXPECT_EQ(cornerD, TLPoint(0, 2));

    TLDrawCommonTool::GetIntersectPoint(TLPoint(0, 0), TLPoint(3, 4), TLPoint(-1, 7), cornerB,
                                        cornerD);
    EXPECT_EQ(cornerB, TLPoint(3, 4));
    EXPECT_EQ(cornerD, TLPoint(-4, 3));

    // C behind A: the rectangle lies on the other side of A, still along the same line.
    TLDrawCommonTool::GetIntersectPoint(TLPoint(1, 1), TLPoint(6, 1), TLPoint(-1, 4), cornerB,
                                        cornerD);
    EXPECT_EQ(cornerB, TLPoint(-1, 1));
    EXPECT_EQ(cornerD, TLPoint(1, 4));

    // No edge direction: the rectangle collapses onto its diagonal instead of going NaN.
    TLDrawCommonTool::GetIntersectPoint(TLPoint(1, 1), TLPoint(1, 1), TLPoint(4, 5), cornerB,
                                        cornerD);
    EXPECT_EQ(cornerB, TLPoint(1, 1));
    EXPECT_EQ(cornerD, TLPoint(4, 5));
}
