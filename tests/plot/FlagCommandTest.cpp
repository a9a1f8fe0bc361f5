#include "PlotSession.h"

namespace TMObjects {
namespace {

const char* const kTypeMenu =
    "Please enter the flag type [Pennant (1) / square flag (2) / float flag (3) / end (E)]:";
const char* const kPoint = "Please enter a point [end (E)]:";
const char* const kDrawn = "Command:Drawing Flag";
const char* const kNotPolygon =
    "The current layer is not a polygon layer. Please select the polygon layer editor!";

class FlagCommand : public PlotSession {
protected:
    void SetUp() override {
        PlotSession::SetUp();
        start("TLCmdDigitizeFlag");
    }
};

TEST_F(FlagCommand, AnnouncesItselfAndRefusesOtherLayers) {
    dispatcher->Deactivate();
    buddy->ClearEvents();
    pick("TLCmdDigitizeFlag");
    EXPECT_EQ(buddy->RegisteredName().toStdString(), "DigitizeFlag");
    EXPECT_EQ(messages(), (Texts{"The current input layer is:*******polygon*******", kDrawn}));
    EXPECT_EQ(prompts(), Texts{kTypeMenu});
    ASSERT_EQ(view->RubberBands().size(), 1u);
    EXPECT_EQ(band()->GetType(), TLRubberBand::PolygonBand);

    TLFeatureLayer* roads = addLayer("roads", TLLayer::LineLayer);
    edit(roads);
    dispatcher->Deactivate();
    buddy->ClearEvents();
    pick("TLCmdDigitizeFlag");
    EXPECT_EQ(prompts(), Texts{"Command:"});
    EXPECT_EQ(messages(), Texts{kNotPolygon});
    buddy->ClearEvents();
    EXPECT_FALSE(type("1"));
    EXPECT_EQ(messages(), Texts{kNotPolygon});
    EXPECT_EQ(prompts(), Texts{"Layer error"});
    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_EQ(messages(), Texts{"The current layer is not a Polygon layer. Please select the "
                                "Polygon layer editor!"});
    EXPECT_EQ(roads->GetDatasource()->GetFeatureCount(), 0);

    dispatcher->Deactivate();
    EXPECT_EQ(prompt(), "");
    EXPECT_TRUE(view->RubberBands().empty());
}

TEST_F(FlagCommand, TypedPennant) {
    type("1");
    type("100,200");
    EXPECT_EQ(bandPoints(), (Path{{100, 200}}));
    type("200,100");
    expectRing(committed(),
               {{100, 100}, {100, 200}, {200, 150}, {105, 150}, {105, 100}, {100, 100}});
    EXPECT_EQ(prompts(), (Texts{kPoint, kPoint, kTypeMenu}));
    EXPECT_EQ(messages(), Texts{kDrawn});
    EXPECT_EQ(undoSteps(), 1);
    EXPECT_EQ(undoLabel(), "add feature");
    EXPECT_TRUE(band()->Parts().empty());
}

TEST_F(FlagCommand, ClickedSquareFlagIsTheOneTheLastMoveShowed) {
    type("2");
    click(100, 200);
    EXPECT_EQ(prompt(), kPoint);
    move(200, 100);
    const Ring square{{100, 100}, {100, 200}, {200, 200}, {200, 150},
                      {105, 150}, {105, 100}, {100, 100}};
    expectPath(bandPoints(), square);
    // The press confirms what the move drew; it computes nothing itself.
    press(250, 50);
    expectRing(committed(), square);
    EXPECT_EQ(prompt(), kTypeMenu);
}

TEST_F(FlagCommand, FloatFlagWavesAndFliesLeft) {
    type("3");
    click(300, 300);
    move(100, 100);
    press(100, 100);
    const Ring ring = committed();
    ASSERT_EQ(ring.size(), 203u);
    EXPECT_EQ(ring[0], XY(300, 100));
    EXPECT_EQ(ring[1], XY(300, 300));
    EXPECT_EQ(ring[101], XY(100, 300));
    EXPECT_EQ(ring[102], XY(100, 200));
    // Half way the waving edges cross their straight lines.
    EXPECT_NEAR(ring[51].first, 200, 1e-9);
    EXPECT_NEAR(ring[51].second, 300, 1e-9);
    EXPECT_NEAR(ring[152].first, 200, 1e-9);
    EXPECT_NEAR(ring[152].second, 200, 1e-9);
    // The pole's inner side stands where the lower edge meets it, left of the pole.
    EXPECT_LT(ring[200].first, 300);
    EXPECT_EQ(ring[200].first, ring[199].first);
    EXPECT_EQ(ring[201], XY(ring[200].first, 100));
    EXPECT_EQ(ring[202], XY(300, 100));
}

TEST_F(FlagCommand, ALevelSecondPointGivesNoFlagAndIsLost) {
    type("1");
    click(100, 100);
    move(200, 100);
    EXPECT_TRUE(band()->Parts().empty() || bandPoints().empty());
    click(200, 100);
    EXPECT_EQ(featureCount(), 0);
    EXPECT_EQ(undoSteps(), 0);
    EXPECT_EQ(prompt(), kTypeMenu);
    // Back at the type menu.
    buddy->ClearEvents();
    type("x");
    EXPECT_EQ(messages(), Texts{"Point coordinate or command input error, please re-enter!"});
}

TEST_F(FlagCommand, EachFlagStartsAgainAsAPennant) {
    type("2");
    type("100,200");
    type("200,100");
    EXPECT_EQ(featureCount(), 1);
    click(300, 300);
    move(400, 200);
    press(400, 200);
    const std::vector<int> ids = symbols->GetDatasource()->GetIds();
    ASSERT_EQ(ids.size(), 2u);
    expectRing(partsOf(symbols, ids[1]).at(0),
               {{300, 200}, {300, 300}, {400, 250}, {305, 250}, {305, 200}, {300, 200}});
}

TEST_F(FlagCommand, TypedInputErrorsAndEnds) {
    EXPECT_FALSE(type(""));
    type("4");
    EXPECT_EQ(messages(), Texts{"Point coordinate or command input error, please re-enter!"});
    EXPECT_EQ(prompts(), (Texts{kTypeMenu, kTypeMenu}));

    buddy->ClearEvents();
    type("3");
    type("here");
    type("100,100");
    type("1");  // no point
    EXPECT_EQ(messages(), (Texts{"Input point error!", "Input point error!"}));
    EXPECT_EQ(prompts(), (Texts{kPoint, kPoint, kPoint, kPoint}));
    // An end drops the first point.
    type("e");
    EXPECT_EQ(prompt(), kTypeMenu);
    EXPECT_TRUE(band()->Parts().empty() || bandPoints().empty());
    EXPECT_EQ(featureCount(), 0);

    // A clicked first point makes a typed number a bad point.
    buddy->ClearEvents();
    click(100, 100);
    type("1");
    EXPECT_EQ(messages(), Texts{"Input point error!"});
    type("E");
    EXPECT_EQ(featureCount(), 0);
}

TEST_F(FlagCommand, ADoubleClickWritesWhatTheBandShows) {
    type("2");
    click(100, 200);
    move(200, 100);
    EXPECT_TRUE(doubleClick(200, 100));
    EXPECT_EQ(committed().size(), 7u);
    EXPECT_EQ(messages(), Texts{kDrawn});
    // Back at the type menu: the next click is a first point again.
    click(300, 300);
    EXPECT_EQ(prompt(), kPoint);
    EXPECT_EQ(featureCount(), 1);
}

}  // namespace
}  // namespace TMObjects
