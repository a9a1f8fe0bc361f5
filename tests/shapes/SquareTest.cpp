#include "ShapeSession.h"
#include "tlmap/TLEditor.h"

namespace TMObjects {
namespace {

const char* const kMenu =
    "1. draw a square with the known center and the length of the side. /2. knows the square of "
    "the two points:";
const char* const kCentre = "Specify the center of the square:";
const char* const kHalfSide = "Please specify the 1/2 side length of a square:";
const char* const kFirst = "First point:";
const char* const kAnother = "Another point:";
const char* const kPointError = "Input point error!";
const char* const kTypedDone = "Command: draw square";
const char* const kDrawn = "Command:Drawing Square";

class Square : public ShapeSession {
protected:
    void SetUp() override {
        ShapeSession::SetUp();
        start("TLCmdDigitizeSquare");
    }
};

TEST_F(Square, TypedCentreAndHalfSideRefusingZeroAndText) {
    EXPECT_TRUE(type("1"));
    EXPECT_TRUE(type("100,200"));
    EXPECT_EQ(bandPoints(), (Ring{{100, 200}}));

    // A half side of 0, or text that reads as 0, empties the band and asks again.
    type("abc");
    EXPECT_TRUE(band()->Parts().empty());
    type("0");
    EXPECT_EQ(featureCount(), 0);

    type("-25");  // the sign does not count
    expectRing(committed(), {{75, 225}, {125, 225}, {125, 175}, {75, 175}, {75, 225}});
    EXPECT_EQ(prompts(), (Texts{kCentre, kHalfSide, kHalfSide, kHalfSide, kMenu}));
    EXPECT_EQ(messages(), (Texts{kPointError, kPointError, kTypedDone, kDrawn}));
    EXPECT_EQ(undoSteps(), 1);
    EXPECT_EQ(map->editor()->LastCommittedLabel().toStdString(), "add feature");
    EXPECT_FALSE(map->editor()->IsOperationOpen());
    EXPECT_TRUE(band()->Parts().empty());

    // Ready for the next square at once, from the menu.
    type("1");
    EXPECT_EQ(prompt(), kCentre);
}

TEST_F(Square, TypedTwoPointsBuildOnTheLeftOfTheEdge) {
    type("3");
    type("");  // only repeats the menu, here and later
    type("2");
    type("10;20");
    type("10,20");
    type("");
    type("40,60");  // an edge of length 50 going up and right
    expectRing(committed(), {{10, 20}, {40, 60}, {0, 90}, {-30, 50}, {10, 20}});
    EXPECT_EQ(prompts(), (Texts{kMenu, kMenu, kFirst, kFirst, kAnother, kMenu, kMenu}));
    EXPECT_EQ(messages(),
              (Texts{"Command input error,please re-enter!", kPointError, kTypedDone, kDrawn}));
}

TEST_F(Square, AClickWithoutAChoiceDrawsAboutACentreSizedByTheHorizontalDistance) {
    click(300, 300);
    EXPECT_EQ(prompts(), Texts{kHalfSide});

    // Only the horizontal distance to the pointer sets the half side.
    move(340, 100);
    expectRing(bandPoints(), {{260, 340}, {340, 340}, {340, 260}, {260, 260}, {260, 340}});
    move(280, 310);
    click(280, 310);

    expectRing(committed(), {{280, 320}, {320, 320}, {320, 280}, {280, 280}, {280, 320}});
    EXPECT_EQ(prompts(), (Texts{kHalfSide, kMenu}));
    EXPECT_EQ(messages(), Texts{kDrawn});
    EXPECT_EQ(undoSteps(), 1);
}

TEST_F(Square, APressWithoutAMoveCommitsTheSquareTheLastMoveDrew) {
    type("2");
    click(100, 100);
    move(100, 150);
    press(500, 500);
    expectRing(committed(), {{100, 100}, {100, 150}, {50, 150}, {50, 100}, {100, 100}});
}

TEST_F(Square, TypedAndClickedInputMix) {
    // A typed first point, then the pointer for the second.
    type("2");
    type("200,200");
    click(260, 200);
    const std::vector<int> first = parcels->GetDatasource()->GetIds();
    ASSERT_EQ(first.size(), 1u);
    expectRing(ringOf(parcels, first[0]),
               {{200, 200}, {260, 200}, {260, 260}, {200, 260}, {200, 200}});

    // A clicked centre, then a typed half side.
    click(100, 100);
    type("5");
    const std::vector<int> ids = parcels->GetDatasource()->GetIds();
    ASSERT_EQ(ids.size(), 2u);
    expectRing(ringOf(parcels, ids[1]), {{95, 105}, {105, 105}, {105, 95}, {95, 95}, {95, 105}});
    EXPECT_EQ(undoSteps(), 2);
    ASSERT_TRUE(map->editor()->Undo());
    EXPECT_EQ(parcels->GetDatasource()->GetIds(), first);
}

TEST_F(Square, ADoubleClickDropsTheSquareUnderWay) {
    click(300, 300);
    move(350, 300);
    EXPECT_TRUE(dispatcher->DoubleClick(TLLeftButton, 350, 300));
    EXPECT_EQ(featureCount(), 0);
    EXPECT_EQ(undoSteps(), 0);
    EXPECT_TRUE(band()->Parts().empty());

    // The next click starts a new square.
    click(10, 10);
    click(20, 10);
    expectRing(committed(), {{0, 20}, {20, 20}, {20, 0}, {0, 0}, {0, 20}});
}

}  // namespace
}  // namespace TMObjects
