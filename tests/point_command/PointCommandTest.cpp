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

class PointCommand : public SessionFixture {
protected:
    // What the command window showed, in order: prompts, history lines and registrations.
    Texts transcript() const {
        Texts out;
        for (const TLHostEvent& e : buddy->Events()) {
            const std::string text = e.text.toStdString();
            if (e.kind == TLHostEvent::Prompt) out.push_back("prompt " + text);
            if (e.kind == TLHostEvent::Message) out.push_back("message " + text);
            if (e.kind == TLHostEvent::Register) out.push_back("register " + text);
            if (e.kind == TLHostEvent::Unregister) out.push_back("unregister " + text);
        }
        return out;
    }
};

// The rectangles the tool asked the view to redraw.
class RefreshRecorder : public TLMapViewListener {
public:
    void OnRefreshMap(const TLRect& rect) override { rects.push_back(rect); }
    std::vector<TLRect> rects;
};

// A layer whose store went away under the tool: it answers IsValid with 0.
class LostLayer : public TLMemoryFeatureLayer {
public:
    LostLayer() : TLMemoryFeatureLayer("lost", TLLayer::PointLayer, TLFields(), nullptr) {}
    int IsValid() const override { return valid ? 1 : 0; }
    bool valid = true;
};

TEST_F(PointCommand, ActivatesOnAPointLayerAndCommitsOneFeaturePerLeftPress) {
    TLFeatureLayer* points = addLayer("wells", TLLayer::PointLayer);
    edit(points);
    pick("TLCmdDigitizePoint");

    EXPECT_EQ(
        transcript(),
        (Texts{"register DigitizePoint", "message The current input layer is:*******point*******",
               std::string("message ") + kCommand, std::string("prompt ") + kPrompt}));

    buddy->ClearEvents();
    EXPECT_TRUE(dispatcher->MouseDown(TLLeftButton, 100, 50));
    ASSERT_EQ(points->GetDatasource()->GetFeatureCount(), 1);
    const int first = points->GetDatasource()->GetIds().front();
    EXPECT_EQ(pointOf(points, first), std::make_pair(100.0, 550.0));
    // After the commit the prompt comes back before the history line.
    EXPECT_EQ(transcript(),
              (Texts{std::string("prompt ") + kPrompt, std::string("message ") + kCommand}));

    EXPECT_TRUE(dispatcher->MouseUp(TLLeftButton, 100, 50));
    RefreshRecorder refreshed;
    view->SetListener(&refreshed);
    EXPECT_TRUE(dispatcher->MouseDown(TLLeftButton, 700, 590));
    view->SetListener(nullptr);
    // The point's own bound is redrawn: no size, but not empty, so not the whole view.
    ASSERT_EQ(refreshed.rects.size(), 1u);
    EXPECT_EQ(refreshed.rects[0], TLRect(700, 700, 10, 10));
    EXPECT_FALSE(refreshed.rects[0].IsEmpty());
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
    // Typed, the history line comes before the prompt.
    EXPECT_EQ(transcript(),
              (Texts{std::string("message ") + kCommand, std::string("prompt ") + kPrompt}));
    EXPECT_EQ(map->editor()->UndoCount(), 1);

    // Text that is no coordinate pair: the error, the prompt again, and the line was taken.
    const Texts refusal{std::string("message ") + kBadText, std::string("prompt ") + kPrompt};
    buddy->ClearEvents();
    EXPECT_TRUE(dispatcher->TypeLine("12.5"));
    EXPECT_EQ(transcript(), refusal);
    buddy->ClearEvents();
    EXPECT_TRUE(dispatcher->TypeLine("a,b"));
    EXPECT_EQ(transcript(), refusal);

    // The empty line: the same texts, but refused.
    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->TypeLine(""));
    EXPECT_EQ(transcript(), refusal);
    EXPECT_EQ(points->GetDatasource()->GetFeatureCount(), 1);
    EXPECT_EQ(map->editor()->UndoCount(), 1);
}

TEST_F(PointCommand, WrongLayerIsRefusedByPointerButNotByTypedInput) {
    TLFeatureLayer* roads = addLayer("roads", TLLayer::LineLayer);
    edit(roads);
    pick("TLCmdDigitizePoint");

    // Registered all the same, so that typed lines still reach the tool.
    const Texts refusal{"prompt Command:", std::string("message ") + kWrongLayer};
    Texts activation{"register DigitizePoint"};
    activation.insert(activation.end(), refusal.begin(), refusal.end());
    EXPECT_EQ(transcript(), activation);

    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_EQ(transcript(), refusal);
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
    EXPECT_EQ(transcript(), (Texts{std::string("message ") + kWrongLayer, "prompt Layer error"}));
    EXPECT_EQ(points->GetDatasource()->GetFeatureCount(), 0);
    EXPECT_EQ(map->editor()->UndoCount(), 0);
}

TEST_F(PointCommand, AnEditLayerThatGoesAwayOrBecomesUnusable) {
    TLRefPtr<LostLayer> lost(new LostLayer);
    map->InsertLayer(-1, lost.get(), true);
    edit(lost.get());
    pick("TLCmdDigitizePoint");
    const Texts refusal{std::string("message ") + kWrongLayer, "prompt Layer error"};

    // A layer that no longer answers as valid: the press is refused silently, a typed line
    // with the wrong-layer texts.
    lost->valid = false;
    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_TRUE(transcript().empty());
    EXPECT_FALSE(dispatcher->TypeLine("1,2"));
    EXPECT_EQ(transcript(), refusal);

    // No edit layer any more: the press is taken and does nothing; the tool has forgotten its
    // layer, so a typed line is refused as well.
    lost->valid = true;
    map->editor()->set_edit_layer(nullptr);
    buddy->ClearEvents();
    EXPECT_TRUE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_TRUE(transcript().empty());
    EXPECT_FALSE(dispatcher->TypeLine("1,2"));
    EXPECT_EQ(transcript(), refusal);

    EXPECT_EQ(lost->GetDatasource()->GetFeatureCount(), 0);
    EXPECT_EQ(map->editor()->UndoCount(), 0);
    EXPECT_FALSE(map->editor()->IsOperationOpen());
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
    RefreshRecorder refreshed;
    view->SetListener(&refreshed);
    dispatcher->MouseDown(TLLeftButton, 100, 50);
    view->SetListener(nullptr);
    dispatcher->TypeLine("1100000,6550000");

    // The clicked point's bound was taken in the layer's system and brought back into the map's:
    // the view redraws where the user clicked.
    ASSERT_EQ(refreshed.rects.size(), 1u);
    EXPECT_NEAR(refreshed.rects[0].XMinimum(), 1100000, 1e-6);
    EXPECT_NEAR(refreshed.rects[0].XMaximum(), 1100000, 1e-6);
    EXPECT_NEAR(refreshed.rects[0].YMinimum(), 6550000, 1e-6);
    EXPECT_NEAR(refreshed.rects[0].YMaximum(), 6550000, 1e-6);

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
