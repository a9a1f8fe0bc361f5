#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "SurveySession.h"

namespace TMObjects {

namespace {

const char* const kTitle = "Offset distance measurement";

class OffsetDistanceTest : public SurveySession {
protected:
    void SetUp() override {
        SurveySession::SetUp();
        roads = addLayer("roads", TLLayer::LineLayer);
        addLine(roads, {{0, 0}, {800, 600}});
        edit(roads);
    }

    TLTool* tool() { return poolTool("TLDigitizeOffsetDistance"); }
    QDialog* dialog() const { return form(kTitle); }
    std::string titleOf(const char* name) const {
        QWidget* box = widget(kTitle, name);
        return box ? box->property("title").toString().toStdString() : "(none)";
    }
    QString field(const char* name) const {
        auto* edit = qobject_cast<QLineEdit*>(widget(kTitle, name));
        return edit ? edit->text() : QString("(none)");
    }

    void typePoints(const char* ax, const char* ay, const char* bx, const char* by) {
        set("mLineEditAAbscissa", ax);
        set("mLineEditAOrdinate", ay);
        set("mLineEditBAbscissa", bx);
        set("mLineEditBOrdinate", by);
    }
    // "Calculate P", and what the form then shows of P.
    XY calculate() {
        clickButton("mPushButtonCalculatePointP");
        return {field("mLineEditPAbscissa").toDouble(), field("mLineEditPOrdinate").toDouble()};
    }
    void expectP(const XY& p, const XY& expected) {
        EXPECT_NEAR(p.first, expected.first, 1e-6);
        EXPECT_NEAR(p.second, expected.second, 1e-6);
    }

    TLFeatureLayer* roads = nullptr;
};

TEST_F(OffsetDistanceTest, ActivationShowsAnEmptyFormBesideTheMap) {
    pick("TLDigitizeOffsetDistance");
    QDialog* form = dialog();
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->parentWidget(), mainWindow.get());
    EXPECT_EQ(form->pos(), QPoint(250, 80));
    // A dialog with a close button, and neither minimise nor maximise.
    EXPECT_EQ(form->windowType(), Qt::Dialog);
    EXPECT_TRUE(form->windowFlags() & Qt::WindowCloseButtonHint);
    EXPECT_FALSE(form->windowFlags() & Qt::WindowMinMaxButtonsHint);
    // The form's own size, grown only where the fonts need more room.
    EXPECT_GE(form->width(), 482);
    EXPECT_GE(form->height(), 468);

    EXPECT_EQ(titleOf("mGroupBoxKnownPoint"), "Known point");
    EXPECT_EQ(textOf("mPushButtonA"), "A");
    EXPECT_EQ(textOf("mPushButtonB"), "B");
    EXPECT_EQ(widget(kTitle, "mPushButtonA")->size(), QSize(21, 23));
    EXPECT_EQ(titleOf("mGroupBoxSketchMap"), "Sketch map");
    EXPECT_EQ(titleOf("mGroupBoxDistanceL1"), "Distance L1");
    EXPECT_EQ(textOf("mRadioButtonDisToA"), "on");
    EXPECT_EQ(textOf("mRadioButtonDisToB"), "off");
    EXPECT_EQ(titleOf("mGroupBoxDistanceL2"), "Distance L2");
    EXPECT_EQ(widget(kTitle, "mRadioButtonPtoAB")->property("text").toString(),
              "Obtain perpendicular foot from P to line AB");
    EXPECT_EQ(textOf("mRadioButtonPtoAB"), "on");
    EXPECT_EQ(titleOf("mGroupBoxTheCoordinateOfP"), "Coordinates of point P");
    EXPECT_EQ(textOf("mPushButtonCalculatePointP"), "Calculate P");
    EXPECT_EQ(textOf("mPushButtonDrawPointP"), "Draw P");
    for (const char* name :
         {"mLineEditAAbscissa", "mLineEditAOrdinate", "mLineEditBAbscissa", "mLineEditBOrdinate",
          "mLineEditL1Length", "mLineEditL2Length", "mLineEditPAbscissa", "mLineEditPOrdinate"})
        EXPECT_EQ(field(name), "") << name;
    EXPECT_FALSE(widget(kTitle, "mLineEditL2Length")->isEnabled()) << "no L2 for the foot";
    EXPECT_FALSE(widget(kTitle, "mLineEditPAbscissa")->isEnabled());
    EXPECT_FALSE(widget(kTitle, "mLineEditPOrdinate")->isEnabled());

