// What the circle and ellipse commands share: how they announce themselves, the band they draw
// with, how they refuse a layer they cannot draw into, and how they leave.
#include "ShapeSession.h"
#include "tlmap/TLEditor.h"

namespace TMObjects {
namespace {

struct Command {
    const char* className;
    const char* registeredName;
    const char* drawn;
    const char* menu;
};

const char* const kNotPolygon =
    "The current layer is not a polygon layer. Please select the polygon layer editor!";

const Command kCommands[] = {
    {"TLCmdDigitizeCircle", "DigitizeCircle", "Command:Drawing Circle",
     "1. according to the center and radius of circle diameter of both ends of /2. according to "
     "the diameters of both ends of the circle /3. according to the three point circle arc on "
     "the dotted ends of the circle:"},
    {"TLCmdDigitizeEllipse", "DigitizeEllipse", "Command:Drawing Ellipse",
     "1. draw ellipses by specifying the central point of the ellipse, the ends of the "
     "horizontal axis and the end of the long axis /2. is drawn by specifying the center of the "
     "ellipse, the ends of the horizontal axis and the end of the long axis, and the ellipse is "
     "drawn by specifying the center of the ellipse and the length of the two axes:"},
};

void PrintTo(const Command& command, std::ostream* out) {
    *out << command.className;
}

class CurveFrame : public ShapeSession, public ::testing::WithParamInterface<Command> {};

TEST_P(CurveFrame, AnnouncesItselfOnAPolygonLayerAndLeavesCleanly) {
    const Command& command = GetParam();
    pick(command.className);

    EXPECT_EQ(buddy->RegisteredName().toStdString(), command.registeredName);
    EXPECT_EQ(messages(),
              (Texts{"The current input layer is:*******polygon*******", command.drawn}));
    EXPECT_EQ(prompts(), Texts{command.menu});
    ASSERT_EQ(view->RubberBands().size(), 1u);
    EXPECT_EQ(band()->GetType(), TLRubberBand::PolygonBand);
    EXPECT_EQ(band()->Pen().color.GetColor(), TLColor(255, 0, 0).GetColor());
    EXPECT_EQ(band()->Brush().color.GetColor(), TLColor(255, 0, 0, 50).GetColor());

    // An empty line is passed over; a shape under way is dropped on leaving.
    buddy->ClearEvents();
    EXPECT_FALSE(type(""));
    EXPECT_TRUE(buddy->Events().empty());
    click(100, 100);
    move(150, 120);
    dispatcher->Deactivate();
    EXPECT_EQ(prompt(), "");
    EXPECT_EQ(buddy->RegisteredTool(), nullptr);
    EXPECT_TRUE(view->RubberBands().empty());
    EXPECT_EQ(featureCount(), 0);

    // Picked again, it starts over from the menu with one band of its own.
    pick(command.className);
    EXPECT_EQ(view->RubberBands().size(), 1u);
    EXPECT_EQ(prompt(), command.menu);
}

TEST_P(CurveFrame, RefusesOtherLayerKindsAndLockedLayers) {
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
    EXPECT_EQ(messages(), Texts{kNotPolygon});
    EXPECT_EQ(prompts(), Texts{"Layer error"});
    // A typed line is taken all the same: only a press asks the kind of the layer, and the
    // store refuses at saving a shape the layer cannot hold.
    buddy->ClearEvents();
    EXPECT_TRUE(type("1"));
    EXPECT_TRUE(messages().empty());
    EXPECT_NE(prompts(), Texts{"Layer error"});

    buddy->ClearEvents();
    roads->SetEditable(false);
    EXPECT_FALSE(type("1"));
    EXPECT_EQ(messages(), Texts{kNotPolygon});
    EXPECT_EQ(prompts(), Texts{"Layer error"});
    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_TRUE(buddy->Events().empty()) << "presses on a locked layer say nothing";
    EXPECT_EQ(roads->GetDatasource()->GetFeatureCount(), 0);
    EXPECT_EQ(undoSteps(), 0);
}

TEST_P(CurveFrame, AMoveOverALayerThatTurnedLockedDrawsNothingAndClearsNothing) {
    const Command& command = GetParam();
    pick(command.className);
    click(100, 100);
    move(150, 100);
    const Ring shown = bandPoints();
    ASSERT_FALSE(shown.empty());

    parcels->SetEditable(false);
    EXPECT_FALSE(dispatcher->MouseMove(TLNoButton, 300, 300));
    EXPECT_EQ(bandPoints(), shown);

    // Open again, the shape goes on where it was.
    parcels->SetEditable(true);
    move(160, 100);
    EXPECT_NE(bandPoints(), shown);
}

TEST_P(CurveFrame, FollowsTheEditLayerAndLeavesWithoutOne) {
    const Command& command = GetParam();
    TLFeatureLayer* lots = addLayer("lots", TLLayer::PolygonLayer);
    pick(command.className);

    // Switched to another polygon layer, the shape goes there once the pointer has moved: the
    // command takes the edit layer on activation and at each move only.
    edit(lots);
    move(100, 100);
    type("2");
    // A diameter's second end or the axis lengths, as the command takes them.
    type("100,100");
    type("20,10");
    EXPECT_EQ(lots->GetDatasource()->GetFeatureCount(), 1);
    EXPECT_EQ(featureCount(), 0);

    // Without a move, the layer taken last stays.
    edit(parcels);
    type("2");
    type("100,100");
    type("20,10");
    EXPECT_EQ(lots->GetDatasource()->GetFeatureCount(), 2);
    EXPECT_EQ(featureCount(), 0);

    // With no edit layer left a press does nothing and a typed line is refused.
    edit(nullptr);
    move(100, 100);
    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_TRUE(buddy->Events().empty());
    EXPECT_FALSE(type("1"));
    EXPECT_EQ(prompts(), Texts{"Layer error"});

    // Picked without an edit layer, it leaves at once.
    dispatcher->Deactivate();
    buddy->ClearEvents();
    pick(command.className);
    EXPECT_EQ(prompts(), Texts{""});
    EXPECT_EQ(buddy->RegisteredTool(), nullptr);
    EXPECT_TRUE(view->RubberBands().empty());
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_FALSE(type("1"));
}

INSTANTIATE_TEST_SUITE_P(Commands, CurveFrame, ::testing::ValuesIn(kCommands),
                         [](const ::testing::TestParamInfo<Command>& info) {
                             return std::string(info.param.className + 13);
                         });

}  // namespace
}  // namespace TMObjects
