#include <cmath>

#include "ShapeSession.h"
#include "tlmap/TLEditor.h"

namespace TMObjects {
namespace {

const char* const kMenu =
    "1. according to the center and radius of circle diameter of both ends of /2. according to "
    "the diameters of both ends of the circle /3. according to the three point circle arc on the "
    "dotted ends of the circle:";
const char* const kCentre =
    "Please specify the first point / Manually enter first points (point coordinate format "
    "comma separation x, y):";
const char* const kRadius = "Please specify the second point / Manually enter the radius:";
const char* const kFirst =
    "Please enter first points (point coordinate format comma separation x, y):";
const char* const kSecond =
    "Please enter second points (point coordinate format comma separation x, y):";
const char* const kThird =
    "Please enter third points (point coordinate format comma separation x, y):";
const char* const kClickedSecond = "Please enter second points (x, y):";
const char* const kPointError = "point coordinate input error,please re-enter!";
const char* const kCommandError = "Command input error,please re-enter!";
const char* const kDrawn = "Command:Drawing Circle";

const double kPi = 3.14159265358979323846;

// The radius the command takes from two points: rooted in single precision.
double narrowed(double dx, double dy) {
    return double(std::sqrt(float(dx * dx + dy * dy)));
}

XY onCircle(double cx, double cy, double r, double degrees) {
    return {cx - r * std::cos(degrees * kPi / 180.0), cy - r * std::sin(degrees * kPi / 180.0)};
}

// West, south, east, north by whole degrees, 0 to 360, and the west end again.
Ring circle(double cx, double cy, double r) {
    Ring ring;
    for (int a = 0; a <= 360; ++a) ring.push_back(onCircle(cx, cy, r, a));
    ring.push_back(ring.front());
    return ring;
}

class Circle : public ShapeSession {
protected:
    void SetUp() override {
        ShapeSession::SetUp();
        start("TLCmdDigitizeCircle");
    }
    std::string lastLabel() const { return map->editor()->LastCommittedLabel().toStdString(); }
};

TEST_F(Circle, TypedCentreAndRadiusRefusingBadInput) {
    EXPECT_TRUE(type("1"));
    EXPECT_TRUE(type("100;200"));
    EXPECT_TRUE(type("100,200"));
    type("abc");
    type("-5");
    type("0");
    EXPECT_EQ(featureCount(), 0);
    EXPECT_TRUE(type("12.5"));

    // A typed radius is used as typed: no single-precision rounding.
    const Ring ring = committed();
    ASSERT_EQ(ring.size(), 362u);
    expectRing(ring, circle(100, 200, 12.5));
    EXPECT_EQ(ring.front(), (XY{87.5, 200}));
    EXPECT_EQ(prompts(), (Texts{kCentre, kCentre, kRadius, kRadius, kRadius, kRadius, kMenu}));
    const char* const lengthError = "Length input error,please re-enter!";
    EXPECT_EQ(messages(), (Texts{kCommandError, lengthError, lengthError, lengthError, kDrawn}));
    EXPECT_EQ(undoSteps(), 1);
    EXPECT_EQ(lastLabel(), "add feature");
    EXPECT_TRUE(band()->Parts().empty());

    // A coordinate at the menu is no choice; the next circle starts from the menu again.
    buddy->ClearEvents();
    type("100,200");
    EXPECT_EQ(messages(), Texts{kCommandError});
    EXPECT_EQ(prompts(), Texts{kMenu});
    ASSERT_TRUE(map->editor()->Undo());
    EXPECT_EQ(featureCount(), 0);
}

TEST_F(Circle, ClickedCentreAndRadiusWithAPreviewFromThePointer) {
    click(100, 100);
    EXPECT_EQ(prompts(), Texts{kRadius});
    EXPECT_TRUE(band()->Parts().empty());

    // The preview starts at the pointer and shows the radius inside the disc.
    move(103, 104);
    const Ring preview = bandPoints();
    ASSERT_EQ(preview.size(), 363u);
    expectPath({preview[0], preview[90], preview[180]}, {{103, 104}, {104, 97}, {97, 96}});
    expectPath({preview[361], preview[362]}, {{103, 104}, {100, 100}});
    EXPECT_EQ(band()->GetType(), TLRubberBand::PolygonBand);

    // A press at the centre makes no circle and says nothing.
    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 500));
    dispatcher->MouseUp(TLLeftButton, 100, 500);
    EXPECT_TRUE(buddy->Events().empty());
    EXPECT_EQ(featureCount(), 0);

    // The radius from two points is rounded to single precision, sqrt(2) here.
    click(101, 101);
    const double r = narrowed(1, 1);
    ASSERT_NE(r, std::sqrt(2.0));
    expectRing(committed(), circle(100, 100, r));
    EXPECT_EQ(prompts(), Texts{kMenu});
    EXPECT_EQ(messages(), Texts{kDrawn});
    EXPECT_EQ(undoSteps(), 1);
}

