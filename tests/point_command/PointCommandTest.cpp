#include <proj.h>

#include <cmath>

#include "SessionFixture.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLSnapTool.h"

namespace TMObjects {
namespace {

using Texts = std::vector<std::string>;

const char* kPrompt = "Specify point or input point coordinates:";
const char* kCommand = "Command:Drawing Point";
const char* kWrongLayer =
    "The current layer is not a point layer. Please select the point layer editor!";
const char* kBadText = "Point coordinate or command input error, please re-enter!";

class PointCommand : public SessionFixture {};

TEST_F(PointCommand, ActivatesOnAPointLayerAndCommitsOneFeaturePerLeftPress) {
    TLFeatureLayer* points = addLayer("wells", TLLayer::PointLayer);
    edit(points);
    pick("TLCmdDigitizePoint");

    EXPECT_EQ(buddy->RegisteredName().toStdString(), "DigitizePoint");
    EXPECT_EQ(messages(), (Texts{"The current input layer is:*******point*******", kCommand}));
    EXPECT_EQ(prompt(), kPrompt);

    buddy->ClearEvents();
    EXPECT_TRUE(dispatcher->MouseDown(TLLeftButton, 100, 50));
    ASSERT_EQ(points->GetDatasource()->GetFeatureCount(), 1);
    const int first = points->GetDatasource()->GetIds().front();
    EXPECT_EQ(pointOf(points, first), std::make_pair(100.0, 550.0));
    // After the commit the prompt comes back before the history line.
    ASSERT_GE(buddy->Events().size(), 2u);
    EXPECT_EQ(buddy->Events()[buddy->Events().size() - 2].kind, TLHostEvent::Prompt);
    EXPECT_EQ(buddy->Events().back().text.toStdString(), kCommand);

    EXPECT_TRUE(dispatcher->MouseUp(TLLeftButton, 100, 50));
    EXPECT_TRUE(dispatcher->MouseDown(TLLeftButton, 700, 590));
    EXPECT_EQ(points->GetDatasource()->GetFeatureCount(), 2);

    TLEditor* editor = map->editor();
    EXPECT_EQ(editor->UndoCount(), 2);
    EXPECT_EQ(editor->LastCommittedLabel().toStdString(), "add feature");
    EXPECT_FALSE(editor->IsOperationOpen());

    // Right and middle presses are taken but write nothing.
    EXPECT_TRUE(dispatcher->MouseDown(TLRightButton, 10, 10));
    EXPECT_TRUE(dispatcher->MouseDown(TLMidButton, 10, 10));
    EXPECT_EQ(points->GetDatasource()->GetFeatureCount(), 2);

    ASSERT_TRUE(editor->Undo());
    EXPECT_EQ(points->GetDatasource()->GetIds(), std::vector<int>{first});
    ASSERT_TRUE(editor->Redo());
    EXPECT_EQ(points->GetDatasource()->GetFeatureCount(), 2);
}

TEST_F(PointCommand, TypedCoordinatesAreMapCoordinatesAndBadTextIsRefused) {
    TLFeatureLayer* points = addLayer("wells", TLLayer::PointLayer);
    edit(points);
    pick("TLCmdDigitizePoint");
    buddy->ClearEvents();

    EXPECT_TRUE(dispatcher->TypeLine(" 12.5 , -3e2 "));
    ASSERT_EQ(points->GetDatasource()->GetFeatureCount(), 1);
    EXPECT_EQ(pointOf(points, points->GetDatasource()->GetIds().front()),
              std::make_pair(12.5, -300.0));
    EXPECT_EQ(messages(), Texts{kCommand});
    EXPECT_EQ(prompts(), Texts{kPrompt});
    EXPECT_EQ(map->editor()->UndoCount(), 1);

    // Text that is no coordinate pair: the error, the prompt again, and the line was taken.
    buddy->ClearEvents();
    EXPECT_TRUE(dispatcher->TypeLine("12.5"));
    EXPECT_TRUE(dispatcher->TypeLine("a,b"));
    EXPECT_EQ(messages(), (Texts{kBadText, kBadText}));
    EXPECT_EQ(prompts(), (Texts{kPrompt, kPrompt}));

    // The empty line: the same texts, but refused.
    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->TypeLine(""));
    EXPECT_EQ(messages(), Texts{kBadText});
    EXPECT_EQ(prompts(), Texts{kPrompt});
    EXPECT_EQ(points->GetDatasource()->GetFeatureCount(), 1);
    EXPECT_EQ(map->editor()->UndoCount(), 1);
}

TEST_F(PointCommand, WrongLayerIsRefusedByPointerButNotByTypedInput) {
    TLFeatureLayer* roads = addLayer("roads", TLLayer::LineLayer);
    edit(roads);
    pick("TLCmdDigitizePoint");

    // Registered all the same, so that typed lines still reach the tool.
    EXPECT_EQ(buddy->RegisteredName().toStdString(), "DigitizePoint");
    EXPECT_EQ(prompts(), Texts{"Command:"});
    EXPECT_EQ(messages(), Texts{kWrongLayer});

    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_EQ(prompts(), Texts{"Command:"});
    EXPECT_EQ(messages(), Texts{kWrongLayer});
    EXPECT_EQ(roads->GetDatasource()->GetFeatureCount(), 0);

    // The typed path does not look at the kind of layer: a point lands in the line layer.
    EXPECT_TRUE(dispatcher->TypeLine("5,6"));
    ASSERT_EQ(roads->GetDatasource()->GetFeatureCount(), 1);
    EXPECT_EQ(pointOf(roads, roads->GetDatasource()->GetIds().front()), std::make_pair(5.0, 6.0));
}

TEST_F(PointCommand, LayerThatIsNotEditable) {
    TLFeatureLayer* points = addLayer("wells", TLLayer::PointLayer);
    edit(points);
    pick("TLCmdDigitizePoint");
    points->SetEditable(false);
    buddy->ClearEvents();

    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_TRUE(buddy->Events().empty()) << "a press on a locked layer says nothing";

    EXPECT_FALSE(dispatcher->TypeLine("1,2"));
    EXPECT_EQ(messages(), Texts{kWrongLayer});
    EXPECT_EQ(prompts(), Texts{"Layer error"});
    EXPECT_EQ(points->GetDatasource()->GetFeatureCount(), 0);
    EXPECT_EQ(map->editor()->UndoCount(), 0);
}

TEST_F(PointCommand, WithoutAnEditLayerTheToolLeavesAtOnceAndStaysHarmless) {
    TLTool* tool = poolTool("TLCmdDigitizePoint");
    pick("TLCmdDigitizePoint");

    // Its own deactivate ran: the prompt is emptied although the tool never registered.
    EXPECT_EQ(prompts(), Texts{""});
    EXPECT_EQ(buddy->RegisteredTool(), nullptr);
    EXPECT_FALSE(tool->isActive());

    buddy->ClearEvents();
    EXPECT_TRUE(dispatcher->MouseMove(TLNoButton, 10, 10));
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 10, 10));
    EXPECT_FALSE(tool->processChildCmd("1,2"));
    EXPECT_TRUE(buddy->Events().empty());
}

