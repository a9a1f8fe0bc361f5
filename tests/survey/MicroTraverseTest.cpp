#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <cmath>

#include "SurveySession.h"

namespace TMObjects {

namespace {

const char* const kTitle = "Micro-traverse";
const char* const kCoincident =
    "The two points are coincident. Please check whether the input is correct.";

class MicroTraverseTest : public SurveySession {
protected:
    void SetUp() override {
        SurveySession::SetUp();
        roads = addLayer("roads", TLLayer::LineLayer);
        addLine(roads, {{0, 0}, {800, 600}});
        edit(roads);
    }

    TLTool* tool() { return poolTool("TLDigitizeMicroTraverse"); }
    QDialog* dialog() const { return form(kTitle); }
    std::string titleOf(const char* name) const {
        QWidget* box = widget(kTitle, name);
        return box ? box->property("title").toString().toStdString() : "(none)";
    }
    QString field(const char* name) const {
        auto* edit = qobject_cast<QLineEdit*>(widget(kTitle, name));
        return edit ? edit->text() : QString("(none)");
    }
    bool hasLabel(const char* text) const {
        for (QLabel* l : dialog()->findChildren<QLabel*>())
            if (l->text() == text) return true;
        return false;
    }

    void typeForm(const char* ax, const char* ay, const char* bx, const char* by, const char* angle,
                  const char* distance) {
        set("mLineEditAAbscissa", ax);
        set("mLineEditAOrdinate", ay);
        set("mLineEditBAbscissa", bx);
        set("mLineEditBOrdinate", by);
        set("mLineEditAngle", angle);
        set("mLineEditDistance", distance);
    }
    // A fresh run of the tool from A = (0, 0) and B = (10, 0): the point drawn, the last of the
    // scratch layer.
    XY drawFromHorizontalBase(const char* angle, const char* distance) {
        pick("TLDigitizeMicroTraverse");
        typeForm("0", "0", "10", "0", angle, distance);
        clickButton("mPushButtonDrawPointP");
        const std::vector<XY> points = pointsOf(layerNamed("MeasurePointLayer"));
        return points.empty() ? XY{NAN, NAN} : points.back();
    }
    void expectP(const XY& p, const XY& expected) {
        EXPECT_NEAR(p.first, expected.first, 1e-6);
        EXPECT_NEAR(p.second, expected.second, 1e-6);
    }
    Path band() const {
        const auto& bands = view->RubberBands();
        return bands.empty() ? Path{} : CommandSession::pointsOf(bands.front());
    }

    TLFeatureLayer* roads = nullptr;
};

TEST_F(MicroTraverseTest, ActivationShowsAnEmptyFormWithoutPointP) {
    pick("TLDigitizeMicroTraverse");
    QDialog* form = dialog();
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->parentWidget(), mainWindow.get());
    EXPECT_EQ(form->pos(), QPoint(250, 80));
    EXPECT_EQ(form->windowType(), Qt::Dialog);
    EXPECT_TRUE(form->windowFlags() & Qt::WindowCloseButtonHint);
    EXPECT_FALSE(form->windowFlags() & Qt::WindowMinMaxButtonsHint);
    EXPECT_GE(form->width(), 441);
    EXPECT_GE(form->height(), 348);

    EXPECT_EQ(titleOf("mGroupBoxSketchMap"), "Sketch map");
    EXPECT_GE(widget(kTitle, "mLabelSketchMap")->minimumWidth(), 161);
    EXPECT_GE(widget(kTitle, "mLabelSketchMap")->minimumHeight(), 101);
    EXPECT_EQ(titleOf("mGroupBoxStartingPointA"), "Starting point A");
    EXPECT_EQ(titleOf("mGroupBoxEndPointB"), "End point B");
    EXPECT_EQ(titleOf("mGroupBoxAngle"), "Angle a");
    EXPECT_EQ(titleOf("mGroupBoxDistance"), "Distance d");
    EXPECT_EQ(textOf("mPushButtonA"), "A");
    EXPECT_EQ(textOf("mPushButtonB"), "B");
    EXPECT_EQ(textOf("mPushButtonAngle"), "a");
    EXPECT_EQ(textOf("mPushButtonDrawPointP"), "Draw P");
    EXPECT_EQ(textOf("mPushButtonClose"), "Close");
    for (const char* text : {"Angle   ", "Degree", "    Distance", "Abscissa", "Ordinate", "m"})
        EXPECT_TRUE(hasLabel(text)) << text;
    for (const char* name : {"mLineEditAAbscissa", "mLineEditAOrdinate", "mLineEditBAbscissa",
                             "mLineEditBOrdinate", "mLineEditAngle", "mLineEditDistance"})
        EXPECT_EQ(field(name), "") << name;
    EXPECT_EQ(widget(kTitle, "mPushButtonCalculatePointP"), nullptr);
    EXPECT_EQ(widget(kTitle, "mLineEditPAbscissa"), nullptr);

