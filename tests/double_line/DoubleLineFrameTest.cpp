// What the left and right double line commands share: how they announce themselves, their
// bands, the width menu before the first click, the keys, the too-close rule and how they refuse
// a layer they cannot draw into.
#include "DoubleLineSession.h"
#include "tlmap/TLEditor.h"

namespace TMObjects {
namespace {

struct Command {
    const char* className;
    const char* registeredName;
    const char* drawn;
    double side;  // 1 when the computed line lies right of the digitizing direction
};

const char* const kWidth = "Please input width(m):";
const char* const kGoOn = "Input width(m)/Give up(U)/Finish(E):";
const char* const kNotLine =
    "The current layer is not a line layer. Please select the line layer editor!";

const Command kCommands[] = {
    {"TLCmdDigitizeLeftDoubleLine", "DigitizeLeftDoubleLine", "Command:Drawing Leftdoubleline",
     1.0},
    {"TLCmdDigitizeRightDoubleLine", "DigitizeRightDoubleLine", "Command:Drawing RightDoubleLine",
     -1.0},
};

void PrintTo(const Command& command, std::ostream* out) {
    *out << command.className;
}

class DoubleLineFrame : public DoubleLineSession, public ::testing::WithParamInterface<Command> {};

TEST_P(DoubleLineFrame, AnnouncesItselfWithFourLineBandsAndLeavesCleanly) {
    const Command& command = GetParam();
    pick(command.className);

    EXPECT_EQ(buddy->RegisteredName().toStdString(), command.registeredName);
    EXPECT_EQ(messages(), (Texts{"The current input layer is:*******line*******", command.drawn}));
    EXPECT_EQ(prompts(), Texts{kWidth});
    ASSERT_EQ(view->RubberBands().size(), 4u);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(band(i)->GetType(), TLRubberBand::LineBand);
        EXPECT_EQ(band(i)->Pen().color.GetColor(), TLColor(255, 0, 0).GetColor());
    }
    EXPECT_EQ(band(0)->Brush().color.GetColor(), TLColor(255, 0, 50).GetColor());
    EXPECT_EQ(band(3)->Brush().color.GetColor(), TLColor(255, 255, 255).GetColor());

    // A pair under way is dropped on leaving.
    click(100, 100);
    click(300, 100);
    move(400, 200);
    dispatcher->Deactivate();
    EXPECT_EQ(prompt(), "");
    EXPECT_EQ(buddy->RegisteredTool(), nullptr);
    EXPECT_TRUE(view->RubberBands().empty());
    EXPECT_EQ(featureCount(), 0);
}

TEST_P(DoubleLineFrame, BeforeTheFirstClickOnlyWidthsAreTaken) {
    start(GetParam().className);
    EXPECT_FALSE(type(""));
    EXPECT_TRUE(buddy->Events().empty());

    EXPECT_TRUE(type("E"));
    EXPECT_TRUE(type("u"));
    EXPECT_TRUE(type("2.5"));
    EXPECT_TRUE(type("12.345678"));
    EXPECT_EQ(messages(),
              (Texts{"Width input error, please re-enter!", "Width input error, please re-enter!",
                     "Width changed to 2.5 m.", "Width changed to 12.3457 m."}));
    EXPECT_EQ(prompts(), (Texts{kWidth, kWidth, kWidth, kWidth}));

    // After the first click a word that is no key is passed over without a word.
    click(100, 100);
    buddy->ClearEvents();
    EXPECT_TRUE(type("xyz"));
    EXPECT_TRUE(buddy->Events().empty());
    // One vertex is no line: neither finishing nor giving up does anything.
    EXPECT_FALSE(type("E"));
    EXPECT_FALSE(type("U"));
    EXPECT_EQ(shown(0), (Path{{100, 100}}));
    EXPECT_EQ(featureCount(), 0);
}

TEST_P(DoubleLineFrame, ASecondClickOnTheLastVertexDropsTheWholePair) {
    const Command& command = GetParam();
    start(command.className);
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 500)) << "the first vertex";
    click(300, 100);
    click(400, 200);
    buddy->ClearEvents();
    // Within one pixel of the last vertex.
    move(400, 200);
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 400, 400));
    EXPECT_EQ(prompts(), Texts{kGoOn});
    EXPECT_EQ(messages(), Texts{"The distance between the two points is too close!"});
    EXPECT_TRUE(nothingShown());

    // The next click starts a new pair, from the width prompt.
    buddy->ClearEvents();
    click(500, 500);
    click(600, 500);
    EXPECT_TRUE(type("E"));
    EXPECT_EQ(prompts(), (Texts{kWidth, kGoOn, kWidth}));
    const double off = 500 - 10 * command.side;
    expectPaths(committedPair(), {{{500, 500}, {600, 500}}, {{500, off}, {600, off}}});
    EXPECT_EQ(undoSteps(), 1);
}

TEST_P(DoubleLineFrame, RefusesOtherLayerKindsAndLockedLayers) {
    const Command& command = GetParam();
    TLFeatureLayer* parcels = addLayer("parcels", TLLayer::PolygonLayer, "EPSG:32631");
    edit(parcels);
    pick(command.className);

    // Registered all the same, so that typed lines still reach it.
    EXPECT_EQ(buddy->RegisteredName().toStdString(), command.registeredName);
    EXPECT_EQ(prompts(), Texts{"Command:"});
    EXPECT_EQ(messages(), Texts{kNotLine});

    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseMove(TLNoButton, 100, 100));
    EXPECT_TRUE(buddy->Events().empty()) << "a move refuses silently";
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_FALSE(type("5"));
    EXPECT_EQ(messages(), (Texts{kNotLine, kNotLine}));
    EXPECT_EQ(prompts(), (Texts{"Layer error", "Layer error"}));

    // A locked line layer: presses say nothing, typed lines are refused.
    edit(roads);
    roads->SetEditable(false);
    // The command takes the edit layer anew when the pointer moves.
    dispatcher->MouseMove(TLNoButton, 100, 100);
    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_TRUE(buddy->Events().empty());
    EXPECT_FALSE(type("5"));
    EXPECT_EQ(prompts(), Texts{"Layer error"});

    // Opened again, the command draws there.
    roads->SetEditable(true);
    click(100, 100);
    click(200, 100);
    EXPECT_TRUE(type("e"));
    EXPECT_EQ(featureCount(), 2);
    EXPECT_EQ(parcels->GetDatasource()->GetFeatureCount(), 0);

    // Picked without an edit layer, it leaves at once.
    dispatcher->Deactivate();
    edit(nullptr);
    buddy->ClearEvents();
    pick(command.className);
    EXPECT_EQ(prompts(), Texts{""});
    EXPECT_EQ(buddy->RegisteredTool(), nullptr);
    EXPECT_TRUE(view->RubberBands().empty());
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_FALSE(type("5"));
}

INSTANTIATE_TEST_SUITE_P(Commands, DoubleLineFrame, ::testing::ValuesIn(kCommands),
                         [](const ::testing::TestParamInfo<Command>& info) {
                             return std::string(info.param.className + 13);
                         });

}  // namespace
}  // namespace TMObjects
