#include <QDialog>
#include <QLineEdit>

#include "SurveySession.h"

namespace TMObjects {

namespace {

const char* const kTitle = "Backward intersection";

class BackwardIntersectionTest : public SurveySession {
protected:
    void SetUp() override {
        SurveySession::SetUp();
        roads = addLayer("roads", TLLayer::LineLayer);
        edit(roads);
    }

    TLTool* tool() { return poolTool("TLDigitizeBackwardIntersection"); }
    QDialog* dialog() const { return form(kTitle); }
    std::string titleOf(const char* name) const {
        QWidget* box = widget(kTitle, name);
        return box ? box->property("title").toString().toStdString() : "(none)";
    }

    // A = (0, 0), B = (5, 10), C = (10, 0), seen from P = (4, 3) at 135° and 108.434949°.
    void typeTriangle(const char* a1 = "135", const char* a2 = "108.434949") {
        set("mLineEditAAbscissa", "0");
        set("mLineEditAOrdinate", "0");
        set("mLineEditBAbscissa", "5");
        set("mLineEditBOrdinate", "10");
        set("mLineEditCAbscissa", "10");
        set("mLineEditCOrdinate", "0");
        set("mLineEditAngle", a1);
        set("mLineEditAngle2", a2);
    }

    TLFeatureLayer* roads = nullptr;
};

TEST_F(BackwardIntersectionTest, ActivationShowsTheEmptyFormWithThreeKnownPoints) {
    pick("TLDigitizeBackwardIntersection");
    ASSERT_NE(dialog(), nullptr);
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_EQ(dialog()->parentWidget(), mainWindow.get());
    EXPECT_EQ(titleOf("mGroupBoxKnownPoint"), "Known point");
    EXPECT_EQ(titleOf("mGroupBoxSketchMap"), "Sketch map");
    EXPECT_EQ(titleOf("mGroupBoxObservationValue"), "Observation value");
    EXPECT_EQ(titleOf("mGroupBoxUnit"), "Unit");
    EXPECT_EQ(titleOf("mGroupBoxTheCoordinateOfP"), "Coordinates of point P");
    EXPECT_EQ(textOf("mPushButtonC"), "C");
    EXPECT_EQ(textOf("mLabelA1"), "a1");
    EXPECT_EQ(textOf("mLabelA2"), "a2");
    EXPECT_EQ(textOf("mRadioButtonAngle"), "on");
    EXPECT_EQ(textOf("mRadioButtonRadian"), "off");
    EXPECT_EQ(textOf("mPushButtonCalculatePointP"), "Calculate P");
    EXPECT_EQ(textOf("mPushButtonDrawPointP"), "Draw  P");
    for (const char* name : {"mLineEditAAbscissa", "mLineEditCOrdinate", "mLineEditAngle",
                             "mLineEditAngle2", "mLineEditPAbscissa"})
        EXPECT_EQ(qobject_cast<QLineEdit*>(widget(kTitle, name))->text(), "") << name;
}

TEST_F(BackwardIntersectionTest, AClickIsPickedOnceByTheToolAndRefillsTheFieldsAfterwards) {
    pick("TLDigitizeBackwardIntersection");
    clickButton("mPushButtonC");
    EXPECT_FALSE(dialog()->isVisible());
    click(120, 80);
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_EQ(textOf("mLineEditCAbscissa"), "120.000000");
    EXPECT_EQ(textOf("mLineEditCOrdinate"), "80.000000");
    // The form still waits for C: a further click fills it again.
    click(130, 90);
    EXPECT_EQ(textOf("mLineEditCAbscissa"), "130.000000");
    EXPECT_EQ(textOf("mLineEditAAbscissa"), "");
}

TEST_F(BackwardIntersectionTest, ThreePointsAndTwoAnglesGiveP) {
    pick("TLDigitizeBackwardIntersection");
    typeTriangle();
    clickButton("mPushButtonCalculatePointP");
    EXPECT_NEAR(std::stod(textOf("mLineEditPAbscissa")), 4, 1e-5);
    EXPECT_NEAR(std::stod(textOf("mLineEditPOrdinate")), 3, 1e-5);
    EXPECT_EQ(textOf("mLineEditPAbscissa").size(), std::string("4.000000").size());

    // The same angles in radians.
    set("mRadioButtonRadian", "on");
    set("mLineEditAngle", "2.356194490");
    set("mLineEditAngle2", "1.892546881");
    clickButton("mPushButtonCalculatePointP");
    EXPECT_NEAR(std::stod(textOf("mLineEditPAbscissa")), 4, 1e-6);
    EXPECT_NEAR(std::stod(textOf("mLineEditPOrdinate")), 3, 1e-6);
    EXPECT_TRUE(warnings().empty());
}

TEST_F(BackwardIntersectionTest, AnglesOutsideAFullTurnAreRefusedInBothUnits) {
    pick("TLDigitizeBackwardIntersection");
    typeTriangle("200", "170");
    clickButton("mPushButtonCalculatePointP");
    set("mLineEditAngle", "0");
    clickButton("mPushButtonCalculatePointP");
    set("mRadioButtonRadian", "on");
    set("mLineEditAngle", "4");
    set("mLineEditAngle2", "3");
    clickButton("mPushButtonDrawPointP");
    EXPECT_EQ(warnings(),
              std::vector<std::string>(3, "The angle input is incorrect. Please recheck."));
    EXPECT_EQ(textOf("mLineEditPAbscissa"), "");
    EXPECT_TRUE(tool()->isActive()) << "a refused draw keeps the tool";
    EXPECT_EQ(layerNamed("MeasurePointLayer"), nullptr);

    // A full turn together passes.
    set("mRadioButtonAngle", "on");
    set("mLineEditAngle", "180");
    set("mLineEditAngle2", "180");
    clickButton("mPushButtonCalculatePointP");
    EXPECT_EQ(warnings().size(), 3u);
}

TEST_F(BackwardIntersectionTest, DrawPointWritesOneUndoableFeatureAndEndsTheTool) {
    pick("TLDigitizeBackwardIntersection");
    typeTriangle("135", "108.43494882");
    clickButton("mPushButtonDrawPointP");
    TLFeatureLayer* scratch = layerNamed("MeasurePointLayer");
    ASSERT_NE(scratch, nullptr);
    ASSERT_EQ(pointsOf(scratch).size(), 1u);
    EXPECT_NEAR(pointsOf(scratch)[0].first, 4, 1e-6);
    EXPECT_NEAR(pointsOf(scratch)[0].second, 3, 1e-6);
    EXPECT_EQ(featureCount(roads), 0);
    EXPECT_EQ(map->editor()->UndoCount(), 1);
    EXPECT_EQ(map->editor()->UndoLabel(), "add feature");
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_FALSE(tool()->isActive());

    ASSERT_TRUE(map->editor()->Undo());
    EXPECT_EQ(featureCount(scratch), 0);
}

}  // namespace

}  // namespace TMObjects
