#include <cmath>

#include "DoubleLineSession.h"
#include "tlmap/TLEditor.h"

namespace TMObjects {
namespace {

const char* const kWidth = "Please input width(m):";
const char* const kGoOn = "Input width(m)/Give up(U)/Finish(E):";
const char* const kDrawn = "Command:Drawing Leftdoubleline";
const double kRoot2 = std::sqrt(2.0);

class LeftDoubleLine : public DoubleLineSession {
protected:
    void SetUp() override {
        DoubleLineSession::SetUp();
        start("TLCmdDigitizeLeftDoubleLine");
    }

    // The committed pair where the computed line turns onto a vertical leg. The corner's y is
    // read off the vertical leg's guarded slope, 1e8 or so, which magnifies the rounding of x to
    // some 1e-6.
    void expectPairWithSteepCorner(const Path& clicked, const Path& computed) {
        const Paths pair = committedPair();
        ASSERT_EQ(pair.size(), 2u);
        EXPECT_EQ(pair[0], clicked);
        ASSERT_EQ(pair[1].size(), 3u);
        expectPath({pair[1][0], pair[1][2]}, {computed[0], computed[2]});
        EXPECT_NEAR(pair[1][1].first, computed[1].first, 1e-9);
        EXPECT_NEAR(pair[1][1].second, computed[1].second, 1e-5);
    }
};

// East 200, then north-east: at width 10 the computed line runs 10 south of the first leg, and
// its corner is the mitre, 10 tan(22.5 deg) = 10 (sqrt 2 - 1) past the clicked corner.
TEST_F(LeftDoubleLine, MitredCornerOnTheRightFinishedByTypedE) {
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 500));
    dispatcher->MouseUp(TLLeftButton, 100, 500);
    EXPECT_EQ(shown(0), (Path{{100, 100}}));
    EXPECT_TRUE(shown(1).empty());

    // The preview of the first leg: its start and end offset to the right.
    move(300, 100);
    EXPECT_EQ(shown(2), (Path{{100, 100}, {300, 100}}));
    expectPath(shown(3), {{100, 90}, {300, 90}});

    move(300, 100);
    EXPECT_TRUE(dispatcher->MouseDown(TLLeftButton, 300, 500)) << "the second vertex";
    expectPath(shown(1), {{100, 90}});

    const XY corner{300 + 10 * (kRoot2 - 1), 90};
    const XY end{400 + 5 * kRoot2, 200 - 5 * kRoot2};
    move(400, 200);
    EXPECT_EQ(shown(2), (Path{{300, 100}, {400, 200}}));
    expectPath(shown(3), {{100, 90}, corner, end});

    move(400, 200);
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 400, 400)) << "the third vertex";
    expectPath(shown(1), {{100, 90}, corner});
    EXPECT_EQ(featureCount(), 0);

    EXPECT_TRUE(type("e"));
    expectPaths(committedPair(), {{{100, 100}, {300, 100}, {400, 200}}, {{100, 90}, corner, end}});
    EXPECT_EQ(prompts(), (Texts{kWidth, kGoOn, kGoOn, kWidth}));
    EXPECT_EQ(messages(), Texts{kDrawn});
    EXPECT_EQ(undoSteps(), 1);
    EXPECT_EQ(lastLabel(), "add feature");
    EXPECT_TRUE(nothingShown());

    // Both lines are one step.
    ASSERT_TRUE(map->editor()->Undo());
    EXPECT_EQ(featureCount(), 0);
}

// A width typed between vertices offsets the next leg only; the corner joins the old offset line
// to the new one. A width typed after the last vertex sets the end vertex of "E".
TEST_F(LeftDoubleLine, WidthsChangeFromTheNextLegOn) {
    click(100, 100);
    click(300, 100);
    EXPECT_TRUE(type("20"));
    click(400, 200);
    EXPECT_TRUE(type("5"));
    EXPECT_TRUE(type("E"));

    // The leg at 20 runs along y = x - 200 - 20 sqrt 2 and meets y = 90 there.
    expectPaths(committedPair(),
                {{{100, 100}, {300, 100}, {400, 200}},
                 {{100, 90}, {290 + 20 * kRoot2, 90}, {400 + 2.5 * kRoot2, 200 - 2.5 * kRoot2}}});
    EXPECT_EQ(messages(), (Texts{"Width changed to 20 m.", "Width changed to 5 m.", kDrawn}));
    EXPECT_EQ(prompts(), (Texts{kWidth, kGoOn, kGoOn, kGoOn, kGoOn, kWidth}));
}

// A double click ends on the offset that the last click worked out, at the width of that time.
// The vertical leg's slope is kept finite by a divisor of 1e-6 for dx, which puts the corner
// 110 / 1e8 short of the exact 210.
TEST_F(LeftDoubleLine, DoubleClickEndsAtTheWidthOfTheLastClickAndTheWidthCarriesOn) {
    click(100, 100);
    click(200, 100);
    click(200, 200);
    type("5");
    buddy->ClearEvents();
    EXPECT_TRUE(doubleClick(200, 200));

    expectPairWithSteepCorner({{100, 100}, {200, 100}, {200, 200}},
                              {{100, 90}, {210 - 110e-8, 90}, {210, 200}});
    // The width said is the one on record, which the finished pair has set back to 10.
    EXPECT_EQ(messages(), (Texts{kDrawn, "Command: left parallel line, width(m):10"}));
    EXPECT_EQ(prompts(), Texts{kWidth});
    EXPECT_TRUE(nothingShown());

    // The next pair is drawn at 5 all the same.
    click(100, 300);
    click(300, 300);
    type("E");
    const std::vector<int> ids = roads->GetDatasource()->GetIds();
    ASSERT_EQ(ids.size(), 4u);
    expectPaths(partsOf(roads, ids[3]), {{{100, 295}, {300, 295}}});
    EXPECT_EQ(undoSteps(), 2);
}

