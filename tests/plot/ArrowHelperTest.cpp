#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "plot/TLCmdArrowHelper.h"

namespace TMObjects {
namespace {

using Points = std::vector<TLPoint>;

constexpr double kPi = 3.14159265358979323846;
constexpr double kNear = 1e-9;

void expectPoints(const Points& actual, const Points& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(actual[i].x, expected[i].x, kNear) << "x of point " << i;
        EXPECT_NEAR(actual[i].y, expected[i].y, kNear) << "y of point " << i;
    }
}

void expectPoint(const TLPoint& actual, double x, double y) {
    EXPECT_NEAR(actual.x, x, kNear);
    EXPECT_NEAR(actual.y, y, kNear);
}

class ArrowHelper : public ::testing::Test {
protected:
    TLCmdArrowHelper helper;
};

// ---- angles and constructed points ----

TEST_F(ArrowHelper, AzimuthPointsBackFromTheEndToTheStartAndEndsAtTwoPiAlongPlusX) {
    const TLPoint origin(0, 0);
    EXPECT_NEAR(helper.getAzimuthAngle(origin, {10, 0}), kPi, kNear);
    EXPECT_NEAR(helper.getAzimuthAngle(origin, {0, 10}), 1.5 * kPi, kNear);
    EXPECT_NEAR(helper.getAzimuthAngle(origin, {-10, 0}), 2 * kPi, kNear) << "not 0";
    EXPECT_NEAR(helper.getAzimuthAngle(origin, {0, -10}), 0.5 * kPi, kNear);
    EXPECT_NEAR(helper.getAzimuthAngle(origin, {-10, -10}), 0.25 * kPi, kNear);
    EXPECT_NEAR(helper.getAzimuthAngle(origin, {10, -10}), 0.75 * kPi, kNear);
    EXPECT_TRUE(std::isnan(helper.getAzimuthAngle(origin, origin)));

    EXPECT_NEAR(helper.getAngleOfThreePoints({0, 0}, {50, 0}, {100, 0}), kPi, kNear);
    // Anticlockwise from the ray to c round to the ray to a.
    EXPECT_NEAR(helper.getAngleOfThreePoints({0, 0}, {50, 0}, {50, 50}), 0.5 * kPi, kNear);
    EXPECT_NEAR(helper.getAngleOfThreePoints({0, 0}, {50, 0}, {50, -50}), 1.5 * kPi, kNear);
}

TEST_F(ArrowHelper, ThirdPointTurnsFromTheWayBackAndAnySideButLeftIsRight) {
    TLPoint out;
    helper.getThirdPoint({0, 0}, {10, 0}, 0, 4, "left", out);
    expectPoint(out, 6, 0);
    helper.getThirdPoint({0, 0}, {10, 0}, 4.71238898038469, 5, "right", out);
    expectPoint(out, 10, -5);
    helper.getThirdPoint({0, 0}, {10, 0}, 4.71238898038469, 5, "left", out);
    expectPoint(out, 10, 5);
    helper.getThirdPoint({0, 0}, {10, 0}, 4.71238898038469, 5, "Left", out);
    expectPoint(out, 10, -5);

    // The apex of the equilateral triangle lies left of the way from a to b.
    helper.getThirdEgXY({0, 0}, {10, 0}, out);
    expectPoint(out, 5, 5 * std::sqrt(3.0));
    helper.getThirdEgXY({0, 0}, {-10, 0}, out);
    expectPoint(out, -5, -5 * std::sqrt(3.0));
}

// ---- smoothing ----

TEST_F(ArrowHelper, BezierHasAHundredSamplesBeforeItsLastPoint) {
    Points out{{-1, -1}};
    helper.getBezierPoints({{0, 0}, {50, 100}, {100, 0}}, out);
    ASSERT_EQ(out.size(), 102u) << "appended to what was there";
    expectPoint(out[1], 0, 0);
    // x = 100 t and y = 200 t (1 - t) on this parabola.
    expectPoint(out[51], 50, 50);
    expectPoint(out[100], 99, 1.98);
    expectPoint(out[101], 100, 0);

    Points pair;
    helper.getBezierPoints({{1, 2}, {3, 4}}, pair);
    expectPoints(pair, {{1, 2}, {3, 4}});
}

TEST_F(ArrowHelper, BSplineFactorsAreTheUniformBasis) {
    // Quadratic: (1 - t)^2 / 2, (1 + 2t - 2t^2) / 2, t^2 / 2.
    EXPECT_DOUBLE_EQ(helper.getBSplineFFactor(0, 2, 0.5), 0.125);
    EXPECT_DOUBLE_EQ(helper.getBSplineFFactor(1, 2, 0.5), 0.75);
    EXPECT_DOUBLE_EQ(helper.getBSplineFFactor(2, 2, 0.5), 0.125);
    EXPECT_DOUBLE_EQ(helper.getQuadricBSplineFactor(3, 0.5), 0.0);
    // Cubic at t = 0: 1/6, 4/6, 1/6, 0; the last at t = 0.5 is t^3 / 6.
    EXPECT_NEAR(helper.getBSplineFFactor(0, 3, 0), 1.0 / 6, kNear);
    EXPECT_NEAR(helper.getBSplineFFactor(1, 3, 0), 4.0 / 6, kNear);
    EXPECT_NEAR(helper.getBSplineFFactor(2, 3, 0), 1.0 / 6, kNear);
    EXPECT_NEAR(helper.getBSplineFFactor(3, 3, 0), 0.0, kNear);
    EXPECT_NEAR(helper.getBSplineFFactor(3, 3, 0.5), 1.0 / 48, kNear);
    EXPECT_EQ(helper.getBSplineFFactor(4, 3, 0.5), 0.0);
}

TEST_F(ArrowHelper, BSplineKeepsItsEndsAndPassesNearTheInnerPoints) {
    Points out;
    helper.getBSplinePoints({{0, 0}, {50, 100}, {100, 0}}, 2, out);
    ASSERT_EQ(out.size(), 22u);
    expectPoint(out[0], 0, 0);
    expectPoint(out[1], 25, 50);  // half way along the first leg
    expectPoint(out[11], 50, 75);
    expectPoint(out[21], 100, 0);

    Points four;
    helper.getBSplinePoints({{0, 0}, {10, 10}, {20, 0}, {30, 10}}, 2, four);
    EXPECT_EQ(four.size(), 42u);
    Points shortList;
    helper.getBSplinePoints({{0, 0}, {10, 10}, {20, 0}}, 3, shortList);
    expectPoints(shortList, {{0, 0}, {10, 10}, {20, 0}});
}

TEST_F(ArrowHelper, AdvancedBezierRunsFromPointToPointAndGrowsTheList) {
    Points square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    Points out;
    helper.getAdvancedBezierPoints(square, out);
    expectPoints(square, {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}, {10, 0}});
    // Three cubic spans of 101 points, then the two control points left over.
    ASSERT_EQ(out.size(), 305u);
    expectPoint(out[0], 10, 0);
    expectPoint(out[50], 11.875, 5);  // bulging out of the square's side
    expectPoint(out[100], 10, 10);
    expectPoint(out[101], 10, 10);
    expectPoint(out[201], 0, 10);
    expectPoint(out[302], 0, 0);
    expectPoint(out[303], 0, 0);
    expectPoint(out[304], 2.5, -2.5);
}

