#include <gtest/gtest.h>

#include <cmath>

#include "tlmap/TLDrawCommonTool.h"
#include "tlmap/TLMathHelper.h"
#include "tlmap/TLSnapReckon.h"

using TMObjects::TLDrawCommonTool;
using TMObjects::TLMathHelper;
using TMObjects::TLMathUtil;
using TMObjects::TLPoint;
using TMObjects::TLSnapReckon;

namespace {
constexpr double kPi = 3.141592653589793;
}

TEST(Distance, AllFormsAgree) {
    EXPECT_EQ(TLDrawCommonTool::Distance(1, 1, 4, 5), 5.0);
    EXPECT_EQ(TLDrawCommonTool::Distance(TLPoint(1, 1), TLPoint(-2, -3)), 5.0);
    EXPECT_EQ(TLSnapReckon::calcDistance(0, 0, -3, 4), 5.0);
    EXPECT_EQ(TLMathUtil::Distance(TLPoint(0, 0), TLPoint(3, -4)), 5.0);
    EXPECT_EQ(TLDrawCommonTool::Distance(2, 2, 2, 2), 0.0);
}

TEST(FangWei, IsTheMathematicalDirectionAndFiniteForEqualPoints) {
    EXPECT_EQ(TLDrawCommonTool::FangWei(1, 1, 2, 1), 0.0);
    EXPECT_EQ(TLDrawCommonTool::FangWei(1, 1, 1, 3), kPi / 2);
    EXPECT_EQ(TLDrawCommonTool::FangWei(1, 1, -1, 1), kPi);
    EXPECT_EQ(TLDrawCommonTool::FangWei(1, 1, 1, 0), -kPi / 2);
    const double a = TLDrawCommonTool::FangWei(0, 0, 3, 4);
    EXPECT_DOUBLE_EQ(5 * std::cos(a), 3.0);
    EXPECT_DOUBLE_EQ(5 * std::sin(a), 4.0);
    EXPECT_DOUBLE_EQ(std::tan(a), 4.0 / 3.0);  // the slope the parallel guides rely on
    EXPECT_EQ(TLSnapReckon::fangWei(0, 0, -3, 4), TLDrawCommonTool::FangWei(0, 0, -3, 4));
    EXPECT_EQ(TLDrawCommonTool::FangWei(5, 5, 5, 5), 0.0);
    EXPECT_EQ(TLDrawCommonTool::FangWei(0.0, 0.0, -0.0, -0.0), 0.0);
    EXPECT_EQ(TLSnapReckon::fangWei(-0.0, 0.0, 0.0, -0.0), 0.0);
}

TEST(PointDistanceLine, IsSignedSoThatTheRectangleFollowsTheThirdPoint) {
    EXPECT_EQ(TLDrawCommonTool::PointDistanceLine(0, 0, 10, 0, 4, -3), 3.0);
    EXPECT_EQ(TLDrawCommonTool::PointDistanceLine(0, 0, 10, 0, 4, 3), -3.0);
    EXPECT_EQ(TLDrawCommonTool::PointDistanceLine(0, 0, 10, 0, 40, 0), 0.0);
    EXPECT_EQ(TLDrawCommonTool::PointDistanceLine(0, 0, 3, 4, 4, -3), 5.0);
    EXPECT_EQ(TLDrawCommonTool::PointDistanceLine(1, 1, 1, 1, 4, 5), 5.0);
    // The three-point rectangle puts its far edge at -d along the left normal; it must pass
    // through C on whichever side C lies.
    const TLPoint a(2, 1), b(5, 5);
    for (const TLPoint c : {TLPoint(1, 7), TLPoint(9, 2)}) {
        const double s = -TLDrawCommonTool::PointDistanceLine(a.x, a.y, b.x, b.y, c.x, c.y);
        const double normal = TLDrawCommonTool::FangWei(a.x, a.y, b.x, b.y) + kPi / 2;
        const TLPoint corner(b.x + s * std::cos(normal), b.y + s * std::sin(normal));
        EXPECT_NEAR(TLDrawCommonTool::PointDistanceLine(a.x, a.y, b.x, b.y, corner.x, corner.y),
                    TLDrawCommonTool::PointDistanceLine(a.x, a.y, b.x, b.y, c.x, c.y), 1e-12);
    }
}

