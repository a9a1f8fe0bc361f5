#include <cmath>

#include "PlotSession.h"
#include "tlgeo/TLGeoPolygon.h"

namespace TMObjects {
namespace {

const char* const kTypeMenu =
    "Please enter arrow type [simple arrow (1) / swallow tail arrow (2) / wide tail arrow (3) / "
    "wide swallow tail arrow (4) / end (E)]:";
const char* const kPoint = "Please enter a point [end (E)]:";
const char* const kTooClose = "The distance between the two points is too close!";
const char* const kCommandError = "Point coordinate or command input error, please re-enter!";

class ArrowCommand : public PlotSession {
protected:
    void SetUp() override {
        PlotSession::SetUp();
        start("TLCmdDigitizeArrow");
    }
};

TEST_F(ArrowCommand, AnnouncesItselfAndRefusesOtherLayers) {
    dispatcher->Deactivate();
    buddy->ClearEvents();
    pick("TLCmdDigitizeArrow");
    EXPECT_EQ(buddy->RegisteredName().toStdString(), "DigitizeArrow");
    EXPECT_EQ(messages(),
              (Texts{"The current input layer is:*******polygon*******", "Command:Drawing Arrow"}));
    EXPECT_EQ(prompts(), Texts{kTypeMenu});
    ASSERT_EQ(view->RubberBands().size(), 1u);
    EXPECT_EQ(band()->GetType(), TLRubberBand::PolygonBand);
    EXPECT_EQ(band()->Brush().color.GetColor(), TLColor(255, 0, 0, 50).GetColor());

    TLFeatureLayer* roads = addLayer("roads", TLLayer::LineLayer);
    edit(roads);
    dispatcher->Deactivate();
    buddy->ClearEvents();
    pick("TLCmdDigitizeArrow");
    EXPECT_EQ(prompts(), Texts{"Command:"});
    EXPECT_EQ(messages(), Texts{"The current layer is not a polygon layer. Please select the "
                                "polygon layer editor!"});
    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_EQ(messages(), Texts{"The current layer is not a Polygon layer. Please select the "
                                "Polygon layer editor!"});
    EXPECT_EQ(prompts(), Texts{"Layer error"});
    buddy->ClearEvents();
    roads->SetEditable(false);
    EXPECT_FALSE(type("1"));
    EXPECT_EQ(messages(), Texts{"The current layer is not a line layer. Please select the line "
                                "layer editor!"});
    EXPECT_EQ(prompts(), Texts{"Layer error"});

    dispatcher->Deactivate();
    EXPECT_EQ(prompt(), "");
    EXPECT_EQ(buddy->RegisteredTool(), nullptr);
    EXPECT_TRUE(view->RubberBands().empty());
}

TEST_F(ArrowCommand, TypedSimpleArrowIsClosedAtItsTail) {
    EXPECT_TRUE(type("1"));
    EXPECT_TRUE(type("100,100"));
    EXPECT_TRUE(type("300,100"));
    type("E");
    // Length 200: head 20 back and 20 wide, neck and tail 14 wide.
    expectRing(committed(), {{100, 114},
                             {280, 114},
                             {280, 114},
                             {280, 120},
                             {300, 100},
                             {280, 80},
                             {280, 86},
                             {280, 86},
                             {100, 86},
                             {100, 114}});
    EXPECT_EQ(prompts(), (Texts{kPoint, kPoint, kPoint, kTypeMenu}));
    EXPECT_TRUE(messages().empty());
    EXPECT_EQ(undoSteps(), 1);
    EXPECT_EQ(undoLabel(), "add feature");
    EXPECT_TRUE(band()->Parts().empty());
}

TEST_F(ArrowCommand, SwallowTailFollowsThePointerAndADoubleClickWritesIt) {
    type("2");
    click(100, 300);
    move(300, 300);
    const Ring swallow{{114, 300}, {100, 314}, {280, 314}, {280, 314}, {280, 324}, {300, 300},
                       {280, 276}, {280, 286}, {280, 286}, {100, 286}, {114, 300}};
    expectPath(bandPoints(), swallow);
    press(300, 300);
    EXPECT_TRUE(doubleClick(300, 300));
    expectRing(committed(), swallow);
    EXPECT_EQ(prompt(), kTypeMenu);
    EXPECT_TRUE(band()->Parts().empty());
}

TEST_F(ArrowCommand, TheSelectionOfTheLayerIsLeftAsItStands) {
    TLRefPtr<TLGeoPolygon> square(new TLGeoPolygon);
    for (const XY& p : Ring{{0, 0}, {10, 0}, {10, 10}, {0, 0}}) square->AddXY(p.first, p.second);
    square->EndEntity();
    TLFeature feature;
    feature.SetGeometry(square);
    const int id = symbols->GetDatasource()->Insert(feature);
    symbols->AddSelect(id);

    type("1");
    click(100, 300);
    click(300, 300);
    type("e");
    EXPECT_EQ(featureCount(), 2);
    EXPECT_EQ(symbols->SelectedFeatureCount(), 1);
}

TEST_F(ArrowCommand, AWideArrowShowsBeforeItsThirdPointAndIsWrittenThroughThree) {
    type("3");
    click(100, 200);
    move(100, 100);
    // The apex of the equilateral triangle on the two points stands in for the third.
    const Path preview = bandPoints();
    ASSERT_EQ(preview.size(), 10u);
    EXPECT_NEAR(preview[4].first, 100 + 50 * std::sqrt(3.0), 1e-9);
    EXPECT_NEAR(preview[4].second, 150, 1e-9);
    EXPECT_EQ(preview[0], XY(100, 200));
    EXPECT_EQ(preview[8], XY(100, 100));

    click(100, 100);
    click(300, 150);
    type("E");
    // Spine 200 from (100, 150): head 30 back and 12 wide, neck 22.5 back and 4.5 wide.
    expectRing(committed(), {{100, 200},
                             {277.5, 154.5},
                             {277.5, 154.5},
                             {270, 162},
                             {300, 150},
                             {270, 138},
                             {277.5, 145.5},
                             {277.5, 145.5},
                             {100, 100},
                             {100, 200}});
}

TEST_F(ArrowCommand, TypedWideSwallowArrowHasItsNotchOnTheSpine) {
    type("4");
    type("100,200");
    type("100,100");
    type("300,150");
    type("e");
    expectRing(committed(), {{100, 200},
                             {277.5, 154.5},
                             {277.5, 154.5},
                             {270, 162},
                             {300, 150},
                             {270, 138},
                             {277.5, 145.5},
                             {277.5, 145.5},
                             {100, 100},
                             {104.5, 150},
                             {100, 200}});
}

TEST_F(ArrowCommand, ABentArrowIsWrittenSmoothly) {
    type("1");
    clickAll({{100, 100}, {200, 150}, {300, 100}});
    type("E");
    const Ring ring = committed();
    // Two Bezier edges of 101 points round the head, closed. Length 2 sqrt(12500): the tail and
    // the neck are 0.07 of it wide, 7 and 14 along the axes on each leg, and the body 17.5 upright
    // at the bend; the head is 22.36 back and as wide.
    ASSERT_EQ(ring.size(), 101u + 5 + 101 + 1);
    const auto near = [](const XY& actual, const XY& expected) {
        EXPECT_NEAR(actual.first, expected.first, 1e-9);
        EXPECT_NEAR(actual.second, expected.second, 1e-9);
    };
    near(ring[0], {93, 114});
    near(ring[100], {287, 124});
    near(ring[101], {287, 124});
    near(ring[102], {290, 130});
    near(ring[103], {300, 100});
    near(ring[104], {270, 90});
    near(ring[105], {273, 96});
    near(ring[206], {107, 86});
    near(ring[207], {93, 114});
    // Half way each edge is the quadratic Bezier's (neck + 2 bend + tail) / 4.
    near(ring[50], {(287 + 2 * 200 + 93) / 4.0, (124 + 2 * 167.5 + 114) / 4.0});
    near(ring[156], {(273 + 2 * 200 + 107) / 4.0, (96 + 2 * 132.5 + 86) / 4.0});
}

TEST_F(ArrowCommand, TooFewPointsWriteNothingAndStartOver) {
    type("1");
    click(100, 100);
    move(200, 100);
    type("E");
    EXPECT_EQ(featureCount(), 0);
    EXPECT_EQ(undoSteps(), 0);
    EXPECT_TRUE(band()->Parts().empty());
    EXPECT_EQ(prompt(), kTypeMenu);
    // Back at the type menu, but the first point is still remembered: a click on it is too close.
    EXPECT_TRUE(type("3"));
    EXPECT_EQ(prompt(), kPoint);
    click(100, 100);
    EXPECT_EQ(messages(), Texts{kTooClose});

    // A wide arrow needs three points.
    type("3");
    click(100, 100);
    click(100, 200);
    move(300, 300);
    type("E");
    EXPECT_EQ(featureCount(), 0);
    EXPECT_EQ(prompts().back(), kTypeMenu);
}

TEST_F(ArrowCommand, AClickOnTheFirstPointThrowsTheSymbolAwayButOnThePreviousItDoesNot) {
    type("2");
    click(100, 100);
    click(300, 100);
    click(300, 100);
    EXPECT_TRUE(messages().empty());
    click(100, 100);
    EXPECT_EQ(messages(), Texts{kTooClose});
    EXPECT_EQ(prompt(), kTypeMenu);
    EXPECT_TRUE(band()->Parts().empty());
    type("E");
    EXPECT_EQ(featureCount(), 0);

    // The repeated point adds nothing to the outline.
    buddy->ClearEvents();
    type("1");
    click(100, 100);
    click(300, 100);
    click(300, 100);
    type("E");
    EXPECT_EQ(committed().size(), 10u);
}

TEST_F(ArrowCommand, TypedInputErrors) {
    EXPECT_FALSE(type(""));
    type("5");
    type("simple");
    EXPECT_EQ(messages(), (Texts{kCommandError, kCommandError}));
    EXPECT_EQ(prompts(), (Texts{kTypeMenu, kTypeMenu, kTypeMenu}));

    buddy->ClearEvents();
    type("1");
    EXPECT_TRUE(type("100,100"));
    // The first point again is refused without a word; "2" is no point.
    EXPECT_FALSE(type("100,100"));
    type("2");
    EXPECT_EQ(messages(), Texts{"Input point error!"});
    EXPECT_EQ(prompts(), (Texts{kPoint, kPoint, kPoint, kPoint}));
    type("200,100");
    move(400, 400);
    type("E");
    EXPECT_EQ(committed().size(), 10u);
}

TEST_F(ArrowCommand, TheEndTestsThePointerAgainstTheFirstPoint) {
    // Typed points with the pointer resting on the first of them.
    type("1");
    type("100,100");
    type("300,100");
    move(100, 100);
    type("E");
    EXPECT_EQ(messages(), Texts{kTooClose});
    EXPECT_EQ(prompt(), kTypeMenu);
    EXPECT_EQ(featureCount(), 0);
    // The first point outlives the reset: an end from the type menu measures against it too.
    buddy->ClearEvents();
    type("e");
    EXPECT_EQ(messages(), Texts{kTooClose});
}

TEST_F(ArrowCommand, AClickBeforeAnyTypeDrawsASimpleArrowAndTakesTextAsPoints) {
    click(100, 100);
    EXPECT_EQ(prompt(), kPoint);
    type("2");
    EXPECT_EQ(messages(), Texts{"Input point error!"});
    type("300,100");
    move(400, 400);
    type("E");
    EXPECT_EQ(committed().size(), 10u);
}

TEST_F(ArrowCommand, ARightClickDoesNothing) {
    type("1");
    EXPECT_TRUE(dispatcher->MouseDown(TLRightButton, 100, 100));
    move(300, 300);
    EXPECT_TRUE(band()->Parts().empty());
    EXPECT_EQ(prompt(), kPoint);
}

}  // namespace
}  // namespace TMObjects
