#include <proj.h>

#include "LineSession.h"
#include "LineTexts.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLSnapTool.h"

namespace TMObjects {
namespace {

using namespace line_texts;

class LineInput : public LineSession {};

TEST_F(LineInput, ActivatesWithThreeBandsOnALineLayer) {
    EXPECT_EQ(buddy->RegisteredName().toStdString(), "DigitizeLine");
    EXPECT_EQ(messages(), (Texts{"The current input layer is:*******line*******", kCommand}));
    EXPECT_EQ(prompt(), kFirst);

    ASSERT_EQ(view->RubberBands().size(), 3u);
    for (TLRubberBand* band : {mainBand(), guideBand()}) {
        EXPECT_EQ(band->Pen().style, TLPen::SolidLine);
        EXPECT_EQ(band->Pen().color.GetColor(), TLColor(255, 0, 0).GetColor());
        EXPECT_EQ(band->Brush().color.GetColor(), TLColor(255, 0, 0, 50).GetColor());
    }
    EXPECT_EQ(assistBand()->Brush().style, TLBrush::NoBrush) << "the assist band has no look";

    dispatcher->Deactivate();
    EXPECT_TRUE(view->RubberBands().empty());
    EXPECT_EQ(prompt(), "");
    EXPECT_EQ(buddy->RegisteredTool(), nullptr);
}

TEST_F(LineInput, ClicksAndADoubleClickCommitOneLine) {
    buddy->ClearEvents();
    clickAll({{100, 100}, {200, 100}, {200, 200}, {300, 200}});
    EXPECT_EQ(prompts(), (Texts{kCount1, kCount2, kCount3, kCount3}));
    // The double click adds no vertex of its own: its press has added one.
    EXPECT_TRUE(dispatcher->DoubleClick(TLLeftButton, 300, 400));

    expectPaths(committed(), {{{100, 100}, {200, 100}, {200, 200}, {300, 200}}});
    EXPECT_EQ(buddy->Events().back().text.toStdString(), kFirst);
    EXPECT_EQ(messages().back(), kCommand);
    EXPECT_EQ(map->editor()->UndoCount(), 1);
    EXPECT_EQ(map->editor()->LastCommittedLabel().toStdString(), "add feature");
    EXPECT_FALSE(map->editor()->IsOperationOpen());
    EXPECT_TRUE(mainBand()->Parts().empty());

    // The tool is ready for the next line at once.
    clickAll({{10, 10}, {20, 20}});
    type("E");
    EXPECT_EQ(roads->GetDatasource()->GetFeatureCount(), 2);
    ASSERT_TRUE(map->editor()->Undo());
    EXPECT_EQ(roads->GetDatasource()->GetFeatureCount(), 1);
}

TEST_F(LineInput, ARightClickInPartModeZeroStartsAnotherPathOfTheSameFeature) {
    clickAll({{100, 100}, {200, 100}, {200, 200}});
    // After activation the part mode is -1: a right click does nothing.
    click(500, 500, TLRightButton);
    click(300, 200);
    buddy->SetLinePartMode(0);
    buddy->ClearEvents();
    click(500, 500, TLRightButton);
    EXPECT_EQ(prompts(), Texts{kFirst});
    move(400, 400);
    EXPECT_EQ(pointsOf(guideBand()), Path()) << "no guide between parts";

    buddy->ClearEvents();
    clickAll({{400, 400}, {500, 400}, {500, 500}});
    EXPECT_EQ(prompts(), (Texts{kCount1, kCount2, kCount3})) << "the count restarts";
    type("E");
    expectPaths(committed(), {{{100, 100}, {200, 100}, {200, 200}, {300, 200}},
                              {{400, 400}, {500, 400}, {500, 500}}});
    EXPECT_EQ(buddy->LinePartMode(), -1) << "the tool hands the part mode back";
}

TEST_F(LineInput, TheGuideFollowsThePointerAndTheDashedGuideShowsNearSquareTurns) {
    move(50, 50);
    EXPECT_EQ(pointsOf(guideBand()), Path()) << "nothing to guide from yet";
    clickAll({{100, 100}, {200, 100}});
    move(300, 150);
    expectPath(pointsOf(guideBand()), {{200, 100}, {300, 150}});
    EXPECT_EQ(pointsOf(assistBand()), Path()) << "27 degrees off the line: no dashed guide";

    // Square to the last segment, on the pointer's side, as long as the pointer is far.
    move(200, 160);
    expectPath(pointsOf(assistBand()), {{200, 100}, {200, 160}});
    EXPECT_EQ(assistBand()->Pen().style, TLPen::DashLine);
    move(210, 40);  // 80.5 degrees, on the other side
    const double reach = std::hypot(10, 60);
    expectPath(pointsOf(assistBand()), {{200, 100}, {200, 100 - reach}});

    // Any press or typed line takes the dashed guide away, also a right click that does
    // nothing else.
    dispatcher->MouseDown(TLRightButton, 210, 560);
    EXPECT_EQ(pointsOf(assistBand()), Path());
    move(200, 160);
    ASSERT_EQ(pointsOf(assistBand()).size(), 2u);
    type("nonsense");
    EXPECT_EQ(pointsOf(assistBand()), Path());
}

TEST_F(LineInput, TypedPointsOutsideTheViewBringTheViewAlong) {
    buddy->ClearEvents();
    // The first point: the view centres on it at the same scale.
    EXPECT_TRUE(type("5000,4000"));
    EXPECT_EQ(view->GetVisibleRect(), TLRect(4600, 5400, 3700, 4300));
    EXPECT_TRUE(type("5100,4000"));
    EXPECT_EQ(view->GetVisibleRect(), TLRect(4600, 5400, 3700, 4300)) << "inside: no change";
    // Far away: the view zooms to the last segment.
    EXPECT_TRUE(type("9000,7000"));
    EXPECT_EQ(view->GetVisibleRect(), TLRect(5050, 9050, 4000, 7000));
    EXPECT_EQ(prompts(), (Texts{kCount1, kTypedCount2, kCount3}));

    // After a right click in part mode 0 a typed point opens the next part.
    buddy->SetLinePartMode(0);
    dispatcher->MouseDown(TLRightButton, 10, 10);
    type("5000,4100");
    type("5100,4100");
    type("E");
    expectPaths(committed(),
                {{{5000, 4000}, {5100, 4000}, {9000, 7000}}, {{5000, 4100}, {5100, 4100}}});
}

TEST_F(LineInput, ClicksTakeOnlyWhatTheLastMoveSnappedTo) {
    TLFeatureLayer* walls = addLayer("walls", TLLayer::LineLayer);
    addLine(walls, {{400, 400}, {600, 400}});
    TLSnapEnvironment::Instance()->setEnabled(true);

    // A press before any move is not snapped.
    dispatcher->MouseDown(TLLeftButton, 403, 196);
    click(403, 404);
    // The drawn line is a snap target too, from its second vertex on, and its own vertex is
    // nearer than the wall's.
    click(405, 405);
    click(100, 100);
    click(600, 300);
    type("E");
    expectPaths(committed(), {{{403, 404}, {400, 400}, {403, 404}, {100, 100}, {600, 300}}});
}

TEST_F(LineInput, WrongLayerIsRefusedByEveryEntry) {
    dispatcher->Deactivate();
    TLFeatureLayer* wells = addLayer("wells", TLLayer::PointLayer);
    edit(wells);
    buddy->ClearEvents();
    pick("TLCmdDigitizeLine");
    EXPECT_EQ(prompts(), Texts{"Command:"});
    EXPECT_EQ(messages(), Texts{kWrongLayer});
    EXPECT_EQ(buddy->RegisteredName().toStdString(), "DigitizeLine") << "it stays registered";

    for (auto entry : {+[](TLToolDispatcher* d) { return d->MouseDown(TLLeftButton, 1, 1); },
                       +[](TLToolDispatcher* d) { return d->DoubleClick(TLLeftButton, 1, 1); },
                       +[](TLToolDispatcher* d) { return d->TypeLine("1,2"); }}) {
        buddy->ClearEvents();
        EXPECT_FALSE(entry(dispatcher.get()));
        EXPECT_EQ(messages(), Texts{kWrongLayer});
        EXPECT_EQ(prompts(), Texts{"Layer error"});
    }
    EXPECT_FALSE(dispatcher->MouseMove(TLNoButton, 1, 1));
    EXPECT_EQ(wells->GetDatasource()->GetFeatureCount(), 0);
    EXPECT_EQ(map->editor()->UndoCount(), 0);
}

TEST_F(LineInput, WithoutAnEditLayerTheToolLeavesAtOnce) {
    dispatcher->Deactivate();
    edit(nullptr);
    buddy->ClearEvents();
    pick("TLCmdDigitizeLine");
    EXPECT_EQ(prompts(), Texts{""});
    EXPECT_FALSE(poolTool("TLCmdDigitizeLine")->isActive());
    EXPECT_TRUE(view->RubberBands().empty());
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 1, 1));
}