TEST_F(Circle, ClickedAndTypedDiametersStartOneDegreeApart) {
    type("2");
    click(200, 300);
    EXPECT_EQ(prompt(), kClickedSecond);
    move(260, 300);
    expectPath({bandPoints().front(), bandPoints().back()}, {{260, 300}, {200, 300}});
    click(240, 300);

    // A clicked diameter starts one degree past west, with that vertex twice and none at west.
    Ring expected{onCircle(220, 300, 20, 1)};
    for (int a = 1; a <= 360; ++a) expected.push_back(onCircle(220, 300, 20, a));
    expected.push_back(expected.front());
    expectRing(committed(), expected);

    // Typed, the same diameter starts at west.
    type("2");
    type("200,300");
    type("240,300");
    const std::vector<int> ids = parcels->GetDatasource()->GetIds();
    ASSERT_EQ(ids.size(), 2u);
    expectRing(ringOf(parcels, ids[1]), circle(220, 300, 20));
    EXPECT_EQ(prompts(), (Texts{kFirst, kClickedSecond, kMenu, kFirst, kSecond, kMenu}));
    EXPECT_EQ(undoSteps(), 2);
}

TEST_F(Circle, ThreeTypedPointsReadTheMenuNumberAsTheFirstPoint) {
    type("3");
    EXPECT_EQ(messages(), Texts{kPointError});
    EXPECT_EQ(prompts(), (Texts{kFirst, kFirst}));
    type("0,10");
    type("10,0");
    type("x");
    type("0,-10");
    // The circle through the three points, of radius 10 about the origin.
    expectRing(committed(), circle(0, 0, narrowed(0, -10)));
    EXPECT_EQ(prompts(), (Texts{kFirst, kFirst, kSecond, kThird, kThird, kMenu}));
    EXPECT_EQ(messages(), (Texts{kPointError, kPointError, kDrawn}));
}

TEST_F(Circle, ThreeClickedPointsFollowThePointerWithTheChords) {
    type("3");
    buddy->ClearEvents();
    click(300, 200);
    click(400, 300);
    EXPECT_EQ(prompts(), (Texts{kSecond, kThird}));
    move(300, 400);
    // Centre (300, 300), radius 100: the ring from the pointer, then the three points.
    const Ring preview = bandPoints();
    ASSERT_EQ(preview.size(), 364u);
    expectPath({preview[0], preview[90], preview[361], preview[362], preview[363]},
               {{300, 400}, {400, 300}, {300, 200}, {400, 300}, {300, 400}});
    click(300, 400);
    expectRing(committed(), circle(300, 300, 100));
}

TEST_F(Circle, PointsOnOneLevelMakeNoUsableCircleAndNoError) {
    type("3");
    type("0,0");
    type("10,0");
    type("5,5");
    // The host keeps no shape whose coordinates are no numbers, and says so.
    EXPECT_EQ(messages(),
              (Texts{kPointError,
                     "No feature was added in parcels: the shape has a coordinate that is not a "
                     "finite number.",
                     kDrawn}));
    EXPECT_EQ(prompt(), kMenu);
    EXPECT_FALSE(map->editor()->IsOperationOpen());
    EXPECT_EQ(featureCount(), 0);
    EXPECT_EQ(map->editor()->UndoCount(), 0);
}

TEST_F(Circle, AMenuNumberTypedAfterAClickChangesTheMode) {
    // "2" after a centre was clicked is a menu choice, then a point that cannot be read.
    click(100, 100);
    type("2");
    EXPECT_EQ(messages(), Texts{kPointError});
    EXPECT_EQ(prompts(), (Texts{kRadius, kSecond}));
    EXPECT_EQ(featureCount(), 0);

    // From the menu, a clicked centre takes "2.0" as its radius, and "1" stays in mode 1.
    dispatcher->DoubleClick(TLLeftButton, 10, 10);
    click(100, 100);
    type("2.0");
    expectRing(committed(), circle(100, 100, 2));
    click(300, 300);
    type("1");
    const std::vector<int> ids = parcels->GetDatasource()->GetIds();
    ASSERT_EQ(ids.size(), 2u);
    expectRing(ringOf(parcels, ids[1]), circle(300, 300, 1));
}

TEST_F(Circle, MenuNumberFourIsTakenThenRefusedUntilADoubleClick) {
    type("4");
    EXPECT_EQ(messages(), Texts{kCommandError});
    type("1");
    type("100,100");
    click(100, 100);
    click(200, 100);
    EXPECT_EQ(featureCount(), 0);
    EXPECT_EQ(messages(), (Texts{kCommandError, kCommandError, kCommandError}));

    // The double click leaves it; it writes what the band holds, here nothing.
    EXPECT_TRUE(dispatcher->DoubleClick(TLLeftButton, 200, 100));
    EXPECT_EQ(prompt(), kMenu);
    EXPECT_EQ(featureCount(), 0);
    EXPECT_FALSE(map->editor()->IsOperationOpen());
    click(100, 100);
    click(110, 100);
    expectRing(committed(), circle(100, 100, 10));
}

TEST_F(Circle, ARightPressOnlyClearsThePreview) {
    click(100, 100);
    move(150, 100);
    EXPECT_FALSE(band()->Parts().empty());
    click(150, 100, TLRightButton);
    EXPECT_TRUE(band()->Parts().empty());
    EXPECT_EQ(prompts(), Texts{kRadius});
    click(120, 100);
    expectRing(committed(), circle(100, 100, 20));
}

TEST_F(Circle, TheDoubleClickLeavesAHalfMadeCircle) {
    type("3");
    click(100, 100);
    // The press of the double click takes the second point; the double click drops both.
    click(200, 100);
    EXPECT_TRUE(dispatcher->DoubleClick(TLLeftButton, 200, 100));
    EXPECT_EQ(featureCount(), 0);
    EXPECT_EQ(prompt(), kMenu);
    type("1");
    EXPECT_EQ(prompt(), kCentre);
}

}  // namespace
}  // namespace TMObjects
