#include <cmath>

#include "CommandSession.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLSnapTool.h"

namespace TMObjects {
namespace {

const char* const kFirst =
    "Please specify the first point / manually enter the first point (x, y):";
const char* const kFirstAgain = "Specify the first point:";
const char* const kSecond =
    "Please enter second points (point coordinate format comma separated x, y):";
const char* const kThird =
    "Please enter third points (point coordinate format comma separated x, y):";
const char* const kPointError = "point coordinate input error,please re-enter!";
const char* const kDrawn = "Command:Drawing Arc";
const char* const kNotLine =
    "The current layer is not a line layer. Please select the line layer editor!";

const double kPi = 3.14159265358979323846;

// The points below lie on the circle of radius 100 about (300, 300), at distances that are whole
// numbers, so that the single-precision radius is exact.
const XY kAt53{360, 380};   // 53.13 degrees
const XY kAt90{300, 400};   // 90 degrees
const XY kAt216{220, 240};  // 216.87 degrees

double degreesOf(const XY& p) {
    const double d = std::atan2(p.second - 300, p.first - 300) * 180.0 / kPi;
    return d < 0 ? d + 360.0 : d;
}

// Whole-degree steps about (300, 300) from `from` as long as they do not pass `to`.
Path sweep(double from, double to) {
    Path path;
    for (int i = 0; from + i <= to; ++i) {
        const double a = (from + i) * kPi / 180.0;
        path.push_back({300 + 100 * std::cos(a), 300 + 100 * std::sin(a)});
    }
    return path;
}

std::string text(const XY& p) {
    return std::to_string(int(p.first)) + "," + std::to_string(int(p.second));
}

class ArcCommand : public CommandSession {
protected:
    void SetUp() override {
        CommandSession::SetUp();
        roads = addLayer("roads", TLLayer::LineLayer);
        edit(roads);
        pick("TLCmdDigitizeArc");
        buddy->ClearEvents();
    }
    Path committed() const {
        const Paths paths = onlyFeatureParts(roads);
        EXPECT_EQ(paths.size(), 1u) << "paths";
        return paths.empty() ? Path() : paths.front();
    }
    int featureCount() const { return roads->GetDatasource()->GetFeatureCount(); }
    TLRubberBand* band() const { return view->RubberBands().at(0); }
    void typePoint(const XY& p) { type(text(p).c_str()); }

    TLFeatureLayer* roads = nullptr;
};

TEST_F(ArcCommand, AnnouncesItselfOnALineLayerWithALineBand) {
    dispatcher->Deactivate();
    buddy->ClearEvents();
    pick("TLCmdDigitizeArc");
    EXPECT_EQ(buddy->RegisteredName().toStdString(), "DigitizeArc");
    EXPECT_EQ(messages(), (Texts{"The current input layer is:*******line*******", kDrawn}));
    EXPECT_EQ(prompts(), Texts{kFirst});
    ASSERT_EQ(view->RubberBands().size(), 1u);
    EXPECT_EQ(band()->GetType(), TLRubberBand::LineBand);
    EXPECT_EQ(band()->Pen().color.GetColor(), TLColor(255, 0, 0).GetColor());
}

TEST_F(ArcCommand, ThreeTypedPointsGiveWholeDegreesFromTheFirstAngleShortOfTheLast) {
    // A menu number is no point; the first point is then asked for briefly.
    type("2");
    typePoint(kAt53);
    type("300;400");
    typePoint(kAt90);
    typePoint(kAt216);

    const Path arc = committed();
    const double s = degreesOf(kAt53), e = degreesOf(kAt216);
    ASSERT_EQ(arc.size(), 164u);
    expectPath(arc, sweep(s, e));
    // It begins on the first point and stops within a degree of the third, not on it.
    EXPECT_NEAR(arc.front().first, 360, 1e-9);
    EXPECT_NEAR(arc.front().second, 380, 1e-9);
    EXPECT_GT(std::hypot(arc.back().first - 220, arc.back().second - 240), 1.0);
    EXPECT_EQ(prompts(), (Texts{kFirstAgain, kSecond, kSecond, kThird, kFirst}));
    EXPECT_EQ(messages(), (Texts{kPointError, kPointError, kDrawn}));
    EXPECT_EQ(map->editor()->UndoCount(), 1);
    EXPECT_EQ(map->editor()->LastCommittedLabel().toStdString(), "add feature");
    EXPECT_TRUE(band()->Parts().empty());
    ASSERT_TRUE(map->editor()->Undo());
    EXPECT_EQ(featureCount(), 0);
}

TEST_F(ArcCommand, ClickedBackwardsItStillRunsCounterClockwiseWithAPreview) {
    click(kAt216.first, kAt216.second);
    move(250, 250);
    EXPECT_EQ(pointsOf(band()), (Path{kAt216, {250, 250}}));
    EXPECT_EQ(band()->GetType(), TLRubberBand::LineBand);
    click(kAt90.first, kAt90.second);

    // The two chords to the pointer, then the arc the press would make.
    move(kAt53.first, kAt53.second);
    const Path preview = pointsOf(band());
    const Path expected = sweep(degreesOf(kAt53), degreesOf(kAt216));
    ASSERT_EQ(preview.size(), 3 + expected.size());
    expectPath(Path(preview.begin(), preview.begin() + 3), {kAt216, kAt90, kAt53});
    expectPath(Path(preview.begin() + 3, preview.end()), expected);

    // The press that finishes the arc answers false, and the tool starts over.
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 360, 600 - 380));
    dispatcher->MouseUp(TLLeftButton, 360, 600 - 380);
    expectPath(committed(), expected);
    EXPECT_EQ(prompts(), (Texts{kSecond, kThird, kFirst}));
    EXPECT_EQ(messages(), Texts{kDrawn});
    EXPECT_TRUE(band()->Parts().empty());
}