TEST_F(PointCommand, SnapsOnlyToWhatTheLastMoveFound) {
    TLFeatureLayer* points = addLayer("wells", TLLayer::PointLayer);
    TLFeatureLayer* roads = addLayer("roads", TLLayer::LineLayer);
    TLRefPtr<TLGeoPolyline> road(new TLGeoPolyline);
    road->AddXY(100, 500);
    road->AddXY(300, 500);
    road->EndEntity();
    TLFeature feature;
    feature.SetGeometry(road);
    roads->GetDatasource()->Insert(feature);

    TLSnapEnvironment::Instance()->setEnabled(true);
    edit(points);
    pick("TLCmdDigitizePoint");

    // A press before any move takes the pointer's own position, though the
    // road's far end lies within the tolerance.
    dispatcher->MouseDown(TLLeftButton, 297, 96);
    // After a move near the road's near end the press lands on that vertex.
    dispatcher->MouseMove(TLNoButton, 103, 96);
    EXPECT_TRUE(view->HasSnapMarker());
    dispatcher->MouseDown(TLLeftButton, 103, 96);

    const std::vector<int> ids = points->GetDatasource()->GetIds();
    ASSERT_EQ(ids.size(), 2u);
    EXPECT_EQ(pointOf(points, ids[0]), std::make_pair(297.0, 504.0));
    EXPECT_EQ(pointOf(points, ids[1]), std::make_pair(100.0, 500.0));
}

// PROJ's own answer for map (EPSG:3857) to layer (EPSG:4326), x = longitude.
std::pair<double, double> mercatorToLonLat(double x, double y) {
    PJ_CONTEXT* ctx = proj_context_create();
    PJ* raw = proj_create_crs_to_crs(ctx, "EPSG:3857", "EPSG:4326", nullptr);
    PJ* pj = proj_normalize_for_visualization(ctx, raw);
    PJ_COORD c = proj_trans(pj, PJ_FWD, proj_coord(x, y, 0, 0));
    proj_destroy(pj);
    proj_destroy(raw);
    proj_context_destroy(ctx);
    return {c.xy.x, c.xy.y};
}

TEST_F(PointCommand, AClickedPointIsProjectedTwiceATypedPointOnce) {
    map->SetSpatialReference(TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:3857"));
    view->SetVisibleBounds(TLRect(1000000, 1800000, 6000000, 6600000));
    TLFeatureLayer* points = addLayer("wells", TLLayer::PointLayer, "EPSG:4326");
    edit(points);
    pick("TLCmdDigitizePoint");

    // Device (100, 50) is map (1100000, 6550000) at 1000 m a pixel.
    dispatcher->MouseDown(TLLeftButton, 100, 50);
    dispatcher->TypeLine("1100000,6550000");

    const std::vector<int> ids = points->GetDatasource()->GetIds();
    ASSERT_EQ(ids.size(), 2u);
    const auto once = mercatorToLonLat(1100000, 6550000);
    const auto twice = mercatorToLonLat(once.first, once.second);
    const auto clicked = pointOf(points, ids[0]);
    const auto typed = pointOf(points, ids[1]);
    EXPECT_NEAR(clicked.first, twice.first, 1e-12);
    EXPECT_NEAR(clicked.second, twice.second, 1e-12);
    EXPECT_NEAR(typed.first, once.first, 1e-9);
    EXPECT_NEAR(typed.second, once.second, 1e-9);
    EXPECT_NEAR(once.first, 9.8814681, 1e-6);  // a sanity check on the numbers themselves
}

}  // namespace
}  // namespace TMObjects
