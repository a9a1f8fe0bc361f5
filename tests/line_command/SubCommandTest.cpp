#include <cmath>

#include "LineSession.h"
#include "LineTexts.h"
#include "tlmap/TLEditor.h"

namespace TMObjects {
namespace {

using namespace line_texts;

// Every scenario starts from a line (100, 100) - (200, 100) drawn by two clicks.
class SubCommand : public LineSession {
protected:
    void SetUp() override {
        LineSession::SetUp();
        clickAll({{100, 100}, {200, 100}});
        buddy->ClearEvents();
    }
    // The paths of the feature committed last.
    Paths lastCommitted() const { return pathsOf(roads, roads->GetDatasource()->GetIds().back()); }
};

TEST_F(SubCommand, OF_AddsTheTypedOffsetFromTheLastVertex) {
    const Path guide = pointsOf(guideBand());
    type("of");
    move(400, 400);
    EXPECT_EQ(pointsOf(guideBand()), guide) << "OF holds the guide";
    type("1;2");
    type("E");  // keys are only bad values while a sub-command waits
    type("10,-20");
    EXPECT_EQ(prompts(), (Texts{kOffset, kOffset, kOffset, kCount3}));
    EXPECT_EQ(messages(), (Texts{kBadText, kBadText}));
    type("E");
    expectPaths(committed(), {{{100, 100}, {200, 100}, {210, 80}}});
}

TEST_F(SubCommand, CL_MovesTheLastVertexAlongItsSegment) {
    type("CL");
    type("long");
    EXPECT_EQ(buddy->Events().size(), 1u) << "a bad length says nothing at all";
    type("50");
    EXPECT_EQ(prompts(), (Texts{"please input length:", kCount2})) << "pointCount stays 2";
    type("E");
    expectPaths(committed(), {{{100, 100}, {150, 100}}});
}

TEST_F(SubCommand, CZ_PicksAReferenceAndGoesSquareToIt) {
    const int wall = addLine(roads, {{0, 300}, {800, 300}});
    type("cz");
    move(400, 250);
    expectPath(pointsOf(guideBand()), {{200, 100}});  // no guide while CZ waits
    click(400, 200);                                  // nothing within three pixels
    click(400, 302);
    EXPECT_TRUE(roads->IsSelected(wall)) << "the pick highlights the edit layer there";
    buddy->ClearEvents();
    type("far");
    ASSERT_EQ(buddy->Events().size(), 2u);
    EXPECT_EQ(buddy->Events()[0].text.toStdString(), kDistance) << "prompt first, then the line";
    EXPECT_EQ(buddy->Events()[1].text.toStdString(), kBadDistance);
    type("50");
    EXPECT_EQ(prompt(), kCount3);
    EXPECT_FALSE(roads->IsSelected(wall));

    // The dashed guide is back once CZ is over.
    move(300, 150);
    expectPath(pointsOf(assistBand()), {{200, 150}, {300, 150}});
    type("E");
    expectPaths(lastCommitted(), {{{100, 100}, {200, 100}, {200, 150}}});
}

TEST_F(SubCommand, AS_TakesTheTurnFromAClick) {
    type("AS");
    click(200, 200);  // square to the left
    type("50");
    EXPECT_EQ(prompts(), (Texts{kDirection, kDistance, kCount3}));
    type("E");
    expectPaths(committed(), {{{100, 100}, {200, 100}, {200, 150}}});
}

TEST_F(SubCommand, AS_TakesTheTurnFromTheKeyboardAfterK) {
    type("AS");
    type("x");
    type(" K ");
    type("ninety");
    type("270");
    type("-");
    type("50");
    EXPECT_EQ(prompts(),
              (Texts{kDirection, kDirection, kAngle, kAngle, kDistance, kDistance, kCount3}));
    EXPECT_EQ(messages(), (Texts{kBadText, "Incorrect input angle!", kBadDistance}));
    type("E");
    expectPaths(committed(), {{{100, 100}, {200, 100}, {200, 50}}});
}

// Each way of giving the turn at the station ends on the very same vertex.
TEST_F(SubCommand, AS_AClickedDirectionAndTheSameAngleTypedGiveTheSameVertex) {
    const std::pair<XY, const char*> turns[] = {
        {{200, 200}, "90"}, {{200, 0}, "270"}, {{300, 100}, "180"}, {{100, 200}, "45"}};
    for (const auto& [direction, angle] : turns) {
        SCOPED_TRACE(angle);
        type("AS");
        click(direction.first, direction.second);
        type("50");
        const XY byClick = pointsOf(mainBand()).back();
        type("U");
        type("AS");
        type("K");
        type(angle);
        type("50");
        EXPECT_EQ(pointsOf(mainBand()).back(), byClick);
        type("U");
    }
}

TEST_F(SubCommand, PL_GoesAlongAPickedLineBySignedDistance) {
    TLFeatureLayer* walls = addLayer("walls", TLLayer::LineLayer);
    addLine(walls, {{0, 300}, {400, 600}});  // direction (0.8, 0.6)
    type("PL");
    click(200, 450);
    type("0");
    EXPECT_EQ(prompts(), (Texts{"Parallel to other lines [line selection]:", kDistance}))
        << "0 is not taken and PL still waits";
    type("-50");
    EXPECT_EQ(prompt(), kCount3);
    type("E");
    expectPaths(committed(), {{{100, 100}, {200, 100}, {160, 70}}});
}

TEST_F(SubCommand, PL_WithoutAPickUsesTheEndOfTheLastReference) {
    TLFeatureLayer* walls = addLayer("walls", TLLayer::LineLayer);
    addLine(walls, {{0, 300}, {400, 600}});
    type("PL");
    click(200, 450);
    type("50");
    type("E");
    // The next line starts from a reference whose start was reset to (0, 0) and whose end is
    // still (400, 600): direction (0.5547, 0.8321).
    clickAll({{100, 100}, {200, 100}});
    type("PL");
    type("100");
    type("E");
    const double d = 100 / std::hypot(400, 600);
    expectPaths(lastCommitted(), {{{100, 100}, {200, 100}, {200 + 400 * d, 100 + 600 * d}}});
}

TEST_F(SubCommand, LE_MeasuresAlongTheGuideAsItStoodOrTakesAClick) {
    move(200, 200);
    type("LE");
    move(500, 500);  // the guide is held: the distance still runs towards (200, 200)
    type("abc");
    type("30");
    type("LE");
    click(300, 300);
    EXPECT_EQ(prompts(), (Texts{kDistance, kDistance, kCount3, kDistance, kCount3}));
    EXPECT_EQ(messages(), Texts{kBadDistance});
    type("E");
    expectPaths(committed(), {{{100, 100}, {200, 100}, {200, 130}, {300, 300}}});
}

TEST_F(SubCommand, PY_EndsAParallelWhereItMeetsASecondPickedLine) {
    TLFeatureLayer* walls = addLayer("walls", TLLayer::LineLayer);
    addLine(walls, {{0, 500}, {800, 500}});
    addLine(walls, {{400, 0}, {400, 600}});
    type("E");
    click(200, 100);
    buddy->ClearEvents();
    type("PY");
    click(300, 501);
    move(250, 300);
    expectPath(pointsOf(guideBand()), {{200, 100}, {250, 100}});  // along the parallel
    click(600, 499);                                              // the same segment again
    type("5");                                                    // PY takes no typed value
    click(401, 200);
    // The first pick counts as an input step: two vertices, yet the third menu.
    EXPECT_EQ(prompts(),
              (Texts{"Select parallel lines:", "Please choose extension line:",
                     "Parallel lines and extension lines coincid,please select extension lines "
                     "again:",
                     kCount3}));
    type("E");
    expectPaths(lastCommitted(), {{{200, 100}, {400, 100}}});
}

TEST_F(SubCommand, YS_ExtendsTheLastSegmentToAClickOrByADistance) {
    type("YS");
    // The guide ends at the foot in device pixels: map (300, 100) is device (300, 500).
    move(300, 150);
    expectPath(pointsOf(guideBand()), {{200, 100}, {300, 500}});
    click(300, 150);
    type("ys");
    type("abc");
    type("40");
    EXPECT_EQ(prompts(), (Texts{kDistance, kCount3, kDistance, kDistance, kCount3}));
    EXPECT_EQ(messages(), Texts{kBadDistance});
    type("E");
    expectPaths(committed(), {{{100, 100}, {200, 100}, {300, 100}, {340, 100}}});
}

TEST_F(SubCommand, FX_ReversesAllPartsIntoOneAndDrawsOnFromTheFormerStart) {
    buddy->SetLinePartMode(0);
    click(0, 0, TLRightButton);
    clickAll({{300, 300}, {400, 300}});
    type("FX");
    EXPECT_EQ(prompt(), kCount2);
    click(50, 50);
    type("E");
    expectPaths(committed(), {{{400, 300}, {300, 300}, {200, 100}, {100, 100}, {50, 50}}});
}

TEST_F(SubCommand, J_PutsInTheSquareCornerBeforeATypedOrClickedPoint) {
    type("J");
    type("nowhere");
    type("300,200");
    EXPECT_EQ(prompts(), (Texts{kInterval, kCount3}));
    EXPECT_EQ(messages(), Texts{"input point format error!"});
    type("j");
    click(400, 300);
    type("E");
    expectPaths(committed(),
                {{{100, 100}, {200, 100}, {200, 200}, {300, 200}, {300, 300}, {400, 300}}});
}

TEST_F(SubCommand, J_GuideShowsTheCornerInPixelsOnceAClickFoundNoCorner) {
    type("J");
    click(300, 100);  // straight ahead: no corner, the point is taken and J still waits
    EXPECT_EQ(prompt(), kCount3);
    // The corner (300, 200) enters the guide as device pixels, between two map points.
    move(400, 200);
    expectPath(pointsOf(guideBand()), {{300, 100}, {300, 400}, {400, 200}});
    click(400, 200);
    type("E");
    expectPaths(committed(), {{{100, 100}, {200, 100}, {300, 100}, {300, 200}, {400, 200}}});
}

TEST_F(SubCommand, D_ClosesAroundAComputedCorner) {
    click(200, 200);
    type("D");
    EXPECT_EQ(prompt(), kFirstAgain);
    // The corner, the first vertex, then the closing pair of D: the last guide end and the
    // part's first vertex, which here are all the same point.
    expectPaths(
        committed(),
        {{{100, 100}, {200, 100}, {200, 200}, {100, 200}, {100, 100}, {100, 100}, {100, 100}}});
}

TEST_F(SubCommand, C_ClosesFromADoubledLastVertex) {
    click(200, 200);
    type("c");
    EXPECT_EQ(prompt(), kFirstAgain);
    expectPaths(committed(), {{{100, 100}, {200, 100}, {200, 200}, {200, 200}, {100, 100}}});
}

TEST_F(SubCommand, U_TakesBackVerticesButNeverLowersTheCount) {
    click(200, 200);
    buddy->ClearEvents();
    type("U");
    type("u");
    click(300, 300);
    EXPECT_EQ(prompts(), (Texts{kCount3, kCount3, kCount3}));
    type("E");
    expectPaths(committed(), {{{100, 100}, {300, 300}}});

    // On the last vertex the line is gone and the tool waits for a first point.
    click(10, 10);
    type("U");
    EXPECT_EQ(prompt(), kFirst);
    EXPECT_TRUE(pointsOf(mainBand()).empty());
}

TEST_F(SubCommand, U_AlwaysTakesFromTheFirstPath) {
    buddy->SetLinePartMode(0);
    click(0, 0, TLRightButton);
    clickAll({{300, 300}, {400, 300}});
    type("U");
    type("E");
    // The first path lost its end and is left with one vertex, which makes no path.
    expectPaths(committed(), {{{300, 300}, {400, 300}}});
}

TEST_F(SubCommand, E_CommitsAtOnceAndAnEmptyLineDoesNot) {
    EXPECT_FALSE(type(""));
    EXPECT_TRUE(type("word"));
    EXPECT_EQ(messages(), (Texts{kBadText, kBadText}));
    EXPECT_EQ(prompts(), (Texts{kFirstAgain, kCount2}));
    EXPECT_EQ(roads->GetDatasource()->GetFeatureCount(), 0);

    move(500, 500);
    EXPECT_TRUE(type("e"));
    EXPECT_EQ(prompt(), kFirst);
    expectPaths(committed(), {{{100, 100}, {200, 100}}});  // the pointer is no vertex
    EXPECT_EQ(map->editor()->UndoCount(), 1);
}

TEST_F(SubCommand, CL_OnOnePointFailsButTheSessionGoesOn) {
    type("E");
    click(100, 100);
    type("CL");
    EXPECT_FALSE(type("50"));
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_NE(failures[0].find("range"), std::string::npos) << failures[0];
    EXPECT_FALSE(map->editor()->IsOperationOpen());

    // The host carries on: the tool can be left and picked again, and draws as before.
    const int steps = map->editor()->UndoCount();
    dispatcher->Deactivate();
    pick("TLCmdDigitizeLine");
    clickAll({{10, 10}, {20, 10}});
    type("E");
    EXPECT_EQ(map->editor()->UndoCount(), steps + 1);
    expectPaths(lastCommitted(), {{{10, 10}, {20, 10}}});
    EXPECT_EQ(failures.size(), 1u);
}

}  // namespace
}  // namespace TMObjects
