#include <cmath>

#include "ShapeSession.h"
#include "tlmap/TLEditor.h"

namespace TMObjects {
namespace {

const char* const kEdges = "Number of input edges:";
const char* const kTooFew =
    "The number of edges is at least 3. Please re-enter the number of edges!";
const char* const kTooMany = "Please do not enter more than 360 edges!";
const char* const kCentreOrSide = "The center / designated side of the polygon (E)]:";
const char* const kRadius = "Please specify the radius of circumcircle:";
const char* const kFirstEnd = "The first endpoint of the specified edge:";
const char* const kSecondEnd = "Please specify the second endpoint of the edge:";
const char* const kDrawn = "Command:Drawing RegularPolygon";

constexpr double kPi = 3.14159265358979323846;

double degreesOf(const XY& p, const XY& centre) {
    double a = std::atan2(p.second - centre.second, p.first - centre.first) * 180 / kPi;
    return a < 0 ? a + 360 : a;
}

// The polygon walked edge by edge from `a` towards `b`, turning right by the exterior angle at
// each vertex: the regular polygon that lies right of the edge, closed.
Ring walkedPolygon(XY a, XY b, int edges) {
    const double length = std::hypot(b.first - a.first, b.second - a.second);
    double direction = std::atan2(b.second - a.second, b.first - a.first);
    Ring ring{a};
    for (int i = 1; i < edges; ++i) {
        const XY& last = ring.back();
        ring.emplace_back(last.first + length * std::cos(direction),
                          last.second + length * std::sin(direction));
        direction -= 2 * kPi / edges;
    }
    ring.push_back(a);
    return ring;
}

class RegularPolygon : public ShapeSession {
protected:
    void SetUp() override {
        ShapeSession::SetUp();
        start("TLCmdDigitizeRegularPolygon");
    }
};

TEST_F(RegularPolygon, TheNumberOfEdgesLiesBetween3And360AndComesFirst) {
    // Before the number is known a press only repeats the demand, whatever the button.
    EXPECT_FALSE(dispatcher->MouseDown(TLRightButton, 100, 100));
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    type("2");
    type("many");
    type("361");
    type("");
    type("360");
    EXPECT_EQ(messages(), (Texts{kTooFew, kTooFew, kTooFew, kTooFew, kTooMany}));
    EXPECT_EQ(prompts(), (Texts{kEdges, kEdges, kEdges, kEdges, kEdges, kEdges, kCentreOrSide}));
    EXPECT_TRUE(band()->Parts().empty());

    type("centre");
    EXPECT_EQ(messages().back(), "Point coordinate or command input error, please re-enter!");
    EXPECT_EQ(prompt(), kCentreOrSide);
}

TEST_F(RegularPolygon, TypedCentreAndRadiusStartOneEdgeRoundAndStepByWholeDegrees) {
    type("4");
    EXPECT_FALSE(type("100,100")) << "a typed centre answers false";
    type("0");
    EXPECT_EQ(messages(), Texts{"Input error!"});
    type("-10");
    expectRing(committed(), {{100, 110}, {90, 100}, {100, 90}, {110, 100}, {100, 110}});
    EXPECT_EQ(prompts(), (Texts{kCentreOrSide, kRadius, kRadius, kEdges}));
    EXPECT_EQ(messages(), (Texts{"Input error!", kDrawn}));
    EXPECT_EQ(undoSteps(), 1);

    // Seven edges: 51 degrees a step from 360/7 degrees on, and 54 for the closing edge.
    type("7");
    type("0,0");
    type("100");
    const std::vector<int> ids = parcels->GetDatasource()->GetIds();
    ASSERT_EQ(ids.size(), 2u);
    const Ring heptagon = ringOf(parcels, ids[1]);
    ASSERT_EQ(heptagon.size(), 8u);
    EXPECT_NEAR(degreesOf(heptagon[0], {0, 0}), 360.0 / 7, 1e-9);
    for (int i = 1; i < 7; ++i)
        EXPECT_NEAR(degreesOf(heptagon[i], {0, 0}) - degreesOf(heptagon[i - 1], {0, 0}), 51.0, 1e-9)
            << "step " << i;
    EXPECT_NEAR(360 - degreesOf(heptagon[6], {0, 0}) + degreesOf(heptagon[7], {0, 0}), 54.0, 1e-9);
}

TEST_F(RegularPolygon, TypedEdgeLeavesItsSecondEndpointOutOfTheRing) {
    type("5");
    type("e");
    type("0;0");
    type("0,0");
    type("bad");
    type("10,0");
    Ring expected = walkedPolygon({0, 0}, {10, 0}, 5);
    expected.erase(expected.begin() + 1);  // the second endpoint
    expectRing(committed(), expected);
    EXPECT_EQ(prompts(),
              (Texts{kCentreOrSide, kFirstEnd, kFirstEnd, kSecondEnd, kSecondEnd, kEdges}));
    EXPECT_EQ(messages(), (Texts{"Input point error!", "Input point error!", kDrawn}));

    // A square on a typed edge keeps three vertices, too few to write.
    type("4");
    type("E");
    type("0,0");
    type("10,0");
    EXPECT_EQ(featureCount(), 1);
    EXPECT_EQ(undoSteps(), 1);
    EXPECT_EQ(prompt(), kEdges);
}

TEST_F(RegularPolygon, ClickedCentreAndRadiusGiveATrueRegularPolygonThroughThePointer) {
    type("6");
    click(100, 100);
    EXPECT_EQ(prompt(), kRadius);
    move(130, 100);
    click(130, 100);

    const Ring hexagon = committed();
    ASSERT_EQ(hexagon.size(), 7u);
    for (int i = 0; i < 6; ++i) {
        EXPECT_NEAR(std::hypot(hexagon[i].first - 100, hexagon[i].second - 100), 30, 1e-9);
        EXPECT_NEAR(degreesOf(hexagon[i], {100, 100}), 60.0 * i, 1e-9) << "counter-clockwise";
    }
    EXPECT_EQ(hexagon[0], XY(130, 100));
    EXPECT_EQ(hexagon[6], XY(130, 100));
    EXPECT_EQ(prompts().back(), kEdges);
    EXPECT_EQ(messages(), Texts{kDrawn});
}

TEST_F(RegularPolygon, ClickedEdgeShowsAndWritesTheWholePolygon) {
    type("4");
    type("E");
    click(100, 100);
    EXPECT_EQ(prompt(), kSecondEnd);
    move(140, 100);
    expectRing(bandPoints(), {{100, 100}, {140, 100}, {140, 60}, {100, 60}});
    click(140, 100);
    expectRing(committed(), walkedPolygon({100, 100}, {140, 100}, 4));
}

TEST_F(RegularPolygon, TypedCentreWithAClickedRadius) {
    type("3");
    type("50,50");
    move(50, 80);
    press(50, 80);
    const Ring triangle = committed();
    ASSERT_EQ(triangle.size(), 4u);
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(degreesOf(triangle[i], {50, 50}), 90.0 + 120.0 * i, 1e-9);
}

TEST_F(RegularPolygon, ADoubleClickWritesThePreview) {
    type("8");
    click(300, 300);
    move(300, 340);
    EXPECT_TRUE(dispatcher->DoubleClick(TLLeftButton, 300, 260));
    EXPECT_EQ(committed().size(), 9u);
    EXPECT_TRUE(band()->Parts().empty());
    // The number of edges is asked again.
    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 10, 10));
    EXPECT_EQ(messages(), Texts{kTooFew});
}

}  // namespace
}  // namespace TMObjects
