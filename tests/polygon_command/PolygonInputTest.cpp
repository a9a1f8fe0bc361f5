#include "PolygonSession.h"
#include "PolygonTexts.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLSnapTool.h"

namespace TMObjects {
namespace {

using namespace polygon_texts;

class PolygonInput : public PolygonSession {};

TEST_F(PolygonInput, ActivatesWithAFilledShapeBandAndAnOutlinedGuide) {
    EXPECT_EQ(buddy->RegisteredName().toStdString(), "DigitizePolygon");
    EXPECT_EQ(messages(), (Texts{kInputLayer, kCommand}));
    EXPECT_EQ(prompt(), kFirst);
    EXPECT_EQ(buddy->PolygonPartMode(), -1) << "the tool hands the part mode back";

    ASSERT_EQ(view->RubberBands().size(), 3u);
    EXPECT_EQ(mainBand()->GetType(), TLRubberBand::PolygonBand);
    EXPECT_EQ(guideBand()->GetType(), TLRubberBand::PolygonBand);
    EXPECT_EQ(assistBand()->GetType(), TLRubberBand::LineBand);
    for (TLRubberBand* band : {mainBand(), guideBand()}) {
        EXPECT_EQ(band->Pen().style, TLPen::SolidLine);
        EXPECT_EQ(band->Pen().color.GetColor(), TLColor(255, 0, 0).GetColor());
    }
    EXPECT_EQ(mainBand()->Brush().style, TLBrush::SolidPattern);
    EXPECT_EQ(mainBand()->Brush().color.GetColor(), TLColor(255, 0, 0, 50).GetColor());
    EXPECT_EQ(guideBand()->Brush().style, TLBrush::NoBrush);

    dispatcher->Deactivate();
    EXPECT_TRUE(view->RubberBands().empty());
    EXPECT_EQ(prompt(), "");
    EXPECT_EQ(buddy->RegisteredTool(), nullptr);
}

TEST_F(PolygonInput, ClicksAndADoubleClickWriteOneClosedRing) {
    buddy->ClearEvents();
    clickAll({{100, 100}, {300, 100}, {300, 250}});
    EXPECT_EQ(prompts(), (Texts{kCount1, kCount2, kCount3}));
    // The press of the double click adds the last vertex; the double click adds none.
    click(100, 250);
    EXPECT_TRUE(doubleClick(100, 250));

    expectRings(committed(), {{{100, 100}, {300, 100}, {300, 250}, {100, 250}, {100, 100}}});
    EXPECT_TRUE(committedGeometry()->IsValid());
    EXPECT_DOUBLE_EQ(committedGeometry()->GetArea(), 200.0 * 150.0);
    EXPECT_EQ(messages(), Texts{kCommand});
    EXPECT_EQ(buddy->Events().back().text.toStdString(), kFirst);
    EXPECT_EQ(map->editor()->UndoCount(), 1);
    EXPECT_EQ(map->editor()->UndoLabel().toStdString(), "add feature");
    EXPECT_FALSE(map->editor()->IsOperationOpen());
    EXPECT_TRUE(mainBand()->Parts().empty());
    EXPECT_TRUE(guideBand()->Parts().empty());

    // The tool is ready for the next polygon at once, and one undo takes one polygon back.
    clickAll({{400, 400}, {500, 400}, {500, 500}});
    type("E");
    EXPECT_EQ(featureCount(), 2);
    ASSERT_TRUE(map->editor()->Undo());
    EXPECT_EQ(featureCount(), 1);
}

TEST_F(PolygonInput, ADoubleClickAfterTwoPointsDropsTheShapeWithoutAWord) {
    clickAll({{100, 100}, {300, 100}});
    buddy->ClearEvents();
    EXPECT_TRUE(doubleClick(300, 100));
    EXPECT_EQ(messages(), Texts{});
    EXPECT_EQ(prompts(), Texts{kFirst});
    EXPECT_EQ(featureCount(), 0);
    EXPECT_EQ(map->editor()->UndoCount(), 0) << "no step, not even an empty one";
    EXPECT_FALSE(map->editor()->IsOperationOpen());
    EXPECT_TRUE(mainBand()->Parts().empty());

    click(50, 50);
    EXPECT_EQ(prompt(), kCount1) << "the next click starts a new shape";
}

TEST_F(PolygonInput, TheGuideShowsTheTriangleBackToTheRingsFirstVertex) {
    click(100, 100);
    move(200, 200);
    expectRing(pointsOf(guideBand()), {{100, 100}, {200, 200}, {100, 100}, {100, 100}});
    click(300, 100);
    move(450, 150);
    expectRing(pointsOf(guideBand()), {{300, 100}, {450, 150}, {100, 100}, {300, 100}});
    EXPECT_EQ(guideBand()->GetType(), TLRubberBand::PolygonBand);
    EXPECT_EQ(pointsOf(assistBand()), Ring()) << "18 degrees off the edge: no dashed guide";

    // Square to the last edge the dashed guide shows, as it does for the line.
    move(300, 180);
    expectRing(pointsOf(assistBand()), {{300, 100}, {300, 180}});
    EXPECT_EQ(assistBand()->Pen().style, TLPen::DashLine);
    click(300, 180);
    EXPECT_EQ(pointsOf(assistBand()), Ring()) << "a press takes it away";
    EXPECT_EQ(pointsOf(guideBand()), Ring()) << "a click clears the guide until the next move";
}

TEST_F(PolygonInput, ARightClickOnTheFirstVertexStartsAHoleOfTheSameFeature) {
    buddy->SetPolygonPartMode(0);
    clickAll({{100, 100}, {500, 100}, {500, 500}, {100, 500}});
    buddy->ClearEvents();
    click(100, 100, TLRightButton);
    EXPECT_EQ(prompts(), Texts{kFirst});
    move(250, 250);
    EXPECT_EQ(pointsOf(guideBand()), Ring()) << "no guide between rings";

    clickAll({{200, 200}, {200, 300}, {300, 300}});
    EXPECT_EQ(prompts(), (Texts{kFirst, kCount1, kCount2, kCount3})) << "the count restarts";
    // The ring left behind was closed when the hole began.
    EXPECT_EQ(mainBand()->GetGeometryCount(), 2);
    expectRing(pointsOf(mainBand()), {{100, 100},
                                      {500, 100},
                                      {500, 500},
                                      {100, 500},
                                      {100, 100},
                                      {200, 200},
                                      {200, 300},
                                      {300, 300}});
    click(300, 200);
    EXPECT_TRUE(doubleClick(300, 200));

    expectRings(committed(), {{{100, 100}, {500, 100}, {500, 500}, {100, 500}, {100, 100}},
                              {{200, 200}, {200, 300}, {300, 300}, {300, 200}, {200, 200}}});
    // GEOS takes the stored shape for a valid polygon with one hole.
    EXPECT_TRUE(committedGeometry()->IsValid());
    EXPECT_DOUBLE_EQ(committedGeometry()->GetArea(), 400.0 * 400.0 - 100.0 * 100.0);
    EXPECT_EQ(map->editor()->UndoCount(), 1);
    EXPECT_EQ(buddy->PolygonPartMode(), -1) << "the commit hands the part mode back";
}

TEST_F(PolygonInput, ASecondRingIsWrittenAsDrawnEvenWhereGeosCallsTheShapeInvalid) {
    buddy->SetPolygonPartMode(0);
    clickAll({{100, 100}, {300, 100}, {300, 300}, {100, 300}});
    click(100, 100, TLRightButton);
    clickAll({{200, 200}, {400, 200}, {400, 400}});
    type("E");
    expectRings(committed(), {{{100, 100}, {300, 100}, {300, 300}, {100, 300}, {100, 100}},
                              {{200, 200}, {400, 200}, {400, 400}, {200, 200}}});
    EXPECT_FALSE(committedGeometry()->IsValid()) << "the rings cross";
}

TEST_F(PolygonInput, ARightClickAnywhereButOnTheFirstVertexOrInAnotherModeDoesNothing) {
    clickAll({{100, 100}, {300, 100}, {300, 300}});
    buddy->ClearEvents();
    click(100, 100, TLRightButton);  // after activation the part mode is -1
    buddy->SetPolygonPartMode(0);
    click(101, 100, TLRightButton);
    click(300, 300, TLRightButton);  // the last vertex is not the first
    buddy->SetPolygonPartMode(2);
    click(100, 100, TLRightButton);
    EXPECT_EQ(prompts(), Texts{});

    click(100, 300);
    type("E");
    expectRings(committed(), {{{100, 100}, {300, 100}, {300, 300}, {100, 300}, {100, 100}}});
}

TEST_F(PolygonInput, ARightClickNearTheFirstVertexSnapsOntoIt) {
    TLSnapEnvironment::Instance()->setEnabled(true);
    buddy->SetPolygonPartMode(0);
    clickAll({{100, 100}, {300, 100}, {300, 300}});
    // The shape drawn so far is a snap target, so the press lands on the first vertex exactly.
    click(104, 103, TLRightButton);
    EXPECT_EQ(prompt(), kFirst);
    clickAll({{150, 120}, {250, 120}, {250, 220}});
    type("E");
    const Rings rings = committed();
    ASSERT_EQ(rings.size(), 2u);
    expectRing(rings[0], {{100, 100}, {300, 100}, {300, 300}, {100, 100}});
}

TEST_F(PolygonInput, WrongLayerIsRefusedByPressAndTypedLineButNotByTheDoubleClick) {
    dispatcher->Deactivate();
    TLFeatureLayer* roads = addLayer("roads", TLLayer::LineLayer);
    edit(roads);
    buddy->ClearEvents();
    pick("TLCmdDigitizePolygon");
    EXPECT_EQ(prompts(), Texts{"Command:"});
    EXPECT_EQ(messages(), Texts{kWrongLayer});
    EXPECT_EQ(buddy->RegisteredName().toStdString(), "DigitizePolygon") << "it stays registered";

    // A press says both lines in the history and leaves the prompt.
    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 10, 10));
    EXPECT_EQ(messages(), (Texts{kWrongLayer, kLayerError}));
    EXPECT_EQ(prompts(), Texts{});
    // A typed line puts "Layer error" on the prompt.
    buddy->ClearEvents();
    EXPECT_FALSE(type("1,2"));
    EXPECT_EQ(messages(), Texts{kWrongLayer});
    EXPECT_EQ(prompts(), Texts{kLayerError});
    // The double click leaves the layer's kind to the commit, which refuses without a word.
    buddy->ClearEvents();
    EXPECT_TRUE(dispatcher->DoubleClick(TLLeftButton, 10, 10));
    EXPECT_TRUE(buddy->Events().empty());
    EXPECT_FALSE(dispatcher->MouseMove(TLNoButton, 10, 10));
    EXPECT_EQ(roads->GetDatasource()->GetFeatureCount(), 0);
    EXPECT_EQ(map->editor()->UndoCount(), 0);
}

