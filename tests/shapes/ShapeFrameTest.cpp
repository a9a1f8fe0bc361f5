// What the four shape commands share: how they announce themselves, the band they draw with,
// how they refuse a layer they cannot draw into, and how they leave.
#include <proj.h>

#include "ShapeSession.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLSnapTool.h"

namespace TMObjects {
namespace {

struct Command {
    const char* className;
    const char* registeredName;
    Texts activation;  // the history lines on a polygon layer
    const char* firstPrompt;
    const char* typedRefusal;  // a typed line on a layer that cannot be edited
    bool keepsBand;            // an emptied band stays on the view after deactivate
};

const char* const kNotPolygon =
    "The current layer is not polygon layer. Please select the polygon layer editor!";
const char* const kPressRefusal =
    "The current layer is not a Polygon layer. Please select the Polygon layer editor!";
const char* const kLineWording =
    "The current layer is not a line layer. Please select the line layer editor!";

const Command kCommands[] = {
    {"TLCmdDigitizeSquare",
     "DigitizeSquare",
     {"The current input layer is:*******polygon*******", "Command:Drawing Square"},
     "1. draw a square with the known center and the length of the side. /2. knows the square "
     "of the two points:",
     kLineWording,
     false},
    {"TLCmdDigitizeRectangle",
     "DigitizeRectangle",
     {"The current layer is:*******polygon*******", "Command:Drawing Rectangle"},
     "1. according to the two rectangle /2. according to the three point rectangular /3. "
     "according to two and the width of rectangle /4. according to the length and width of "
     "rectangle:",
     kLineWording,
     true},
    {"TLCmdDigitizeRegularPolygon",
     "DigitizeRegularPolygon",
     {"The current layer is:*******polygon******", "Command:Drawing RegularPolygon"},
     "Number of input edges:",
     kLineWording,
     false},
    {"TLCmdDigitizeFreehandRectangle",
     "DigitizeFreehandRectangle",
     {"The current input layer is:*******polygon*******", "Draw Arbitrary Rect"},
     "Specify the first point:",
     "The current layer is not a polygon layer. Please select the polygon layer editor!",
     false},
};

void PrintTo(const Command& command, std::ostream* out) {
    *out << command.className;
}

class ShapeFrame : public ShapeSession, public ::testing::WithParamInterface<Command> {};

TEST_P(ShapeFrame, AnnouncesItselfOnAPolygonLayerAndLeavesCleanly) {
    const Command& command = GetParam();
    pick(command.className);

    EXPECT_EQ(buddy->RegisteredName().toStdString(), command.registeredName);
    EXPECT_EQ(messages(), command.activation);
    EXPECT_EQ(prompts(), Texts{command.firstPrompt});

    ASSERT_EQ(view->RubberBands().size(), 1u);
    EXPECT_EQ(band()->GetType(), TLRubberBand::PolygonBand);
    EXPECT_EQ(band()->Pen().color.GetColor(), TLColor(255, 0, 0).GetColor());
    EXPECT_EQ(band()->Brush().color.GetColor(), TLColor(255, 0, 0, 50).GetColor());

    dispatcher->Deactivate();
    EXPECT_EQ(prompt(), "");
    EXPECT_EQ(buddy->RegisteredTool(), nullptr);
    if (command.keepsBand) {
        ASSERT_EQ(view->RubberBands().size(), 1u);
        EXPECT_TRUE(band()->Parts().empty());
    } else {
        EXPECT_TRUE(view->RubberBands().empty());
    }

    // Picked again, it starts over with one band of its own.
    pick(command.className);
    EXPECT_EQ(view->RubberBands().size(), 1u);
}

TEST_P(ShapeFrame, RefusesOtherLayerKindsAndLockedLayers) {
    const Command& command = GetParam();
    TLFeatureLayer* roads = addLayer("roads", TLLayer::LineLayer);
    edit(roads);
    pick(command.className);

    // Registered all the same, so that typed lines still reach it.
    EXPECT_EQ(buddy->RegisteredName().toStdString(), command.registeredName);
    EXPECT_EQ(prompts(), Texts{"Command:"});
    EXPECT_EQ(messages(), Texts{kNotPolygon});

    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseMove(TLNoButton, 100, 100));
    EXPECT_TRUE(buddy->Events().empty()) << "a move refuses silently";
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_EQ(messages(), Texts{kPressRefusal});
    EXPECT_EQ(prompts(), Texts{"Layer error"});