// ---- arrows ----

TEST_F(ArrowHelper, SwallowTailHeadAndTailOnAStraightLine) {
    const Points line{{0, 0}, {100, 0}};
    Points head, tail;
    helper.getArrowHeadPoints(line, 0.1, 1.2, 1.0, 0.7, head);
    expectPoints(head, {{90, 7}, {90, 12}, {100, 0}, {90, -12}, {90, -7}});
    helper.getArrowTailPoints(line, 0.07, true, 1.0, tail);
    expectPoints(tail, {{0, 7}, {7, 0}, {0, -7}});
    Points flat;
    helper.getArrowTailPoints(line, 0.07, false, 1.0, flat);
    expectPoints(flat, {{0, 7}, {0, -7}});
}

TEST_F(ArrowHelper, HeadHeightIsCutToTheLastSegmentButItsWidthsAreNot) {
    Points head;
    helper.getArrowHeadPoints({{0, 0}, {100, 0}, {105, 0}}, 0.1, 1.0, 1.0, 0.7, head);
    // Length 105: widths 10.5 and 7.35, height only the last 5.
    expectPoints(head, {{100, 7.35}, {100, 10.5}, {105, 0}, {100, -10.5}, {100, -7.35}});
}

TEST_F(ArrowHelper, BodyKeepsItsWidthTrueAcrossABend) {
    const Points line{{0, 0}, {50, 10}, {100, 0}};
    Points head, body;
    helper.getArrowHeadPoints(line, 0.1, 1.0, 1.0, 0.7, head);
    helper.getArrowBodyPoints(line, head[0], head[4], 0.07, 1.0, 1.0, body);
    // The neck is as wide as the tail, so the half-width is 0.07 L throughout: 7.28 measured
    // upright at the bend, L being 2 sqrt(2600).
    expectPoints(body, {{50, 17.28}, {50, 2.72}});

    Points straight;
    helper.getArrowBodyPoints({{0, 0}, {50, 0}, {100, 0}}, {90, 2}, {90, -2}, 0.1, 2.0, 1.0,
                              straight);
    // Ten at the tail, two at the neck: six half way, doubled on the left.
    expectPoints(straight, {{50, 12}, {50, -6}});

    Points none;
    helper.getArrowBodyPoints({{0, 0}, {100, 0}}, {90, 7}, {90, -7}, 0.07, 1.0, 1.0, none);
    EXPECT_TRUE(none.empty());
}

