#include "ShapeSession.h"
#include "tlmap/TLEditor.h"

namespace TMObjects {
namespace {

const char* const kFirst = "Specify the first point:";
const char* const kFirstAgain = "Please specify first point:";
const char* const kSecond = "Give up(U)/<Specify point>:";
const char* const kThird = "Give up(U)/Finish(E)/<Specify point>:";
const char* const kDrawn = "Draw Arbitrary Rect";

class FreehandRectangle : public ShapeSession {
protected:
    void SetUp() override {
        ShapeSession::SetUp();
        start("TLCmdDigitizeFreehandRectangle");
    }
};

TEST_F(FreehandRectangle, ThreeClicksGiveACornerTheEdgeDirectionAndTheOppositeCorner) {
    click(100, 100);
    EXPECT_EQ(bandPoints(), (Ring{{100, 100}}));
    move(200, 100);
    EXPECT_EQ(band()->GetType(), TLRubberBand::LineBand);
    EXPECT_EQ(bandPoints(), (Ring{{100, 100}, {200, 100}}));
    click(200, 100);
    move(150, 160);
    EXPECT_EQ(band()->GetType(), TLRubberBand::PolygonBand);
    click(150, 160);

    expectRing(committed(), {{100, 100}, {150, 100}, {150, 160}, {100, 160}, {100, 100}});
    EXPECT_EQ(prompts(), (Texts{kSecond, kThird, kFirst}));
    EXPECT_EQ(messages(), Texts{kDrawn});
    EXPECT_EQ(undoSteps(), 1);
    EXPECT_TRUE(band()->Parts().empty());

    // A slanted edge: the second click only gives the direction, the third the far corner.
    click(100, 100);
    click(106, 108);
    click(90, 170);
    const std::vector<int> ids = parcels->GetDatasource()->GetIds();
    ASSERT_EQ(ids.size(), 2u);
    expectRing(ringOf(parcels, ids[1]), {{100, 100}, {130, 140}, {90, 170}, {60, 130}, {100, 100}});
}

TEST_F(FreehandRectangle, TypedLinesOnlyGiveUpOrFinishWithThePreview) {
    EXPECT_TRUE(type(""));
    EXPECT_EQ(messages(), Texts{"Command input error, please re-enter!"});
    EXPECT_EQ(prompts(), Texts{kFirstAgain});

    // Coordinates are not taken, and nothing happens without points.
    buddy->ClearEvents();
    type("10,10");
    type("U");
    type("E");
    EXPECT_TRUE(buddy->Events().empty());

    click(100, 100);
    type("u");
    EXPECT_TRUE(band()->Parts().empty());
    click(300, 300);
    click(400, 300);
    type("U");
    EXPECT_EQ(prompts(), (Texts{kSecond, kFirstAgain, kSecond, kThird, kFirstAgain}));

    buddy->ClearEvents();
    click(300, 300);
    click(400, 300);
    move(350, 250);
    type("e");
    expectRing(committed(), {{300, 300}, {350, 300}, {350, 250}, {300, 250}, {300, 300}});
    EXPECT_EQ(messages(), Texts{kDrawn});
    EXPECT_TRUE(band()->Parts().empty());
}

TEST_F(FreehandRectangle, FinishWithoutAMoveAfterTheSecondClickGivesUp) {
    // No rectangle was shown yet: nothing to finish.
    click(100, 100);
    click(200, 100);
    type("E");
    EXPECT_EQ(featureCount(), 0);

    // Nor after one was written: its preview belongs to that rectangle, not to the next.
    click(100, 100);
    click(200, 100);
    click(150, 160);
    buddy->ClearEvents();
    click(300, 300);
    click(400, 300);
    type("E");
    EXPECT_EQ(prompts(), (Texts{kSecond, kThird, kFirstAgain}));
    EXPECT_TRUE(messages().empty());
    EXPECT_TRUE(band()->Parts().empty());
    expectRing(committed(), {{100, 100}, {150, 100}, {150, 160}, {100, 160}, {100, 100}});
    EXPECT_EQ(undoSteps(), 1);

    // The next rectangle starts from its first click.
    click(300, 300);
    EXPECT_EQ(prompt(), kSecond);
}

TEST_F(FreehandRectangle, AThirdPressBeforeAnyPreviewWritesTheRectangleOfThePress) {
    click(100, 100);
    click(200, 100);
    press(150, 160);
    expectRing(committed(), {{100, 100}, {150, 100}, {150, 160}, {100, 160}, {100, 100}});
    EXPECT_EQ(prompts(), (Texts{kSecond, kThird, kFirst}));
    EXPECT_EQ(messages(), Texts{kDrawn});
    EXPECT_EQ(undoSteps(), 1);
    EXPECT_TRUE(band()->Parts().empty());
}

TEST_F(FreehandRectangle, ADoubleClickDropsTheRectangleUnderWay) {
    click(100, 100);
    click(200, 100);
    move(150, 160);
    EXPECT_TRUE(dispatcher->DoubleClick(TLLeftButton, 150, 440));
    EXPECT_EQ(featureCount(), 0);
    EXPECT_EQ(undoSteps(), 0);
    EXPECT_TRUE(band()->Parts().empty());

    buddy->ClearEvents();
    click(10, 10);
    EXPECT_EQ(prompts(), Texts{kSecond});
}

}  // namespace
}  // namespace TMObjects
