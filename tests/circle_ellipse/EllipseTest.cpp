#include <cmath>

#include "ShapeSession.h"
#include "tlmap/TLEditor.h"

namespace TMObjects {
namespace {

const char* const kMenu =
    "1. draw ellipses by specifying the central point of the ellipse, the ends of the horizontal "
    "axis and the end of the long axis /2. is drawn by specifying the center of the ellipse, the "
    "ends of the horizontal axis and the end of the long axis, and the ellipse is drawn by "
    "specifying the center of the ellipse and the length of the two axes:";
const char* const kCentre =
    "Please enter the first point (point coordinate format comma separated x, y):";
const char* const kFirstAxis = "Specify the end of the horizontal axis (x,y):";
const char* const kSecondAxis = "Specify the end of the vertical axis (x,y):";
const char* const kClickedFirstAxis = "Please specify the end of the horizontal axis (x, y):";
const char* const kClickedSecondAxis = "Specify the end of the vertical axis (x, y):";
const char* const kLengthsCentre =
    "Enter the coordinates of the center of the ellipse (point coordinate format, comma "
    "segmentation x, y):";
const char* const kLengths =
    "Please enter the length of the horizontal axis and the longitudinal axis:";
const char* const kClickedLengths =
    "Please input the length of the transverse axis and the longitudinal axis:";
const char* const kPointError = "point coordinate input error,please re-enter!";
const char* const kCommandError = "Command input error,please re-enter!";
const char* const kDrawn = "Command:Drawing Ellipse";

// 158 samples by the fixed step of 2 acos(0.9998) radian, turned by `angle` about the centre,
// and the first again.
Ring ellipse(double cx, double cy, double a, double b, double angle) {
    const double step = 2.0 * std::acos(1.0 - a / 5000.0 / a);
    Ring ring;
    for (int i = 0; i < 158; ++i) {
        const double u = std::cos(i * step) * a, v = std::sin(i * step) * b;
        ring.push_back({u * std::cos(angle) - v * std::sin(angle) + cx,
                        u * std::sin(angle) + v * std::cos(angle) + cy});
    }
    ring.push_back(ring.front());
    return ring;
}

class Ellipse : public ShapeSession {
protected:
    void SetUp() override {
        ShapeSession::SetUp();
        start("TLCmdDigitizeEllipse");
    }
    Ring lastRing() const {
        const std::vector<int> ids = parcels->GetDatasource()->GetIds();
        return ids.empty() ? Ring() : ringOf(parcels, ids.back());
    }
};

TEST_F(Ellipse, TypedCentreAndAxisEnds) {
    EXPECT_TRUE(type("1"));
    type("200,300");
    type("300;300");
    type("300,300");
    type("200,350");

    // The first axis along x, within the 0.0001 radian that count as no turn.
    const Ring ring = committed();
    EXPECT_EQ(ring.size(), 159u);
    expectRing(ring, ellipse(200, 300, 100, 50, 0));
    EXPECT_EQ(prompts(), (Texts{kCentre, kFirstAxis, kFirstAxis, kSecondAxis, kMenu}));
    EXPECT_EQ(messages(), (Texts{kPointError, kDrawn}));
    EXPECT_EQ(undoSteps(), 1);
    EXPECT_EQ(map->editor()->LastCommittedLabel().toStdString(), "add feature");
    EXPECT_TRUE(band()->Parts().empty());
    ASSERT_TRUE(map->editor()->Undo());
    EXPECT_EQ(featureCount(), 0);
}

TEST_F(Ellipse, TheFirstAxisTurnsItAndTheSecondGivesOnlyItsLength) {
    type("1");
    type("0,0");
    type("30,40");
    // Not at right angles to the first axis, and longer: the ellipse is not re-ordered.
    type("80,0");
    const Ring ring = committed();
    expectRing(ring, ellipse(0, 0, 50, 80, std::atan2(40.0, 30.0)));
    EXPECT_NEAR(ring.front().first, 30, 1e-9);
    EXPECT_NEAR(ring.front().second, 40, 1e-9);
}

TEST_F(Ellipse, TypedAxisLengthsWhateverTheSignOrSize) {
    type("2");
    EXPECT_EQ(prompt(), kLengthsCentre);
    type("100,100");
    type("3.5");
    EXPECT_EQ(messages(), Texts{kCommandError});
    type("40,-20");
    expectRing(lastRing(), ellipse(100, 100, 40, 20, 0));

    // A negative length gives the same ellipse, starting on the other side.
    type("2");
    type("100,100");
    type("-40,20");
    expectRing(lastRing(), ellipse(100, 100, 40, 20, std::acos(-1.0)));
    EXPECT_NEAR(lastRing().front().first, 60, 1e-9);

    // One fixed step for every size.
    type("2");
    type("0,0");
    type("1,1");
    EXPECT_EQ(lastRing().size(), 159u);
    type("2");
    type("0,0");
    type("100000,100000");
    EXPECT_EQ(lastRing().size(), 159u);
    EXPECT_EQ(featureCount(), 4);
    EXPECT_EQ(undoSteps(), 4);
    EXPECT_EQ(prompts(),
              (Texts{kLengthsCentre, kLengths, kLengths, kMenu, kLengthsCentre, kLengths, kMenu,
                     kLengthsCentre, kLengths, kMenu, kLengthsCentre, kLengths, kMenu}));
}

TEST_F(Ellipse, ClickedAxisEndsFollowThePointer) {
    click(400, 300);
    EXPECT_EQ(prompt(), kClickedFirstAxis);

    // First the axis as a line from the centre.
    move(500, 300);
    EXPECT_EQ(band()->GetType(), TLRubberBand::LineBand);
    EXPECT_EQ(bandPoints(), (Path{{400, 300}, {500, 300}}));
    click(500, 300);
    EXPECT_EQ(prompt(), kClickedSecondAxis);
    EXPECT_EQ(band()->GetType(), TLRubberBand::PolygonBand);

    // Then the ellipse through the pointer, its first vertex twice and the centre last.
    move(420, 350);
    Ring preview = bandPoints();
    ASSERT_EQ(preview.size(), 161u);
    EXPECT_EQ(preview.back(), (XY{400, 300}));
    preview.pop_back();
    EXPECT_EQ(preview[0], preview[1]);
    preview.erase(preview.begin());
    const double b = std::sqrt(float(20 * 20 + 50 * 50));
    expectRing(preview, ellipse(400, 300, 100, b, 0));

    click(400, 360);
    expectRing(committed(), ellipse(400, 300, 100, 60, 0));
    EXPECT_EQ(prompts(), (Texts{kClickedFirstAxis, kClickedSecondAxis, kMenu}));
    EXPECT_EQ(messages(), Texts{kDrawn});
}

TEST_F(Ellipse, ATypedCentreShowsTheAxisUnderThePointerToo) {
    type("1");
    type("100,100");
    move(150, 100);
    EXPECT_EQ(bandPoints(), (Path{{100, 100}, {150, 100}}));
    click(150, 100);
    click(100, 130);
    expectRing(committed(), ellipse(100, 100, 50, 30, 0));
}

TEST_F(Ellipse, AClickedCentreTakesTypedLengths) {
    type("2");
    click(100, 100);
    EXPECT_EQ(prompt(), kClickedLengths);
    // Further presses do nothing until the lengths are typed.
    buddy->ClearEvents();
    click(300, 300);
    EXPECT_TRUE(buddy->Events().empty());
    type("30,10");
    expectRing(committed(), ellipse(100, 100, 30, 10, 0));
}

TEST_F(Ellipse, MenuNumbersWithoutAModeAreRefusedUntilPickedAgain) {
    type("3");
    type("1");
    click(100, 100);
    EXPECT_TRUE(dispatcher->DoubleClick(TLLeftButton, 100, 100));
    type("100,100");
    EXPECT_EQ(messages(), (Texts{kCommandError, kCommandError, kCommandError}));
    EXPECT_EQ(featureCount(), 0);

    pick("TLCmdDigitizeEllipse");
    buddy->ClearEvents();
    type("1");
    EXPECT_EQ(prompt(), kCentre);
}

TEST_F(Ellipse, TwoZeroAxesWriteNothing) {
    type("2");
    type("100,100");
    type("0,0");
    EXPECT_EQ(featureCount(), 0);
    EXPECT_EQ(messages(), Texts{kDrawn});
    EXPECT_EQ(prompt(), kMenu);
    EXPECT_FALSE(map->editor()->IsOperationOpen());
}

}  // namespace
}  // namespace TMObjects