TEST_F(ArrowHelper, TwoPointArrowsHaveStraightEdges) {
    Points simple;
    helper.getArrowPlot({{0, 0}, {100, 0}}, false, 0.0, "useBezierFit", 0.1, 1.0, 1.0, 0.7, 0.07,
                        simple);
    expectPoints(
        simple,
        {{0, 7}, {90, 7}, {90, 7}, {90, 10}, {100, 0}, {90, -10}, {90, -7}, {90, -7}, {0, -7}});

    Points swallow;
    helper.getArrowPlot({{0, 0}, {100, 0}}, true, 1.0, "useBezierFit", 0.1, 1.2, 1.0, 0.7, 0.07,
                        swallow);
    expectPoints(swallow, {{7, 0},
                           {0, 7},
                           {90, 7},
                           {90, 7},
                           {90, 12},
                           {100, 0},
                           {90, -12},
                           {90, -7},
                           {90, -7},
                           {0, -7},
                           {7, 0}});
}

TEST_F(ArrowHelper, ABentArrowIsSmoothedAlongBothEdges) {
    const Points line{{0, 0}, {50, 10}, {100, 0}};
    Points bezier;
    helper.getArrowPlot(line, false, 0.0, "useBezierFit", 0.1, 1.0, 1.0, 0.7, 0.07, bezier);
    ASSERT_EQ(bezier.size(), 101u + 5 + 101);
    // The left edge from the tail: tail left, then the curve towards the neck.
    const double tail = 0.07 * 2 * std::sqrt(2600.0);
    const double ux = 10 / std::sqrt(2600.0), uy = 50 / std::sqrt(2600.0);  // left normal
    expectPoint(bezier[0], -ux * tail, uy * tail);
    expectPoint(bezier[206], ux * tail, -uy * tail);
    // Half way, the quadratic Bezier of neck, bend point and tail: (N + 2 B + T) / 4.
    expectPoint(bezier[50], (bezier[100].x + 100 + bezier[0].x) / 4,
                (bezier[100].y + 2 * 17.28 + bezier[0].y) / 4);

    Points spline;
    helper.getArrowPlot(line, false, 0.0, "other", 0.1, 1.0, 1.0, 0.7, 0.07, spline);
    EXPECT_EQ(spline.size(), 22u + 5 + 22);
}

TEST_F(ArrowHelper, WideArrowsRunFromTheGivenTailCorners) {
    // Spine from (0, 0) to (100, 0): head 15 high and 6 wide, neck 11.25 back and 2.25 wide.
    const Points corners{{0, 10}, {0, -10}, {100, 0}};
    Points straight;
    helper.createWideStraightArrow(corners, straight);
    const Points head{{88.75, 2.25}, {85, 6}, {100, 0}, {85, -6}, {88.75, -2.25}};
    Points expected{{0, 10}};
    expected.insert(expected.end(), head.begin(), head.end());
    expected.insert(expected.begin() + 1, {88.75, 2.25});
    expected.push_back({88.75, -2.25});
    expected.push_back({0, -10});
    expected.push_back({0, 10});
    expectPoints(straight, expected);

    Points swallow;
    helper.createWideSwallowArrow(corners, swallow);
    expected.insert(expected.end() - 1, {2.25, 0});
    expectPoints(swallow, expected);

    Points none;
    helper.createWideStraightArrow({{0, 10}, {0, -10}}, none);
    helper.createWideSwallowArrow({{0, 10}, {0, -10}}, none);
    EXPECT_TRUE(none.empty());
}