TEST_F(LeftDoubleLine, ADoubleClickOnTheFirstVertexDropsIt) {
    click(100, 100);
    buddy->ClearEvents();
    EXPECT_FALSE(doubleClick(100, 100));
    EXPECT_TRUE(buddy->Events().empty());
    EXPECT_TRUE(nothingShown());
    EXPECT_EQ(featureCount(), 0);
}

// With no vertex at all the pair is written as it stands: an empty line, and the end vertex of
// the last pair alone. The store refuses the empty one at saving.
TEST_F(LeftDoubleLine, ADoubleClickWithoutAVertexWritesWhatThereIs) {
    EXPECT_TRUE(doubleClick(100, 100));
    EXPECT_EQ(featureCount(), 2);
    EXPECT_EQ(undoSteps(), 1);
    EXPECT_EQ(messages().back(), "Command: left parallel line, width(m):10");
}

// "U" takes the last vertex and its corner back and shows the preview to the pointer again,
// cornered from the last vertex that stays.
TEST_F(LeftDoubleLine, GiveUpTakesTheLastVertexBack) {
    click(100, 100);
    click(300, 100);
    click(400, 200);
    buddy->ClearEvents();
    EXPECT_TRUE(type("U"));
    EXPECT_EQ(prompts(), Texts{kGoOn});
    EXPECT_EQ(shown(0), (Path{{100, 100}, {300, 100}}));
    expectPath(shown(1), {{100, 90}});
    EXPECT_EQ(shown(2), (Path{{300, 100}, {400, 200}}));
    expectPath(shown(3),
               {{100, 90}, {300 + 10 * (kRoot2 - 1), 90}, {400 + 5 * kRoot2, 200 - 5 * kRoot2}});

    // Turned north instead: the corner lies 210 / 2e8 short of x = 310.
    click(300, 300);
    EXPECT_TRUE(type("E"));
    expectPairWithSteepCorner({{100, 100}, {300, 100}, {300, 300}},
                              {{100, 90}, {310 - 105e-8, 90}, {310, 300}});
}

TEST_F(LeftDoubleLine, GiveUpStopsAtTheFirstVertex) {
    click(100, 100);
    click(300, 100);
    EXPECT_TRUE(type("u"));
    EXPECT_EQ(shown(0), (Path{{100, 100}}));
    EXPECT_TRUE(shown(1).empty());
    buddy->ClearEvents();
    EXPECT_FALSE(type("U"));
    EXPECT_TRUE(buddy->Events().empty());
    EXPECT_EQ(shown(0), (Path{{100, 100}}));

    // The line goes on from the first vertex, its offset line in one part.
    click(100, 300);
    click(300, 300);
    EXPECT_EQ(band(1)->GetGeometryCount(), 1);
    type("E");
    expectPaths(committedPair(), {{{100, 100}, {100, 300}, {300, 300}},
                                  {{110, 100}, {110 + 95e-8, 290}, {300, 290}}});
}

// Three vertices in a straight line: the two offset lines are parallel and the corner is not
// finite. It is written as it is, and nothing breaks.
TEST_F(LeftDoubleLine, CollinearVerticesGiveACornerThatIsNotFinite) {
    click(100, 100);
    click(200, 100);
    click(300, 100);
    // The computed line has a corner that is no number there; the host keeps no such shape, so
    // only the clicked line is written.
    EXPECT_TRUE(type("E"));
    EXPECT_EQ(onlyFeatureParts(roads), (Paths{{{100, 100}, {200, 100}, {300, 100}}}));
    EXPECT_TRUE(failures.empty());
}

// Widths are typed in metres. On a map in metres each activation starts at 10; on a map in
// degrees the width held is converted again at each activation, by a degree of the equator.
TEST_F(LeftDoubleLine, WidthsFollowTheUnitOfTheMap) {
    type("5");
    dispatcher->Deactivate();
    start("TLCmdDigitizeLeftDoubleLine");
    click(100, 100);
    click(200, 100);
    type("E");
    expectPaths(committedPair(), {{{100, 100}, {200, 100}}, {{100, 90}, {200, 90}}});

    const double perMetre = 1 / 111319.49079327357;
    dispatcher->Deactivate();
    map->SetSpatialReference(TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:4326"));
    TLFeatureLayer* tracks = addLayer("tracks", TLLayer::LineLayer, "EPSG:4326");
    edit(tracks);
    start("TLCmdDigitizeLeftDoubleLine");
    dispatcher->Deactivate();
    start("TLCmdDigitizeLeftDoubleLine");
    click(100, 100);
    click(200, 100);
    type("E");
    std::vector<int> ids = tracks->GetDatasource()->GetIds();
    ASSERT_EQ(ids.size(), 2u);
    const Path twice = partsOf(tracks, ids[1]).at(0);
    EXPECT_NEAR(twice.at(0).second, 100 - 10 * perMetre * perMetre, 1e-12);

    type("10");
    EXPECT_EQ(messages().back(), "Width changed to 10 m.");
    click(100, 300);
    click(200, 300);
    type("E");
    ids = tracks->GetDatasource()->GetIds();
    ASSERT_EQ(ids.size(), 4u);
    expectPaths(partsOf(tracks, ids[3]),
                {{{100, 300 - 10 * perMetre}, {200, 300 - 10 * perMetre}}});
}

}  // namespace
}  // namespace TMObjects