// PROJ's own answer for map (EPSG:3857) to layer (EPSG:4326), x = longitude.
XY mercatorToLonLat(double x, double y) {
    PJ_CONTEXT* ctx = proj_context_create();
    PJ* raw = proj_create_crs_to_crs(ctx, "EPSG:3857", "EPSG:4326", nullptr);
    PJ* pj = proj_normalize_for_visualization(ctx, raw);
    PJ_COORD c = proj_trans(pj, PJ_FWD, proj_coord(x, y, 0, 0));
    proj_destroy(pj);
    proj_destroy(raw);
    proj_context_destroy(ctx);
    return {c.xy.x, c.xy.y};
}

TEST_F(LineInput, TheLineIsProjectedOnceIntoTheLayersSystemAtCommit) {
    dispatcher->Deactivate();
    map->SetSpatialReference(TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:3857"));
    view->SetVisibleBounds(TLRect(1000000, 1800000, 6000000, 6600000));
    TLFeatureLayer* tracks = addLayer("tracks", TLLayer::LineLayer, "EPSG:4326");
    edit(tracks);
    pick("TLCmdDigitizeLine");
    TLRect refreshed;
    struct Listener : TLMapViewListener {
        TLRect* rect;
        void OnRefreshMap(const TLRect& r) override { *rect = r; }
    } listener;
    listener.rect = &refreshed;
    view->SetListener(&listener);

    // Device (100, 50) and (300, 50) are map (1100000, 6550000) and (1300000, 6550000).
    dispatcher->MouseDown(TLLeftButton, 100, 50);
    dispatcher->MouseDown(TLLeftButton, 300, 50);
    type("E");
    view->SetListener(nullptr);

    const std::vector<int> ids = tracks->GetDatasource()->GetIds();
    ASSERT_EQ(ids.size(), 1u);
    const XY a = mercatorToLonLat(1100000, 6550000), b = mercatorToLonLat(1300000, 6550000);
    const Paths paths = pathsOf(tracks, ids.front());
    ASSERT_EQ(paths.size(), 1u);
    ASSERT_EQ(paths[0].size(), 2u);
    EXPECT_NEAR(paths[0][0].first, a.first, 1e-9);
    EXPECT_NEAR(paths[0][0].second, a.second, 1e-9);
    EXPECT_NEAR(paths[0][1].first, b.first, 1e-9);
    EXPECT_EQ(refreshed, TLRect(1100000, 1300000, 6550000, 6550000)) << "in map coordinates";
}

}  // namespace
}  // namespace TMObjects