TEST(Plumb, OnTheLineBeyondTheSegmentOnlyWithoutTheSegmentTest) {
    double fx = 0, fy = 0;
    ASSERT_TRUE(TLDrawCommonTool::GetNotLinePlumb(0, 0, 10, 0, 4, 7, fx, fy));
    EXPECT_EQ(fx, 4.0);
    EXPECT_EQ(fy, 0.0);
    ASSERT_TRUE(TLDrawCommonTool::GetNotLinePlumb(0, 0, 10, 0, 14, 7, fx, fy));
    EXPECT_EQ(fx, 14.0);
    EXPECT_EQ(fy, 0.0);
    ASSERT_TRUE(TLSnapReckon::getNotLinePlumb(0, 0, 3, 4, -1, 7, fx, fy));
    EXPECT_DOUBLE_EQ(fx, 3.0);
    EXPECT_DOUBLE_EQ(fy, 4.0);

    fx = fy = 99;
    EXPECT_FALSE(TLSnapReckon::getPlumb(0, 0, 10, 0, 14, 7, fx, fy));
    EXPECT_FALSE(TLSnapReckon::getPlumb(0, 0, 10, 0, -0.5, 7, fx, fy));
    EXPECT_FALSE(TLDrawCommonTool::GetNotLinePlumb(2, 2, 2, 2, 4, 7, fx, fy));
    EXPECT_FALSE(TLSnapReckon::getPlumb(2, 2, 2, 2, 2, 2, fx, fy));
    EXPECT_FALSE(TLDrawCommonTool::GetNotLinePlumb(0, 0, 1, NAN, 4, 7, fx, fy));
    EXPECT_EQ(fx, 99.0);
    EXPECT_EQ(fy, 99.0);

    ASSERT_TRUE(TLSnapReckon::getPlumb(0, 0, 10, 0, 4, -7, fx, fy));
    EXPECT_EQ(fx, 4.0);
    EXPECT_EQ(fy, 0.0);
    ASSERT_TRUE(TLSnapReckon::getPlumb(0, 0, 0, 10, 3, 10, fx, fy));  // the end is on it
    EXPECT_EQ(fx, 0.0);
    EXPECT_EQ(fy, 10.0);
}

TEST(PtNearLine, MeasuresToTheNearestPointOfTheSegment) {
    double fx = 0, fy = 0;
    EXPECT_TRUE(TLSnapReckon::ptNearLine(0, 0, 10, 0, 4, 0.5, 0.5, fx, fy));  // boundary counts
    EXPECT_EQ(fx, 4.0);
    EXPECT_EQ(fy, 0.0);
    EXPECT_FALSE(TLSnapReckon::ptNearLine(0, 0, 10, 0, 4, 0.6, 0.5, fx, fy));
    EXPECT_EQ(fx, 4.0);
    // Beyond an end the end itself is the nearest point: near along the line is not enough.
    EXPECT_TRUE(TLSnapReckon::ptNearLine(0, 0, 10, 0, 10.3, 0.3, 0.5, fx, fy));
    EXPECT_EQ(fx, 10.0);
    EXPECT_EQ(fy, 0.0);
    EXPECT_FALSE(TLSnapReckon::ptNearLine(0, 0, 10, 0, -0.4, 0.4, 0.5, fx, fy));
    EXPECT_EQ(fx, 0.0);
    EXPECT_TRUE(TLSnapReckon::ptNearLine(3, 3, 3, 3, 3, 3.2, 0.5, fx, fy));
    EXPECT_EQ(fy, 3.0);
}