    EXPECT_EQ(buddy->RegisteredTool(), nullptr);
    EXPECT_TRUE(prompts().empty());
    EXPECT_TRUE(messages().empty());
}

TEST_F(MicroTraverseTest, WithoutAnEditLayerTheToolEndsSilently) {
    edit(nullptr);
    pick("TLDigitizeMicroTraverse");
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_FALSE(tool()->isActive());
    EXPECT_TRUE(view->RubberBands().empty());
    EXPECT_FALSE(dispatcher->MouseDown(TLLeftButton, 100, 100));
}

// The turn at B is clockwise from the leg back to A: 180 carries straight on, 0 goes back.
TEST_F(MicroTraverseTest, LegsTurnedAtTheEndOfAHorizontalBase) {
    expectP(drawFromHorizontalBase("90", "5"), {10, 5});
    expectP(drawFromHorizontalBase("180", "5"), {15, 0});
    expectP(drawFromHorizontalBase("0", "5"), {5, 0});
    expectP(drawFromHorizontalBase("270", "5"), {10, -5});
    // No validator on the angle: a bad text reads as 0, back along B to A.
    expectP(drawFromHorizontalBase("north", "5"), {5, 0});
    // No distance is no refusal: P is B.
    expectP(drawFromHorizontalBase("90", ""), {10, 0});
    EXPECT_TRUE(warnings().empty());
    EXPECT_EQ(featureCount(layerNamed("MeasurePointLayer")), 6);
}

TEST_F(MicroTraverseTest, SlantedBaseTurnsLeftOfTheWayFromAToB) {
    // AB runs (0.6, 0.8); a quarter turn clockwise from the way back gives (-0.8, 0.6).
    pick("TLDigitizeMicroTraverse");
    typeForm("0", "0", "3", "4", "90", "10");
    clickButton("mPushButtonDrawPointP");
    const std::vector<XY> points = pointsOf(layerNamed("MeasurePointLayer"));
    ASSERT_EQ(points.size(), 1u);
    expectP(points[0], {-5, 10});
}

TEST_F(MicroTraverseTest, DistanceTakesPositiveNumbersOnlyAndTheAngleAnyText) {
    pick("TLDigitizeMicroTraverse");
    set("mLineEditDistance", "-3");
    EXPECT_EQ(field("mLineEditDistance"), "");
    set("mLineEditDistance", "2.5");
    EXPECT_EQ(field("mLineEditDistance"), "2.5");
    set("mLineEditAngle", "-45x");
    EXPECT_EQ(field("mLineEditAngle"), "-45x");
}

TEST_F(MicroTraverseTest, CoincidentPointsAreRefusedAndTheFormStays) {
    pick("TLDigitizeMicroTraverse");
    typeForm("7", "7", "7", "7", "90", "5");
    clickButton("mPushButtonDrawPointP");
    EXPECT_EQ(warnings(), std::vector<std::string>{kCoincident});
    ASSERT_NE(dialog(), nullptr);
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_TRUE(tool()->isActive());
    EXPECT_EQ(layerNamed("MeasurePointLayer"), nullptr);
    EXPECT_EQ(map->editor()->UndoCount(), 0);

    set("mLineEditBAbscissa", "10");
    clickButton("mPushButtonDrawPointP");
    EXPECT_EQ(pointsOf(layerNamed("MeasurePointLayer")), (std::vector<XY>{{10, 12}}));
}

TEST_F(MicroTraverseTest, PickedPointsAndAngleShowTheLegsAndDrawAlongThePick) {
    pick("TLDigitizeMicroTraverse");
    clickButton("mPushButtonA");
    EXPECT_FALSE(dialog()->isVisible());
    click(100, 100);
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_EQ(field("mLineEditAAbscissa"), "100.000000");
    clickButton("mPushButtonB");
    click(300, 100);
    EXPECT_EQ(field("mLineEditBAbscissa"), "300.000000");
    EXPECT_EQ(field("mLineEditBOrdinate"), "100.000000");
    move(250, 250);
    EXPECT_TRUE(band().empty()) << "no legs outside the angle pick";

    clickButton("mPushButtonAngle");
    EXPECT_FALSE(dialog()->isVisible());
    move(300, 300);
    EXPECT_EQ(band(), (Path{{100, 100}, {300, 100}, {300, 300}}));
    click(300, 300);
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_EQ(field("mLineEditAngle"), "90.00");
    move(350, 350);
    EXPECT_TRUE(band().empty()) << "the legs go with the pick";

    // The pick stays with the button: a click below B reads past 180, and is kept so.
    click(400, 0);
    EXPECT_EQ(field("mLineEditAngle"), "225.00");
    set("mLineEditDistance", "100");
    clickButton("mPushButtonDrawPointP");
    const std::vector<XY> points = pointsOf(layerNamed("MeasurePointLayer"));
    ASSERT_EQ(points.size(), 1u);
    const double leg = 100 / std::sqrt(2.0);
    expectP(points[0], {300 + leg, 100 - leg});
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_TRUE(view->RubberBands().empty());
}

TEST_F(MicroTraverseTest, DrawingIsOneUndoableStepOutsideTheEditLayer) {
    drawFromHorizontalBase("90", "5");
    EXPECT_EQ(dialog(), nullptr) << "drawing ends the tool";
    EXPECT_FALSE(tool()->isActive());
    EXPECT_EQ(featureCount(roads), 1);
    EXPECT_EQ(map->editor()->UndoCount(), 1);
    EXPECT_EQ(map->editor()->UndoLabel(), "add feature");
    ASSERT_TRUE(map->editor()->Undo());
    EXPECT_EQ(featureCount(layerNamed("MeasurePointLayer")), 0);
}

TEST_F(MicroTraverseTest, CloseButtonEndsTheToolAndTheWindowCloseKeepsIt) {
    pick("TLDigitizeMicroTraverse");
    dialog()->close();
    EXPECT_FALSE(dialog()->isVisible());
    EXPECT_TRUE(tool()->isActive());

    tool()->deactivate();
    pick("TLDigitizeMicroTraverse");
    EXPECT_EQ(field("mLineEditAngle"), "");
    clickButton("mPushButtonClose");
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_FALSE(tool()->isActive());
    EXPECT_TRUE(view->RubberBands().empty());
    EXPECT_EQ(layerNamed("MeasurePointLayer"), nullptr);
}

}  // namespace

}  // namespace TMObjects