TEST_F(PolygonInput, OnALayerThatIsNotEditableAPressIsTakenAndDoesNothing) {
    parcels->SetEditable(false);
    buddy->ClearEvents();
    EXPECT_TRUE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_FALSE(dispatcher->MouseUp(TLLeftButton, 100, 100));
    EXPECT_FALSE(dispatcher->DoubleClick(TLLeftButton, 100, 100));
    EXPECT_FALSE(type("100,100"));
    EXPECT_TRUE(buddy->Events().empty());
    EXPECT_TRUE(mainBand()->Parts().empty());

    parcels->SetEditable(true);
    EXPECT_TRUE(dispatcher->MouseUp(TLLeftButton, 100, 100)) << "the release answers the guard";
}

TEST_F(PolygonInput, TheLayersObserversHearOfEachFinishedShape) {
    struct Observer : TLLayerObserver {
        std::vector<std::pair<TLLayer*, int>> heard;
        void OnLayerNotify(TLLayer* layer, int hint) override { heard.emplace_back(layer, hint); }
    } observer;
    parcels->AddObserver(&observer);

    clickAll({{100, 100}, {300, 100}});
    doubleClick(300, 100);
    EXPECT_TRUE(observer.heard.empty()) << "a dropped shape tells nobody";

    // The edit buffer tells of the new feature, then the command that it is done.
    clickAll({{100, 100}, {300, 100}, {300, 300}});
    type("E");
    const std::pair<TLLayer*, int> changed{parcels, TLFeatureLayer::HintFeaturesChanged};
    EXPECT_EQ(observer.heard, (std::vector<std::pair<TLLayer*, int>>{changed, changed}));

    // A single vertex makes no polygon: nothing is written, yet the command is done.
    observer.heard.clear();
    click(500, 500);
    type("E");
    EXPECT_EQ(observer.heard, (std::vector<std::pair<TLLayer*, int>>{changed}));
    EXPECT_EQ(featureCount(), 1);
    parcels->RemoveObserver(&observer);
}

}  // namespace
}  // namespace TMObjects