TEST(PointAlongLine, DistanceExtendAndChangeLength) {
    double x = 99, y = 99;
    ASSERT_TRUE(TLDrawCommonTool::CalculateDistancePoint(1, 1, 4, 5, 10, x, y));
    EXPECT_EQ(x, 7.0);
    EXPECT_EQ(y, 9.0);
    ASSERT_TRUE(TLDrawCommonTool::CalculateDistancePoint(1, 1, 4, 5, -5, x, y));
    EXPECT_EQ(x, -2.0);
    EXPECT_EQ(y, -3.0);

    TLPoint a(1, 1), b(4, 5);
    ASSERT_TRUE(TLDrawCommonTool::CalculateExtendPoint(&a, &b, 5, x, y));
    EXPECT_EQ(x, 7.0);
    EXPECT_EQ(y, 9.0);

    TLPoint out(99, 99);
    ASSERT_TRUE(TLDrawCommonTool::ChangeLength(a, b, out, 10));
    EXPECT_EQ(out, TLPoint(7, 9));
    ASSERT_TRUE(TLDrawCommonTool::ChangeLength(a, b, out, 2.5));
    EXPECT_EQ(out, TLPoint(2.5, 3));

    // Degenerate input leaves every result as it was.
    out = TLPoint(99, 99);
    x = y = 99;
    EXPECT_FALSE(TLDrawCommonTool::ChangeLength(a, b, out, 0));
    EXPECT_FALSE(TLDrawCommonTool::ChangeLength(a, b, out, -3));
    EXPECT_FALSE(TLDrawCommonTool::ChangeLength(a, a, out, 3));
    EXPECT_FALSE(TLDrawCommonTool::CalculateDistancePoint(1, 1, 1, 1, 10, x, y));
    EXPECT_FALSE(TLDrawCommonTool::CalculateDistancePoint(1, 1, 4, 5, INFINITY, x, y));
    EXPECT_FALSE(TLDrawCommonTool::CalculateExtendPoint(&a, &a, 5, x, y));
    EXPECT_FALSE(TLDrawCommonTool::CalculateExtendPoint(nullptr, &b, 5, x, y));
    EXPECT_EQ(out, TLPoint(99, 99));
    EXPECT_EQ(x, 99.0);
    EXPECT_EQ(y, 99.0);
}

TEST(CalculateIntersectPoint, CrossesUnboundedLinesAndRefusesParallels) {
    double x = 99, y = 99;
    ASSERT_TRUE(TLDrawCommonTool::CalculateIntersectPoint(0, 0, 2, 2, 0, 2, 2, 0, x, y));
    EXPECT_EQ(x, 1.0);
    EXPECT_EQ(y, 1.0);
    ASSERT_TRUE(TLDrawCommonTool::CalculateIntersectPoint(0, 5, 1, 5, 7, 0, 7, 1, x, y));
    EXPECT_EQ(x, 7.0);  // far beyond both segments
    EXPECT_EQ(y, 5.0);
    x = y = 99;
    EXPECT_FALSE(TLDrawCommonTool::CalculateIntersectPoint(0, 0, 2, 2, 0, 1, 3, 4, x, y));
    EXPECT_FALSE(TLDrawCommonTool::CalculateIntersectPoint(0, 0, 2, 2, 3, 3, 5, 5, x, y));
    EXPECT_FALSE(TLDrawCommonTool::CalculateIntersectPoint(0, 0, 0, 0, 0, 2, 2, 0, x, y));
    EXPECT_FALSE(TLDrawCommonTool::CalculateIntersectPoint(0, 0, 1e6, 1, 0, 1, 1e6, 2, x, y));
    EXPECT_EQ(x, 99.0);
    EXPECT_EQ(y, 99.0);
}

TEST(VertexAngle, IsUnsignedAndZeroForARayOfNoLength) {
    EXPECT_EQ(TLMathHelper::Angle(5, 0, 0, 0, 0, 3), kPi / 2);
    EXPECT_EQ(TLMathHelper::Angle(0, 3, 0, 0, 5, 0), kPi / 2);
    EXPECT_EQ(TLMathHelper::Angle(-1, 0, 0, 0, 1, 0), kPi);
    EXPECT_DOUBLE_EQ(TLMathUtil::Angle(1, 1, 0, 0, 2, 0), kPi / 4);
    EXPECT_EQ(TLMathUtil::Angle(1, 0, 0, 0, 7, 0), 0.0);
    EXPECT_EQ(TLMathUtil::Angle(0, 0, 0, 0, 1, 1), 0.0);
    EXPECT_EQ(TLMathHelper::Angle(2, 2, 2, 2, 2, 2), 0.0);
}

TEST(RotatePoint, TurnsCounterClockwiseAboutTheCentre) {
    double x = 3, y = 1;
    TLMathHelper::RotatePoint(x, y, 1, 1, 90, true);
    EXPECT_NEAR(x, 1.0, 1e-15);
    EXPECT_NEAR(y, 3.0, 1e-15);
    TLMathHelper::RotatePoint(x, y, 1, 1, kPi, false);
    EXPECT_NEAR(x, 1.0, 1e-15);
    EXPECT_NEAR(y, -1.0, 1e-15);
    TLMathHelper::RotatePoint(x, y, 1, 1, NAN, false);
    EXPECT_NEAR(y, -1.0, 1e-15);
}
