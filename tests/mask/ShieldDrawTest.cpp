// The rectangle and polygon shield tools and the clear tool: the mask they leave on the view, in
// map coordinates, the picture drawn while the pointer moves, and what the view is asked to redraw.
#include "ShieldSession.h"

namespace TMObjects {
namespace {

const int kControl = 0x4000000;

using Calls = std::vector<std::string>;

class ShieldDrawTest : public ShieldSession {};

TEST_F(ShieldDrawTest, RectangleDraggedBetweenTwoPressesMasksTheView) {
    pick("TLToolShieldRectangle");
    EXPECT_EQ(recorder->calls, Calls({"update view"}));
    EXPECT_EQ(view->clipPolygon(), nullptr);

    click(100, 200);
    EXPECT_TRUE(recorder->sketches.empty()) << "nothing to draw before the first corner";
    move(300, 450);
    expectSketch(3, {{100, 200}, {300, 200}, {300, 450}, {100, 450}, {100, 200}});
    move(250, 400);
    expectSketch(3, {{100, 200}, {250, 200}, {250, 400}, {100, 400}, {100, 200}});

    recorder->calls.clear();
    press(300, 450);
    // Outer rings of a clip polygon run counter-clockwise.
    expectRings(clipRings(), {{{100, 450}, {100, 200}, {300, 200}, {300, 450}, {100, 450}}});
    EXPECT_EQ(recorder->calls, Calls({"clip", "update view", "update view"}));
    expectSilentAndNothingWritten();

    // The corners may be given the other way round; the next press starts a new rectangle
    // whose mask replaces the first.
    click(700, 500);
    move(600, 100);
    press(600, 100);
    expectRings(clipRings(), {{{700, 100}, {700, 500}, {600, 500}, {600, 100}, {700, 100}}});
}

TEST_F(ShieldDrawTest, RectangleOfFivePixelsOrLessEitherWayKeepsWaitingWithItsFirstCorner) {
    pick("TLToolShieldRectangle");
    click(100, 200);
    recorder->calls.clear();
    press(105, 400);  // five pixels across
    press(400, 195);  // five pixels up or down
    press(102, 202);
    EXPECT_TRUE(recorder->calls.empty());
    EXPECT_EQ(view->clipPolygon(), nullptr);

    move(106, 194);
    expectSketch(3, {{100, 200}, {106, 200}, {106, 194}, {100, 194}, {100, 200}});
    press(106, 194);
    expectRings(clipRings(), {{{100, 194}, {106, 194}, {106, 200}, {100, 200}, {100, 194}}});
}

TEST_F(ShieldDrawTest, RectangleTakesADoubleClickAsSecondCornerAndOnlyTheLeftButton) {
    pick("TLToolShieldRectangle");
    doubleClick(300, 300);  // no first corner yet
    press(100, 100, TLRightButton);
    move(300, 300);
    EXPECT_TRUE(recorder->sketches.empty());

    click(100, 100);
    press(300, 300, TLRightButton);
    dispatcher->DoubleClick(TLRightButton, 300, 300);
    EXPECT_EQ(view->clipPolygon(), nullptr);

    EXPECT_TRUE(doubleClick(300, 300));
    expectRings(clipRings(), {{{100, 300}, {100, 100}, {300, 100}, {300, 300}, {100, 300}}});
    expectSilentAndNothingWritten();
}

TEST_F(ShieldDrawTest, PolygonOfClickedVerticesMasksOnDoubleClick) {
    pick("TLToolShieldPolygon");
    click(100, 100);
    move(400, 120);
    expectSketch(1, {{100, 100}, {400, 120}});
    click(400, 100);
    move(260, 390);
    expectSketch(3, {{100, 100}, {400, 100}, {260, 390}, {100, 100}});

    click(250, 400);
    recorder->calls.clear();
    EXPECT_TRUE(doubleClick(250, 400));
    expectRings(clipRings(), {{{100, 100}, {400, 100}, {250, 400}, {100, 100}}});
    EXPECT_EQ(recorder->calls, Calls({"clip", "update view"}));
    expectSilentAndNothingWritten();

    // The tool goes on: the next vertex starts a new polygon.
    click(500, 500);
    move(600, 550);
    expectSketch(1, {{500, 500}, {600, 550}});
}

TEST_F(ShieldDrawTest, PolygonNeedsThreeVerticesOffOneLine) {
    pick("TLToolShieldPolygon");
    click(100, 100);
    click(300, 100);
    doubleClick(300, 100);
    EXPECT_EQ(view->clipPolygon(), nullptr);

    // A third vertex on the same line encloses nothing either; a fourth off it does.
    click(500, 100);
    doubleClick(500, 100);
    EXPECT_EQ(view->clipPolygon(), nullptr);
    click(300, 300);
    doubleClick(300, 300);
    expectRings(clipRings(), {{{100, 100}, {300, 100}, {500, 100}, {300, 300}, {100, 100}}});
}

TEST_F(ShieldDrawTest, PolygonSidesRunStraightWhileControlIsHeld) {
    pick("TLToolShieldPolygon");
    buddy->SetKeyboardModifiers(kControl);
    click(100, 100);  // the first vertex has nothing to run straight from
    move(300, 110);
    expectSketch(1, {{100, 100}, {300, 100}});
    click(300, 110);
    move(310, 300);
    expectSketch(3, {{100, 100}, {300, 100}, {300, 300}, {100, 100}});
    click(310, 300);
    doubleClick(310, 300);
    expectRings(clipRings(), {{{100, 100}, {300, 100}, {300, 300}, {100, 100}}});
}

TEST_F(ShieldDrawTest, MaskOutlivesTheToolThatSetItAndTheClearToolRemovesIt) {
    pick("TLToolShieldRectangle");
    click(100, 100);
    move(300, 300);
    press(300, 300);
    dispatcher->Deactivate();
    ASSERT_NE(view->clipPolygon(), nullptr);

    // A tool left behind is deaf until it is picked again.
    TLTool* rectangle = poolTool("TLToolShieldRectangle");
    EXPECT_FALSE(rectangle->OnMouseDown(TLLeftButton, 10, 10));
    EXPECT_FALSE(rectangle->OnMouseMove(TLNoButton, 500, 500));

    forget();
    pick("TLToolShieldAreasClear");
    EXPECT_TRUE(poolTool("TLToolShieldAreasClear")->IsCmd());
    EXPECT_EQ(view->clipPolygon(), nullptr);
    EXPECT_EQ(recorder->calls, Calls({"clip", "update view"}));
    expectSilentAndNothingWritten();

    // With no mask set it clears all the same.
    forget();
    pick("TLToolShieldAreasClear");
    EXPECT_EQ(view->clipPolygon(), nullptr);
    EXPECT_EQ(recorder->calls, Calls({"clip", "update view"}));
}

}  // namespace
}  // namespace TMObjects
