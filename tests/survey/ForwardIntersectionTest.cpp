#include <QDialog>
#include <QLineEdit>

#include "SurveySession.h"

namespace TMObjects {

namespace {

const char* const kTitle = "Forward intersection";
const char* const kBadAngle = "The angle input is incorrect. Please recheck.";

class ForwardIntersectionTest : public SurveySession {
protected:
    void SetUp() override {
        SurveySession::SetUp();
        roads = addLayer("roads", TLLayer::LineLayer);
        edit(roads);
    }

    TLTool* tool() { return poolTool("TLDigitizeForwardIntersection"); }
    QDialog* dialog() const { return form(kTitle); }
    std::string titleOf(const char* name) const {
        QWidget* box = widget(kTitle, name);
        return box ? box->property("title").toString().toStdString() : "(none)";
    }
    void typeAll(const char* ax, const char* ay, const char* bx, const char* by, const char* a1,
                 const char* a2) {
        set("mLineEditAAbscissa", ax);
        set("mLineEditAOrdinate", ay);
        set("mLineEditBAbscissa", bx);
        set("mLineEditBOrdinate", by);
        set("mLineEditAngle1", a1);
        set("mLineEditAngle2", a2);
    }
    using Texts = std::pair<std::string, std::string>;
    Texts calculate() {
        clickButton("mPushButtonCalculatePointP");
        return {textOf("mLineEditPAbscissa"), textOf("mLineEditPOrdinate")};
    }
    static Path lineOf(const TLRubberBand* band) { return CommandSession::pointsOf(band); }

    TLFeatureLayer* roads = nullptr;
};

TEST_F(ForwardIntersectionTest, ActivationShowsTheEmptyFormAndAnEmptyLine) {
    pick("TLDigitizeForwardIntersection");
    ASSERT_NE(dialog(), nullptr);
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_EQ(titleOf("mGroupBoxKnownPoint"), "Known point");
    EXPECT_EQ(titleOf("mGroupBoxSketchMap"), "Sketch Map");
    EXPECT_EQ(titleOf("mGroupBoxObservationValue"), "Observation value");
    EXPECT_EQ(titleOf("mGroupBoxUnit"), "Unit");
    EXPECT_EQ(titleOf("mGroupBoxPPosition"), "P position");
    EXPECT_EQ(titleOf("mGroupBoxTheCoordinateOfP"), "Coordinates of point P");
    EXPECT_EQ(textOf("mPushButtonAngle1"), "");
    EXPECT_EQ(textOf("mLabelA1"), "a1");
    EXPECT_EQ(textOf("mLabelA2"), "a2");
    EXPECT_EQ(textOf("mRadioButtonAngle"), "on");
    EXPECT_EQ(textOf("mRadioButtonABLeft"), "on");
    EXPECT_EQ(textOf("mPushButtonDrawPointP"), "Draw P");
    ASSERT_EQ(view->RubberBands().size(), 1u);
    EXPECT_EQ(view->RubberBands()[0]->GetCount(), 0);
}

TEST_F(ForwardIntersectionTest, TheSideChoosesTheCrossingAndThePrecisionOfItsText) {
    pick("TLDigitizeForwardIntersection");
    typeAll("0", "0", "10", "0", "45", "45");
    EXPECT_EQ(calculate(), Texts("5.000000", "5.000000"));
    set("mRadioButtonABRight", "on");
    EXPECT_EQ(calculate(), Texts("5.000", "-5.000"));

    // Falling AB, left of it: a1 = 90 and a2 = 45 put P at B turned a right angle about A.
    set("mRadioButtonABLeft", "on");
    typeAll("0", "0", "10", "-10", "90", "45");
    const Texts p = calculate();
    EXPECT_NEAR(std::stod(p.first), 10, 1e-6);
    EXPECT_NEAR(std::stod(p.second), 10, 1e-6);
    EXPECT_TRUE(warnings().empty());
}

TEST_F(ForwardIntersectionTest, DueWestAndRadianZeroKeepTheirArithmetic) {
    pick("TLDigitizeForwardIntersection");
    typeAll("10", "0", "0", "0", "30", "60");
    EXPECT_EQ(calculate(), Texts("10.000000", "0.000000")) << "due west leaves P at A";
    set("mRadioButtonRadian", "on");
    typeAll("0", "0", "10", "0", "0", "0.5");
    EXPECT_EQ(calculate(), Texts("10.000000", "0.000000")) << "a1 of 0 puts P at B";
    EXPECT_TRUE(warnings().empty());
}

TEST_F(ForwardIntersectionTest, WarningsKeepTheOldPAndDrawingGoesOnAtTheOrigin) {
    pick("TLDigitizeForwardIntersection");
    typeAll("3", "4", "3", "4", "45", "45");
    EXPECT_EQ(calculate(), Texts("", ""));
    typeAll("0", "0", "10", "0", "45", "45");
    EXPECT_EQ(calculate(), Texts("5.000000", "5.000000"));
    set("mLineEditAngle2", "180");
    EXPECT_EQ(calculate(), Texts("5.000000", "5.000000"));
    EXPECT_EQ(warnings(), (std::vector<std::string>{
                              "The two points are coincident. Please check whether the input is "
                              "correct.",
                              kBadAngle}));

    // A fresh run with a bad angle draws the origin and ends the tool all the same.
    pick("TLDigitizeForwardIntersection");
    typeAll("0", "0", "10", "0", "0", "45");
    clickButton("mPushButtonDrawPointP");
    EXPECT_EQ(warnings().size(), 3u);
    EXPECT_EQ(pointsOf(layerNamed("MeasurePointLayer")), (std::vector<XY>{{0, 0}}));
    EXPECT_FALSE(tool()->isActive());
    EXPECT_TRUE(view->RubberBands().empty());
}

TEST_F(ForwardIntersectionTest, AnglePicksFollowThePointerAndGiveTwoDecimals) {
    pick("TLDigitizeForwardIntersection");
    clickButton("mPushButtonA");
    click(0, 0);
    clickButton("mPushButtonB");
    click(10, 0);
    clickButton("mPushButtonAngle1");
    EXPECT_FALSE(dialog()->isVisible());
    move(5, 5);
    TLRubberBand* band = view->RubberBands().at(0);
    EXPECT_EQ(lineOf(band), (Path{{10, 0}, {0, 0}, {5, 5}}));
    click(5, 3);
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_EQ(textOf("mLineEditAngle1"), "30.96");
    EXPECT_EQ(band->GetCount(), 0) << "the line goes with the pick";

    // The angle at B, from the typed B of the form, in radians.
    set("mLineEditBAbscissa", "20");
    set("mRadioButtonRadian", "on");
    clickButton("mPushButtonAngle2");
    move(15, 5);
    EXPECT_EQ(lineOf(band), (Path{{0, 0}, {20, 0}, {15, 5}}));
    click(15, 5);
    EXPECT_EQ(textOf("mLineEditAngle2"), "0.79");
}

TEST_F(ForwardIntersectionTest, DrawPointWritesOneUndoableFeatureAndEndsTheTool) {
    pick("TLDigitizeForwardIntersection");
    typeAll("0", "0", "10", "0", "45", "45");
    set("mRadioButtonABRight", "on");
    clickButton("mPushButtonDrawPointP");
    TLFeatureLayer* scratch = layerNamed("MeasurePointLayer");
    ASSERT_NE(scratch, nullptr);
    EXPECT_EQ(pointsOf(scratch), (std::vector<XY>{{5, -5}}));
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