TEST_F(ArcCommand, ASecondPointOutsideTheOthersGoesRoundThroughEastFromOneDegree) {
    typePoint(kAt53);
    typePoint(kAt216);
    typePoint(kAt90);
    // From the third point's 90 degrees up to 360, then 1 to 53: the complement of 90 to 216.87.
    Path expected = sweep(90, 360);
    const Path rest = sweep(1, degreesOf(kAt53));
    expected.insert(expected.end(), rest.begin(), rest.end());
    ASSERT_EQ(expected.size(), 271u + 53u);
    expectPath(committed(), expected);
}

TEST_F(ArcCommand, PointsOnALineOrAChordWithoutHeightCommitNothingAndStartOver) {
    for (const Path& points :
         {Path{{100, 100}, {200, 200}, {300, 300}}, Path{{100, 100}, {200, 100}, {150, 150}}}) {
        buddy->ClearEvents();
        for (const XY& p : points) typePoint(p);
        EXPECT_EQ(featureCount(), 0);
        EXPECT_FALSE(map->editor()->IsOperationOpen());
        EXPECT_EQ(prompts(), (Texts{kSecond, kThird, kFirst}));
        EXPECT_EQ(messages(), Texts{kDrawn});
    }
    // Clicked the same way, the press commits nothing either.
    clickAll({{100, 100}, {200, 200}, {300, 300}});
    EXPECT_EQ(featureCount(), 0);
    EXPECT_EQ(prompt(), kFirst);
}

TEST_F(ArcCommand, ACircleTooSmallIsDroppedSilentlyAndTheThirdPointAskedAgain) {
    type("100,100");
    type("100.0000002,100.0000001");
    buddy->ClearEvents();
    EXPECT_FALSE(type("100.0000001,100.0000003"));
    EXPECT_TRUE(buddy->Events().empty());
    EXPECT_EQ(featureCount(), 0);
    // Still at the third point: a usable one finishes the arc.
    EXPECT_TRUE(type("400,400"));
    EXPECT_EQ(featureCount(), 1);
    EXPECT_EQ(prompt(), kFirst);
}

TEST_F(ArcCommand, ARightPressClearsThePreviewAndADoubleClickChangesNothing) {
    click(kAt53.first, kAt53.second);
    move(200, 200);
    EXPECT_FALSE(band()->Parts().empty());
    click(200, 200, TLRightButton);
    EXPECT_TRUE(band()->Parts().empty());
    EXPECT_TRUE(dispatcher->DoubleClick(TLLeftButton, 200, 200));
    EXPECT_EQ(prompts(), Texts{kSecond});
    clickAll({kAt90, kAt216});
    expectPath(committed(), sweep(degreesOf(kAt53), degreesOf(kAt216)));
}

TEST_F(ArcCommand, TakesThePointTheLastMoveSnappedTo) {
    TLFeatureLayer* tracks = addLayer("tracks", TLLayer::LineLayer);
    addLine(tracks, {kAt53, {500, 380}});
    TLSnapEnvironment::Instance()->setEnabled(true);
    move(kAt53.first + 3, kAt53.second - 2);
    press(kAt53.first + 3, kAt53.second - 2);
    clickAll({kAt90, kAt216});
    TLSnapEnvironment::Instance()->setEnabled(false);
    expectPath(committed(), sweep(degreesOf(kAt53), degreesOf(kAt216)));
}

TEST_F(ArcCommand, RefusesOtherLayerKindsWithItsOwnWordings) {
    TLFeatureLayer* parcels = addLayer("parcels", TLLayer::PolygonLayer);
    edit(parcels);
    dispatcher->Deactivate();
    buddy->ClearEvents();
    pick("TLCmdDigitizeArc");
    EXPECT_EQ(prompts(), Texts{"Command:"});
    EXPECT_EQ(messages(), Texts{kNotLine});

    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseMove(TLNoButton, 100, 100));
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_EQ(messages(), Texts{kNotLine});
    EXPECT_EQ(prompts(), Texts{"Layer error"});
    // Typed lines are refused in the polygon wording the arc has always used.
    buddy->ClearEvents();
    EXPECT_FALSE(type("100,100"));
    EXPECT_EQ(messages(),
              Texts{"The current layer is not a polygon layer. Please select the polygon layer "
                    "editor!"});
    EXPECT_EQ(prompts(), Texts{"Layer error"});

    // A locked line layer: presses say nothing, typing is refused.
    edit(roads);
    roads->SetEditable(false);
    // The command takes the edit layer anew when the pointer moves.
    dispatcher->MouseMove(TLNoButton, 100, 100);
    buddy->ClearEvents();
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_TRUE(buddy->Events().empty());
    EXPECT_FALSE(type("100,100"));
    EXPECT_EQ(prompts(), Texts{"Layer error"});
    EXPECT_EQ(parcels->GetDatasource()->GetFeatureCount() + featureCount(), 0);
    EXPECT_EQ(map->editor()->UndoCount(), 0);
}

}  // namespace
}  // namespace TMObjects
