#include <cmath>

#include "DoubleLineSession.h"
#include "tlmap/TLSnapTool.h"

namespace TMObjects {
namespace {

const char* const kWidth = "Please input width(m):";
const char* const kDrawn = "Command:Drawing RightDoubleLine";
const double kRoot2 = std::sqrt(2.0);

class RightDoubleLine : public DoubleLineSession {
protected:
    void SetUp() override {
        DoubleLineSession::SetUp();
        start("TLCmdDigitizeRightDoubleLine");
    }
};

// The computed line lies left of the digitizing direction: 10 north of the eastward leg, the
// mitre 10 (sqrt 2 - 1) short of the clicked corner.
TEST_F(RightDoubleLine, MitredCornerOnTheLeftFinishedByDoubleClick) {
    click(100, 100);
    move(300, 100);
    expectPath(shown(3), {{100, 110}, {300, 110}});
    click(300, 100);
    click(400, 200);
    buddy->ClearEvents();
    EXPECT_TRUE(doubleClick(400, 200));

    expectPaths(
        committedPair(),
        {{{100, 100}, {300, 100}, {400, 200}},
         {{100, 110}, {300 - 10 * (kRoot2 - 1), 110}, {400 - 5 * kRoot2, 200 + 5 * kRoot2}}});
    EXPECT_EQ(messages(), (Texts{kDrawn, "Command: Right parallel line, width(m):10"}));
    EXPECT_EQ(prompts(), Texts{kWidth});
    EXPECT_EQ(undoSteps(), 1);
    EXPECT_EQ(lastLabel(), "add feature");
}

// A clicked vertical leg keeps its infinite slope, so the corner it makes is not a number; the
// preview guards dx with 1e-5 and shows a corner 90 / 1e7 short of x = 190.
TEST_F(RightDoubleLine, AVerticalLegGivesACornerThatIsNotFinite) {
    click(100, 100);
    click(200, 100);
    move(200, 200);
    const Path preview = shown(3);
    ASSERT_EQ(preview.size(), 3u);
    EXPECT_NEAR(preview[1].first, 190 - 9e-6, 1e-9);
    EXPECT_NEAR(preview[1].second, 110, 1e-5) << "read off a line of slope 1e7";
    expectPath({preview[0], preview[2]}, {{100, 110}, {190, 200}});

    click(200, 200);
    // The committed corner, unlike the preview's, is no number; the host keeps no such shape, so
    // only the clicked line is written.
    EXPECT_TRUE(type("E"));
    EXPECT_EQ(onlyFeatureParts(roads), (Paths{{{100, 100}, {200, 100}, {200, 200}}}));
    EXPECT_TRUE(failures.empty());
}

TEST_F(RightDoubleLine, ANegativeWidthPutsTheLineOnTheOtherSide) {
    EXPECT_TRUE(type("-10"));
    EXPECT_EQ(messages(), Texts{"Width changed to -10 m."});
    click(100, 100);
    click(300, 100);
    type("E");
    expectPaths(committedPair(), {{{100, 100}, {300, 100}}, {{100, 90}, {300, 90}}});
}

// After every other vertex both lines under way become snap targets.
TEST_F(RightDoubleLine, ClicksSnapToTheLinesUnderWay) {
    TLSnapEnvironment::Instance()->setEnabled(true);
    click(100, 100);
    click(300, 100);
    click(103, 113);
    EXPECT_EQ(shown(0), (Path{{100, 100}, {300, 100}, {100, 110}}));
    TLSnapEnvironment::Instance()->setEnabled(false);
}

// A double click drops a line of one vertex before anything else, and refuses, without a word,
// only a point layer: on a polygon layer it writes the pair there, for the store to refuse.
TEST_F(RightDoubleLine, DoubleClickDropsOneVertexAndRefusesOnlyAPointLayer) {
    click(100, 100);
    buddy->ClearEvents();
    EXPECT_FALSE(doubleClick(100, 100));
    EXPECT_TRUE(buddy->Events().empty());
    EXPECT_TRUE(nothingShown());

    TLFeatureLayer* wells = addLayer("wells", TLLayer::PointLayer, "EPSG:32631");
    click(100, 100);
    click(300, 100);
    edit(wells);
    // The layer is taken anew by a move only.
    move(300, 100);
    buddy->ClearEvents();
    EXPECT_FALSE(doubleClick(300, 100));
    EXPECT_TRUE(buddy->Events().empty());
    EXPECT_EQ(wells->GetDatasource()->GetFeatureCount(), 0);

    TLFeatureLayer* parcels = addLayer("parcels", TLLayer::PolygonLayer, "EPSG:32631");
    edit(parcels);
    move(300, 100);
    EXPECT_TRUE(doubleClick(300, 100));
    EXPECT_EQ(parcels->GetDatasource()->GetFeatureCount(), 2);
    EXPECT_EQ(roads->GetDatasource()->GetFeatureCount(), 0);
}

// Without a move the edit layer stays the one the command took last.
TEST_F(RightDoubleLine, ALayerSwitchedWithoutAMoveIsNotSeen) {
    click(100, 100);
    click(300, 100);
    TLFeatureLayer* wells = addLayer("wells", TLLayer::PointLayer, "EPSG:32631");
    edit(wells);
    EXPECT_TRUE(doubleClick(300, 100));
    expectPaths(committedPair(), {{{100, 100}, {300, 100}}, {{100, 110}, {300, 110}}});
    EXPECT_EQ(wells->GetDatasource()->GetFeatureCount(), 0);
}

}  // namespace
}  // namespace TMObjects
