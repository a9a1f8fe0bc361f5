#include "ShapeSession.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLEditor.h"

namespace TMObjects {
namespace {

const char* const kMenu =
    "1. according to the two rectangle /2. according to the three point rectangular /3. "
    "according to two and the width of rectangle /4. according to the length and width of "
    "rectangle:";
const char* const kFirst =
    "Specify the first point of the rectangle / manually enter the first point (x, y):";
const char* const kNext = "Please specify the next point / manually enter the next point (x, y):";
const char* const kSecond =
    "Please specify the second point / manually enter the second point (x, y):";
const char* const kThird =
    "Please specify the third point / manually enter the third point (x, y):";
const char* const kThirdAgain =
    "Please specify the third point / manually enter the second point (x, y):";
const char* const kLengthWidth = "Please enter the rectangle length and width (length, width):";
const char* const kWidth = "width:";
const char* const kSideHint =
    "You can enter positive or negative values, positive for one side, and negative on the other "
    "side";
const char* const kPointError = "Input point error!";
const char* const kTypedDone = "Command: Draw Rectangle";
const char* const kClickedDone = "Command: Draw a rectangle";
const char* const kDrawn = "Command:Drawing Rectangle";

class Rectangle : public ShapeSession {
protected:
    void SetUp() override {
        ShapeSession::SetUp();
        start("TLCmdDigitizeRectangle");
    }
    // The rings of all features, in the order they were written.
    std::vector<Ring> rings() const {
        std::vector<Ring> out;
        for (int id : parcels->GetDatasource()->GetIds()) out.push_back(ringOf(parcels, id));
        return out;
    }
};

TEST_F(Rectangle, TypedTwoCornersWithAChoiceThatIsRefusedFirst) {
    type("5");
    type("1");
    type("10,10");
    type("40");
    type("40,30");
    expectRing(committed(), {{10, 10}, {40, 10}, {40, 30}, {10, 30}, {10, 10}});
    // Every line at the menu first asks for the first point; a bad choice takes it back.
    EXPECT_EQ(prompts(), (Texts{kFirst, kMenu, kFirst, kNext, kNext, kMenu}));
    EXPECT_EQ(messages(),
              (Texts{"Command input error,please re-enter!", kPointError, kTypedDone, kDrawn}));
    EXPECT_EQ(undoSteps(), 1);
    EXPECT_FALSE(map->editor()->IsOperationOpen());
}

TEST_F(Rectangle, TypedThreePointsFollowTheSideOfTheThirdPoint) {
    for (const char* third : {"3,4", "3,-4"}) {
        type("2");
        type("0,0");
        type("10,0");
        type("x");
        type(third);
    }
    EXPECT_EQ(prompts(), (Texts{kFirst, kSecond, kThird, kThirdAgain, kMenu, kFirst, kSecond,
                                kThird, kThirdAgain, kMenu}));
    const std::vector<Ring> written = rings();
    ASSERT_EQ(written.size(), 2u);
    expectRing(written[0], {{0, 0}, {10, 0}, {10, 4}, {0, 4}, {0, 0}});
    expectRing(written[1], {{0, 0}, {10, 0}, {10, -4}, {0, -4}, {0, 0}});

    // A third point on the line gives a flat ring, written as it stands.
    type("2");
    type("0,0");
    type("10,0");
    type("25,0");
    ASSERT_EQ(rings().size(), 3u);
    expectRing(rings()[2], {{0, 0}, {10, 0}, {10, 0}, {0, 0}, {0, 0}});
}

TEST_F(Rectangle, TypedWidthTakesItsSignForTheSide) {
    type("3");
    type("0,0");
    type("0,10");  // an edge going up: positive widths lie to its left
    EXPECT_EQ(messages(), Texts{kSideHint});
    type("0");
    type("4");
    type("3");
    type("0,0");
    type("0,10");
    type("-4");

    EXPECT_EQ(messages(), (Texts{kSideHint, "Input error!", kSideHint, kTypedDone, kDrawn,
                                 kSideHint, kTypedDone, kDrawn}));
    EXPECT_EQ(prompts(),
              (Texts{kFirst, kSecond, kWidth, kWidth, kMenu, kFirst, kSecond, kWidth, kMenu}));
    const std::vector<Ring> written = rings();
    ASSERT_EQ(written.size(), 2u);
    expectRing(written[0], {{0, 0}, {0, 10}, {-4, 10}, {-4, 0}, {0, 0}});
    expectRing(written[1], {{0, 0}, {0, 10}, {4, 10}, {4, 0}, {0, 0}});
}

TEST_F(Rectangle, LengthAndWidthAlwaysStandAboveTheFirstPoint) {
    type("4");
    type("100,100");
    type("10,0");
    type("0,5");
    type("10");
    EXPECT_EQ(messages(), (Texts{"Input error!", "Input error!", "Input error!"}));
    EXPECT_EQ(featureCount(), 0);
    type("10,5");
    type("4");
    type("100,100");
    type("-10,-5");

    const std::vector<Ring> written = rings();
    ASSERT_EQ(written.size(), 2u);
    // The same area whatever the signs; only the starting corner differs.
    expectRing(written[0], {{95, 105}, {105, 105}, {105, 100}, {95, 100}, {95, 105}});
    expectRing(written[1], {{95, 100}, {105, 100}, {105, 105}, {95, 105}, {95, 100}});
    EXPECT_EQ(prompts().back(), kMenu);
    EXPECT_EQ(messages().back(), kDrawn);
}

TEST_F(Rectangle, AClickWithoutAChoiceDrawsByTwoCornersFromTheFirstClick) {
    click(100, 100);
    move(160, 140);
    expectRing(bandPoints(), {{100, 100}, {160, 100}, {160, 140}, {100, 140}, {100, 100}});
    move(130, 70);
    click(130, 70);
    expectRing(committed(), {{100, 100}, {130, 100}, {130, 70}, {100, 70}, {100, 100}});
    EXPECT_EQ(prompts(), (Texts{kNext, kMenu}));
    EXPECT_EQ(messages(), Texts{kDrawn});

    // The next rectangle starts from its own first click.
    click(300, 300);
    click(310, 320);
    ASSERT_EQ(rings().size(), 2u);
    expectRing(rings()[1], {{300, 300}, {310, 300}, {310, 320}, {300, 320}, {300, 300}});
}

TEST_F(Rectangle, ClickedThreePointsCommitTheRingTheLastMoveShowed) {
    type("2");
    click(0 + 100, 100);
    move(150, 100);
    EXPECT_EQ(band()->GetType(), TLRubberBand::LineBand);
    EXPECT_EQ(bandPoints(), (Ring{{100, 100}, {150, 100}}));
    click(150, 100);
    move(120, 80);
    expectRing(bandPoints(), {{100, 100}, {150, 100}, {150, 80}, {100, 80}, {100, 100}});
    click(120, 80);

    expectRing(committed(), {{100, 100}, {150, 100}, {150, 80}, {100, 80}, {100, 100}});
    EXPECT_EQ(prompts(), (Texts{kFirst, kSecond, kThird, kMenu}));
    EXPECT_EQ(messages(), (Texts{kClickedDone, kDrawn}));
}

TEST_F(Rectangle, MovesShowWhatEachConstructionKnowsSoFar) {
    // Two corners from a typed first corner.
    type("1");
    type("100,100");
    move(130, 120);
    EXPECT_EQ(band()->GetType(), TLRubberBand::PolygonBand);
    expectRing(bandPoints(), {{100, 100}, {130, 100}, {130, 120}, {100, 120}, {100, 100}});
    press(130, 120);
    ASSERT_EQ(featureCount(), 1);

    // An edge and a width: the first click shows nothing, then the edge follows the pointer.
    type("3");
    press(200, 200);
    EXPECT_TRUE(band()->Parts().empty());
    move(200, 260);
    EXPECT_EQ(band()->GetType(), TLRubberBand::LineBand);
    EXPECT_EQ(bandPoints(), (Ring{{200, 200}, {200, 260}}));
    press(200, 260);
    move(250, 300);  // the width is typed: the band keeps the edge
    EXPECT_EQ(bandPoints(), (Ring{{200, 200}, {200, 260}, {200, 260}}));
    type("5");
    ASSERT_EQ(featureCount(), 2);

    // Length and width: nothing follows the pointer.
    type("4");
    click(400, 400);
    move(450, 450);
    EXPECT_TRUE(band()->Parts().empty());
}

TEST_F(Rectangle, ClickedEdgeAndTypedWidth) {
    type("3");
    click(100, 100);
    move(100, 200);
    click(100, 200);
    EXPECT_EQ(messages(), Texts{kSideHint});
    // A third click only asks for the width again.
    click(300, 300);
    EXPECT_EQ(featureCount(), 0);
    type("-20");

    expectRing(committed(), {{100, 100}, {100, 200}, {120, 200}, {120, 100}, {100, 100}});
    EXPECT_EQ(messages(),
              (Texts{kSideHint, "Please enter the width!", kSideHint, kTypedDone, kDrawn}));
    EXPECT_EQ(prompts(), (Texts{kFirst, kSecond, kWidth, kWidth, kMenu}));
}

TEST_F(Rectangle, ClickedPointWithTypedLengthAndWidth) {
    type("4");
    click(200, 200);
    click(250, 250);  // not kept: the length and width are typed
    type("30,-10");

    expectRing(committed(), {{185, 200}, {215, 200}, {215, 210}, {185, 210}, {185, 200}});
    EXPECT_EQ(prompts(), (Texts{kFirst, kLengthWidth, kLengthWidth, kMenu}));
    EXPECT_EQ(messages(),
              (Texts{"Please enter the rectangle length and width (length, width)!", kDrawn}));
}

TEST_F(Rectangle, ADoubleClickCommitsWhatTheBandShows) {
    click(100, 100);
    move(200, 150);
    EXPECT_TRUE(dispatcher->DoubleClick(TLLeftButton, 200, 450));
    expectRing(committed(), {{100, 100}, {200, 100}, {200, 150}, {100, 150}, {100, 100}});
    EXPECT_EQ(prompts(), (Texts{kNext, kMenu}));
    EXPECT_TRUE(band()->Parts().empty());

    // With nothing drawn it writes nothing.
    EXPECT_TRUE(dispatcher->DoubleClick(TLLeftButton, 10, 10));
    EXPECT_EQ(featureCount(), 1);
    EXPECT_EQ(undoSteps(), 1);
}

}  // namespace
}  // namespace TMObjects