TEST_F(ArrowHelper, AWideArrowNarrowsFromItsCornersToItsNeck) {
    Points arrow;
    helper.createWideStraightArrow({{0, 10}, {0, -10}, {50, 0}, {100, 0}}, arrow);
    // Each edge of three points gives 22 spline points.
    ASSERT_EQ(arrow.size(), 22u + 5 + 22 + 1);
    expectPoint(arrow[0], 0, 10);
    // Half way along the spine the half-width is 10 - (10 - 2.25) / 2 = 6.125; the spline's
    // middle sample is an eighth of the neck, three quarters of that point and an eighth of the
    // corner.
    expectPoint(arrow[10], 0.125 * 88.75 + 0.75 * 50, 6.125);
    expectPoint(arrow[21], 88.75, 2.25);
    expectPoint(arrow[49], 0, 10);
    expectPoint(arrow[48], 0, -10);
}

// ---- flags ----

TEST_F(ArrowHelper, PennantAndSquareFlagOnTheirPole) {
    Points pennant, square;
    helper.getTriangelFlagPoints({0, 10}, {10, 0}, pennant);
    expectPoints(pennant, {{0, 0}, {0, 10}, {10, 5}, {0.5, 5}, {0.5, 0}, {0, 0}});
    helper.getStraightFlagPoints({0, 10}, {10, 0}, square);
    expectPoints(square, {{0, 0}, {0, 10}, {10, 10}, {10, 5}, {0.5, 5}, {0.5, 0}, {0, 0}});
}

TEST_F(ArrowHelper, FlagsFlyWhereTheSecondPointLiesAndStayUpright) {
    Points left, hanging;
    helper.getTriangelFlagPoints({10, 10}, {0, 0}, left);
    expectPoints(left, {{10, 0}, {10, 10}, {0, 5}, {9.5, 5}, {9.5, 0}, {10, 0}});
    helper.getTriangelFlagPoints({0, 0}, {20, 10}, hanging);
    expectPoints(hanging, {{0, 10}, {0, 0}, {20, 5}, {1, 5}, {1, 10}, {0, 10}});
}

TEST_F(ArrowHelper, LevelOrPlumbPointsLeaveTheOutputAlone) {
    Points out{{1, 1}};
    helper.getTriangelFlagPoints({0, 10}, {10, 10}, out);
    helper.getStraightFlagPoints({0, 10}, {0, 0}, out);
    helper.getCurveFlagPoints({0, 10}, {10, 10}, out);
    expectPoints(out, {{1, 1}});
    // Otherwise the list is cleared first.
    helper.getTriangelFlagPoints({0, 10}, {10, 0}, out);
    EXPECT_EQ(out.size(), 6u);
}

TEST_F(ArrowHelper, FloatFlagWavesAndItsPoleEndsAtTheFourthLowerSample) {
    Points flag{{1, 1}};
    helper.getCurveFlagPoints({0, 10}, {10, 0}, flag);
    ASSERT_EQ(flag.size(), 203u);
    expectPoint(flag[0], 0, 0);
    expectPoint(flag[1], 0, 10);
    // Upper edge: the cubic of (0, 10), (2.5, 7.5), (7.5, 12.5), (10, 10).
    expectPoint(flag[26], 2.265625, 9.296875);
    expectPoint(flag[51], 5, 10);
    expectPoint(flag[101], 10, 10);
    // Lower edge backwards: (10, 5) first, the cubic of (0, 5), (2.5, 2.5), (7.5, 7.5), (10, 5).
    expectPoint(flag[102], 10, 5);
    expectPoint(flag[152], 5, 5);
    // Its sample at t = 0.03 closes it, and the pole's inner side stands there.
    const double x3 =
        3 * 0.03 * 0.97 * 0.97 * 2.5 + 3 * 0.03 * 0.03 * 0.97 * 7.5 + 0.03 * 0.03 * 0.03 * 10;
    const double y3 = 0.97 * 0.97 * 0.97 * 5 + 3 * 0.03 * 0.97 * 0.97 * 2.5 +
                      3 * 0.03 * 0.03 * 0.97 * 7.5 + 0.03 * 0.03 * 0.03 * 5;
    expectPoint(flag[199], x3, y3);
    expectPoint(flag[200], x3, 5);
    expectPoint(flag[201], x3, 0);
    expectPoint(flag[202], 0, 0);
}

}  // namespace
}  // namespace TMObjects