    // Nothing goes through the command line.
    EXPECT_EQ(buddy->RegisteredTool(), nullptr);
    EXPECT_TRUE(prompts().empty());
    EXPECT_TRUE(messages().empty());
}

TEST_F(OffsetDistanceTest, WithoutAnEditLayerTheToolEndsSilently) {
    edit(nullptr);
    pick("TLDigitizeOffsetDistance");
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_FALSE(tool()->isActive());
    EXPECT_TRUE(messages().empty());
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
}

TEST_F(OffsetDistanceTest, PickButtonsTakeTheNextLeftClick) {
    pick("TLDigitizeOffsetDistance");
    clickButton("mPushButtonA");
    EXPECT_FALSE(dialog()->isVisible()) << "the form steps aside for the click";

    // A right click leaves the pick pending and the form away.
    click(300, 300, TLRightButton);
    EXPECT_FALSE(dialog()->isVisible());

    click(100, 150);
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_EQ(field("mLineEditAAbscissa"), "100.000000");
    EXPECT_EQ(field("mLineEditAOrdinate"), "150.000000");

    // The pick stays until another button: the next click moves A again.
    click(120, 160);
    EXPECT_EQ(field("mLineEditAAbscissa"), "120.000000");
    EXPECT_EQ(field("mLineEditAOrdinate"), "160.000000");
    EXPECT_EQ(field("mLineEditBAbscissa"), "");

    clickButton("mPushButtonB");
    click(520, 460);
    EXPECT_EQ(field("mLineEditBAbscissa"), "520.000000");
    EXPECT_EQ(field("mLineEditBOrdinate"), "460.000000");
    EXPECT_EQ(field("mLineEditAAbscissa"), "120.000000");

    // The double click itself adds nothing to what its press picked.
    ASSERT_TRUE(doubleClick(530, 470));
    EXPECT_EQ(field("mLineEditBAbscissa"), "520.000000");
    EXPECT_EQ(field("mLineEditBOrdinate"), "460.000000");

    // Picked points count like typed ones.
    set("mLineEditL1Length", "0.5");
    expectP(calculate(), {120 + 0.5 * 0.8, 160 + 0.5 * 0.6});
    EXPECT_EQ(featureCount(roads), 1);
}

TEST_F(OffsetDistanceTest, ReadOnlyEditLayerRefusesThePickAndBringsTheFormBack) {
    roads->SetEditable(false);
    pick("TLDigitizeOffsetDistance");
    clickButton("mPushButtonA");
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_EQ(field("mLineEditAAbscissa"), "");
    EXPECT_TRUE(tool()->isActive());
}

TEST_F(OffsetDistanceTest, ClosingTheWindowKeepsTheToolAndAClickWithoutPickBringsNothingBack) {
    pick("TLDigitizeOffsetDistance");
    set("mLineEditL1Length", "7");
    dialog()->close();
    EXPECT_FALSE(dialog()->isVisible());
    EXPECT_TRUE(tool()->isActive());

    EXPECT_TRUE(dispatcher->MouseDown(TLLeftButton, 400, 300));
    EXPECT_FALSE(dialog()->isVisible());
    EXPECT_EQ(field("mLineEditAAbscissa"), "");
    EXPECT_EQ(field("mLineEditL1Length"), "7");
}

TEST_F(OffsetDistanceTest, EscapeEndsToolAndDialog) {
    pick("TLDigitizeOffsetDistance");
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(dialog(), &escape);
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_FALSE(tool()->isActive());
    // Events that still reach it are refused and harm nothing.
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
    EXPECT_EQ(featureCount(roads), 1);

    // Picked again without Init, it comes back with a fresh form.
    tool()->activate();
    ASSERT_NE(dialog(), nullptr);
    EXPECT_TRUE(dialog()->isVisible());
}

TEST_F(OffsetDistanceTest, FootAndSidesOfAHorizontalBase) {
    pick("TLDigitizeOffsetDistance");
    typePoints("0", "0", "10", "0");
    set("mLineEditL1Length", "4");
    expectP(calculate(), {4, 0});
    EXPECT_EQ(field("mLineEditPAbscissa"), "4.000000");
    EXPECT_EQ(field("mLineEditPOrdinate"), "0.000000");

    set("mRadioButtonABLeft", "on");
    EXPECT_TRUE(widget(kTitle, "mLineEditL2Length")->isEnabled());
    set("mLineEditL2Length", "3");
    expectP(calculate(), {4, 3});
    set("mRadioButtonABRight", "on");
    expectP(calculate(), {4, -3});
    EXPECT_EQ(field("mLineEditPOrdinate"), "-3.000000");

    // Measured from B, L1 runs back towards A.
    set("mRadioButtonDisToB", "on");
    expectP(calculate(), {6, -3});
    // The foot does not look at L2, which keeps its text but cannot be typed into.
    set("mRadioButtonPtoAB", "on");
    EXPECT_FALSE(widget(kTitle, "mLineEditL2Length")->isEnabled());
    EXPECT_EQ(field("mLineEditL2Length"), "3");
    expectP(calculate(), {6, 0});

    // L1 may reach B, and no further.
    set("mRadioButtonDisToA", "on");
    set("mLineEditL1Length", "10");
    expectP(calculate(), {10, 0});
    EXPECT_TRUE(warnings().empty());
    set("mLineEditL1Length", "10.000001");
    calculate();
    EXPECT_EQ(warnings(),
              std::vector<std::string>{"The length value of L1 is greater than that of AB. Logical "
                                       "error, please re-enter and calculate."});
    EXPECT_EQ(field("mLineEditPAbscissa"), "10.000000") << "a refused value leaves P as it was";
}

// "AB left" and "AB right" name the sides only while AB rises to the right or falls to the left;
// otherwise they swap.
TEST_F(OffsetDistanceTest, SideWordsSwapOutsideTheFirstAndThirdQuadrants) {
    pick("TLDigitizeOffsetDistance");
    set("mRadioButtonABLeft", "on");

    // Falling to the right: "AB left" lies on the right of A to B.
    typePoints("0", "0", "6", "-8");
    set("mLineEditL1Length", "5");
    set("mLineEditL2Length", "5");
    expectP(calculate(), {-1, -7});
    set("mRadioButtonABRight", "on");
    expectP(calculate(), {7, -1});

    // Vertical, going up: "AB left" again on the right.
    set("mRadioButtonABLeft", "on");
    typePoints("200", "100", "200", "400");
    set("mLineEditL1Length", "100");
    set("mLineEditL2Length", "50");
    expectP(calculate(), {250, 200});

    // Horizontal, going west, counts as rising: the word holds, left is south.
    typePoints("10", "0", "0", "0");
    set("mLineEditL1Length", "4");
    set("mLineEditL2Length", "3");
    expectP(calculate(), {6, -3});
    EXPECT_TRUE(warnings().empty());
}

TEST_F(OffsetDistanceTest, MissingOrImpossibleValuesAreRefusedInOrder) {
    pick("TLDigitizeOffsetDistance");
    set("mRadioButtonABLeft", "on");
    calculate();
    typePoints("5", "5", "5", "5");
    set("mLineEditL1Length", "3");
    set("mLineEditL2Length", "0");
    calculate();
    set("mLineEditL2Length", "2");
    calculate();
    // The foot needs no L2.
    set("mRadioButtonPtoAB", "on");
    set("mLineEditL1Length", "0");
    calculate();

    EXPECT_EQ(warnings(),
              (std::vector<std::string>{
                  "Please input first Length value of L1 Length value of L2 Then calculate the "
                  "coordinates of the point p!",
                  "Please input first Length value of L2 Then calculate the coordinates of the "
                  "point p!",
                  "A and B are coincident, please re-enter and calculate.",
                  "Please input first Length value of L1 Then calculate the coordinates of the "
                  "point p!"}));
    EXPECT_EQ(field("mLineEditPAbscissa"), "");
    EXPECT_EQ(field("mLineEditPOrdinate"), "");
}

TEST_F(OffsetDistanceTest, LengthFieldsTakePositiveNumbersOnly) {
    pick("TLDigitizeOffsetDistance");
    set("mLineEditL1Length", "-3");
    EXPECT_EQ(field("mLineEditL1Length"), "") << "no sign";
    set("mLineEditL1Length", "abc");
    EXPECT_EQ(field("mLineEditL1Length"), "");
    set("mLineEditL1Length", "12.25");
    EXPECT_EQ(field("mLineEditL1Length"), "12.25");
    // Any character stands for the decimal point; such a text reads as no number.
    set("mLineEditL1Length", "1,5");
    EXPECT_EQ(field("mLineEditL1Length"), "1,5");
    typePoints("0", "0", "10", "0");
    calculate();
    EXPECT_EQ(warnings(), std::vector<std::string>{"Please input first Length value of L1 Then "
                                                   "calculate the coordinates of the point p!"});
    // Coordinates have no validator; bad text reads as 0.
    typePoints("x", "y", "10", "0");
    set("mLineEditL1Length", "2");
    expectP(calculate(), {2, 0});
}

TEST_F(OffsetDistanceTest, DrawPointWritesToTheScratchLayerAndEndsTheTool) {
    pick("TLDigitizeOffsetDistance");
    clickButton("mPushButtonA");
    click(100, 100);
    clickButton("mPushButtonB");
    click(400, 500);
    set("mLineEditL1Length", "250");
    set("mRadioButtonABRight", "on");
    set("mLineEditL2Length", "100");
    clickButton("mPushButtonDrawPointP");

    // AB runs (0.6, 0.8) for 500; right of it is (0.8, -0.6).
    TLFeatureLayer* scratch = layerNamed("MeasurePointLayer");
    ASSERT_NE(scratch, nullptr);
    EXPECT_EQ(map->GetLayers(true).front().get(), scratch) << "on top of the map";
    EXPECT_EQ(buddy->ScratchPointLayerId(), scratch->GetLayerId());
    EXPECT_EQ(scratch->GetLayerType(), TLLayer::PointLayer);
    ASSERT_EQ(pointsOf(scratch).size(), 1u);
    EXPECT_NEAR(pointsOf(scratch)[0].first, 250 + 80, 1e-6);
    EXPECT_NEAR(pointsOf(scratch)[0].second, 300 - 60, 1e-6);
    EXPECT_EQ(featureCount(roads), 1) << "the edit layer is left alone";
    EXPECT_EQ(map->editor()->UndoCount(), 1);
    EXPECT_EQ(map->editor()->UndoLabel(), "add feature");

    EXPECT_EQ(dialog(), nullptr) << "drawing ends the tool";
    EXPECT_FALSE(tool()->isActive());
    EXPECT_TRUE(warnings().empty());

    // The next run adds to the same layer.
    pick("TLDigitizeOffsetDistance");
    typePoints("0", "0", "10", "0");
    set("mLineEditL1Length", "4");
    clickButton("mPushButtonDrawPointP");
    EXPECT_EQ(map->GetLayerCount(), 2);
    EXPECT_EQ(pointsOf(scratch), (std::vector<XY>{{330, 240}, {4, 0}}));

    ASSERT_TRUE(map->editor()->Undo());
    EXPECT_EQ(featureCount(scratch), 1);

    // Once the layer has left the map, a new one is made.
    const int scratchId = scratch->GetLayerId();
    map->RemoveLayer(scratch);
    pick("TLDigitizeOffsetDistance");
    typePoints("0", "0", "10", "0");
    set("mLineEditL1Length", "5");
    clickButton("mPushButtonDrawPointP");
    TLFeatureLayer* fresh = layerNamed("MeasurePointLayer");
    ASSERT_NE(fresh, nullptr);
    EXPECT_NE(fresh->GetLayerId(), scratchId);
    EXPECT_EQ(buddy->ScratchPointLayerId(), fresh->GetLayerId());
    EXPECT_EQ(pointsOf(fresh), (std::vector<XY>{{5, 0}}));
}

TEST_F(OffsetDistanceTest, RefusedDrawLeavesToolAndFormOpen) {
    pick("TLDigitizeOffsetDistance");
    typePoints("0", "0", "10", "0");
    set("mLineEditL1Length", "11");
    clickButton("mPushButtonDrawPointP");
    EXPECT_EQ(warnings().size(), 1u);
    ASSERT_NE(dialog(), nullptr);
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_TRUE(tool()->isActive());
    EXPECT_EQ(layerNamed("MeasurePointLayer"), nullptr);
    EXPECT_EQ(map->editor()->UndoCount(), 0);

    // Draw P does not fill in P.
    set("mLineEditL1Length", "3");
    clickButton("mPushButtonDrawPointP");
    EXPECT_EQ(pointsOf(layerNamed("MeasurePointLayer")), (std::vector<XY>{{3, 0}}));
}

TEST_F(OffsetDistanceTest, ScratchLayerTakesTheMapSystem) {
    map->SetSpatialReference(TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:3857"));
    pick("TLDigitizeOffsetDistance");
    typePoints("0", "0", "10", "0");
    set("mLineEditL1Length", "4");
    clickButton("mPushButtonDrawPointP");
    TLFeatureLayer* scratch = layerNamed("MeasurePointLayer");
    ASSERT_NE(scratch, nullptr);
    ASSERT_TRUE(scratch->GetSpatialReference());
    EXPECT_TRUE(scratch->IsSameCoordinateSystem(map->GetSpatialReference().get()));
    EXPECT_EQ(pointsOf(scratch), (std::vector<XY>{{4, 0}}));
}

}  // namespace

}  // namespace TMObjects
