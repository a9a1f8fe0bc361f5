#include "PolygonSession.h"
#include "PolygonTexts.h"
#include "tlmap/TLEditor.h"

namespace TMObjects {
namespace {

using namespace polygon_texts;

// Picks find the lines of "walls": a horizontal one at y 400 and a vertical one at x 600.
class PolygonSubCommand : public PolygonSession {
protected:
    void SetUp() override {
        PolygonSession::SetUp();
        walls = addLayer("walls", TLLayer::LineLayer);
        addLine(walls, {{0, 400}, {800, 400}});
        addLine(walls, {{600, 0}, {600, 600}});
    }
    TLFeatureLayer* walls = nullptr;
};

TEST_F(PolygonSubCommand, OF_AddsTheTypedOffsetFromTheLastVertex) {
    clickAll({{100, 100}, {300, 100}});
    buddy->ClearEvents();
    type("OF");
    type("up");
    type("0,150");
    EXPECT_EQ(prompts(), (Texts{kOffset, kOffset, kCount3}));
    EXPECT_EQ(messages(), Texts{kBadText});
    type("E");
    expectRings(committed(), {{{100, 100}, {300, 100}, {300, 250}, {100, 100}}});
}

TEST_F(PolygonSubCommand, LE_RunsTowardsWhereThePointerWasOrTakesAClick) {
    click(100, 100);
    // A press without a move before it: the guide still ends where the pointer was.
    move(300, 400);
    dispatcher->MouseDown(TLLeftButton, 300, 500);
    buddy->ClearEvents();
    type("LE");
    move(700, 100);  // LE holds the guide: the distance still runs towards (300, 400)
    type("far");
    type("150");
    type("le");
    click(100, 250);
    // The question is the polygon's own; a bad value is asked again as the line asks it.
    EXPECT_EQ(prompts(), (Texts{kEnterDistance, kDistance, kCount3, kEnterDistance, kCount3}));
    EXPECT_EQ(messages(), Texts{kBadDistance});
    type("E");
    expectRings(committed(), {{{100, 100}, {300, 100}, {300, 250}, {100, 250}, {100, 100}}});
}

TEST_F(PolygonSubCommand, CZ_AfterItsPickCountsAsTwoStepsWhateverTheRingHolds) {
    click(100, 100);
    buddy->ClearEvents();
    type("cz");
    // While CZ waits the guide leaves the pointer out: only the closing edge is left.
    move(300, 300);
    expectRing(pointsOf(guideBand()), {{100, 100}, {100, 100}, {100, 100}});
    click(300, 300);  // no line within three pixels
    click(300, 402);
    type("100");
    // Two vertices, yet the third menu with Finish in it.
    EXPECT_EQ(prompts(), (Texts{kPerpendicular, kDistance, kCount3}));
    click(400, 200);
    type("E");
    expectRings(committed(), {{{100, 100}, {100, 200}, {400, 200}, {100, 100}}});
}

TEST_F(PolygonSubCommand, PL_GoesAlongThePickedLineBySignedDistance) {
    clickAll({{100, 100}, {300, 100}, {300, 300}});
    buddy->ClearEvents();
    type("PL");
    click(200, 401);
    type("0");
    type("-200");
    EXPECT_EQ(prompts(), (Texts{kParallel, kDistance, kCount3})) << "0 is not taken";
    type("E");
    expectRings(committed(), {{{100, 100}, {300, 100}, {300, 300}, {100, 300}, {100, 100}}});
}

TEST_F(PolygonSubCommand, PY_ThePickOfTheParallelIsNoInputStep) {
    click(100, 100);
    buddy->ClearEvents();
    type("PY");
    click(200, 401);
    click(601, 300);
    // One vertex and the crossing: the second menu, where the line would offer the third.
    EXPECT_EQ(prompts(),
              (Texts{"Select parallel lines:", "Please choose extension line:", kCount2}));
    click(600, 300);
    type("E");
    expectRings(committed(), {{{100, 100}, {600, 100}, {600, 300}, {100, 100}}});
}

TEST_F(PolygonSubCommand, J_PutsInTheSquareCornerWithOnePromptForBoth) {
    clickAll({{100, 100}, {300, 100}});
    buddy->ClearEvents();
    type("J");
    click(400, 300);
    EXPECT_EQ(prompts(), (Texts{kInterval, kCount3}));
    EXPECT_EQ(guideBand()->GetType(), TLRubberBand::LineBand) << "J leaves a line guide";
    move(400, 400);
    EXPECT_EQ(guideBand()->GetType(), TLRubberBand::PolygonBand) << "until the next move";
    type("E");
    expectRings(committed(), {{{100, 100}, {300, 100}, {300, 300}, {400, 300}, {100, 100}}});
}

TEST_F(PolygonSubCommand, CL_OnOnePointFailsButTheSessionGoesOn) {
    click(100, 100);
    type("CL");
    EXPECT_FALSE(type("50"));
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_NE(failures[0].find("range"), std::string::npos) << failures[0];
    EXPECT_FALSE(map->editor()->IsOperationOpen());

    dispatcher->Deactivate();
    pick("TLCmdDigitizePolygon");
    clickAll({{10, 10}, {110, 10}, {110, 110}});
    type("CL");
    type("50");  // the last edge shortened to 50
    type("E");
    expectRings(committed(), {{{10, 10}, {110, 10}, {110, 60}, {10, 10}}});
}

}  // namespace
}  // namespace TMObjects