    buddy->ClearEvents();
    roads->SetEditable(false);
    EXPECT_FALSE(type("1"));
    EXPECT_EQ(messages(), Texts{command.typedRefusal});
    EXPECT_EQ(prompts(), Texts{"Layer error"});
    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_FALSE(dispatcher->DoubleClick(TLLeftButton, 100, 100));
    EXPECT_TRUE(buddy->Events().empty()) << "presses on a locked layer say nothing";
    EXPECT_EQ(roads->GetDatasource()->GetFeatureCount(), 0);
    EXPECT_EQ(undoSteps(), 0);
}

// Map (EPSG:3857) to layer (EPSG:4326) as PROJ gives it, x = longitude.
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

struct RefreshRecorder : TLMapViewListener {
    void OnRefreshMap(const TLRect& rect) override { rects.push_back(rect); }
    std::vector<TLRect> rects;
};

class ShapeCommit : public ShapeSession {};

TEST_F(ShapeCommit, WritesInTheLayersSystemAndRefreshesInTheMaps) {
    map->SetSpatialReference(TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:3857"));
    view->SetVisibleBounds(TLRect(1000000, 1800000, 6000000, 6600000));
    TLFeatureLayer* lots = addLayer("lots", TLLayer::PolygonLayer, "EPSG:4326");
    edit(lots);
    RefreshRecorder recorder;
    view->SetListener(&recorder);
    start("TLCmdDigitizeSquare");

    type("1");
    type("1100000,6550000");
    type("1000");

    const std::vector<int> ids = lots->GetDatasource()->GetIds();
    ASSERT_EQ(ids.size(), 1u);
    Ring expected;
    for (const XY& p : Ring{{1099000, 6551000},
                            {1101000, 6551000},
                            {1101000, 6549000},
                            {1099000, 6549000},
                            {1099000, 6551000}})
        expected.push_back(mercatorToLonLat(p.first, p.second));
    expectRing(ringOf(lots, ids[0]), expected);
    // The refresh rectangle stays in the map's coordinates.
    ASSERT_EQ(recorder.rects.size(), 1u);
    EXPECT_EQ(recorder.rects[0].XMinimum(), 1099000);
    EXPECT_EQ(recorder.rects[0].XMaximum(), 1101000);
    EXPECT_EQ(recorder.rects[0].YMinimum(), 6549000);
    EXPECT_EQ(recorder.rects[0].YMaximum(), 6551000);
    view->SetListener(nullptr);
}

TEST_F(ShapeCommit, ACornerTakesTheSnapTargetTheMoveFound) {
    TLFeatureLayer* walls = addLayer("walls", TLLayer::LineLayer);
    TLRefPtr<TLGeoPolyline> wall(new TLGeoPolyline);
    wall->AddXY(100, 100);
    wall->AddXY(300, 100);
    wall->EndEntity();
    TLFeature feature;
    feature.SetGeometry(wall);
    walls->GetDatasource()->Insert(feature);
    TLSnapEnvironment::Instance()->setEnabled(true);
    start("TLCmdDigitizeRectangle");

    // The first corner lands on the wall's end that the move found near the pointer.
    move(103, 96);
    press(103, 96);
    move(180, 160);
    press(180, 160);

    const std::vector<int> ids = parcels->GetDatasource()->GetIds();
    ASSERT_EQ(ids.size(), 1u);
    expectRing(ringOf(parcels, ids[0]),
               {{100, 100}, {180, 100}, {180, 160}, {100, 160}, {100, 100}});
}

INSTANTIATE_TEST_SUITE_P(Commands, ShapeFrame, ::testing::ValuesIn(kCommands),
                         [](const ::testing::TestParamInfo<Command>& info) {
                             return std::string(info.param.className).substr(13);
                         });

}  // namespace
}  // namespace TMObjects
