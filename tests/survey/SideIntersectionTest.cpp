#include <QDialog>
#include <QLineEdit>

#include "SurveySession.h"

namespace TMObjects {

namespace {

const char* const kTitle = "Side intersection";

class SideIntersectionTest : public SurveySession {
protected:
    void SetUp() override {
        SurveySession::SetUp();
        roads = addLayer("roads", TLLayer::LineLayer);
        edit(roads);
    }

    TLTool* tool() { return poolTool("TLDigitizeSideIntersection"); }
    QDialog* dialog() const { return form(kTitle); }
    std::string titleOf(const char* name) const {
        QWidget* box = widget(kTitle, name);
        return box ? box->property("title").toString().toStdString() : "(none)";
    }
    void typeAll(const char* ax, const char* ay, const char* bx, const char* by, const char* ap,
                 const char* bp) {
        set("mLineEditAAbscissa", ax);
        set("mLineEditAOrdinate", ay);
        set("mLineEditBAbscissa", bx);
        set("mLineEditBOrdinate", by);
        set("mLineEditAPLength", ap);
        set("mLineEditBPLength", bp);
    }
    std::pair<std::string, std::string> calculate() {
        clickButton("mPushButtonCalculatePointP");
        return {textOf("mLineEditPAbscissa"), textOf("mLineEditPOrdinate")};
    }
    static Path lineOf(const TLRubberBand* band) { return CommandSession::pointsOf(band); }
    using Texts = std::pair<std::string, std::string>;

    TLFeatureLayer* roads = nullptr;
};

TEST_F(SideIntersectionTest, ActivationShowsTheEmptyFormAndTwoEmptyLines) {
    pick("TLDigitizeSideIntersection");
    ASSERT_NE(dialog(), nullptr);
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_EQ(titleOf("mGroupBoxKnownPoint"), "Known point");
    EXPECT_EQ(titleOf("mGroupBoxSketchMap"), "Sketch map");
    EXPECT_EQ(titleOf("mGroupBoxLength"), "Length");
    EXPECT_EQ(titleOf("mGroupBoxPPosition"), "P position");
    EXPECT_EQ(titleOf("mGroupBoxTheCoordinateOfP"), "Coordinates of point P");
    EXPECT_EQ(textOf("mLabelAPLength"), "AP length");
    EXPECT_EQ(textOf("mLabelBPLength"), "BP length");
    EXPECT_EQ(textOf("mPushButtonAP"), "");
    EXPECT_EQ(textOf("mRadioButtonABLeft"), "on");
    EXPECT_EQ(textOf("mRadioButtonABRight"), "off");
    EXPECT_EQ(textOf("mPushButtonDrawPointP"), "Draw P");
    ASSERT_EQ(view->RubberBands().size(), 2u);
    for (TLRubberBand* band : view->RubberBands()) {
        EXPECT_EQ(band->GetType(), TLRubberBand::LineBand);
        EXPECT_EQ(band->GetCount(), 0);
        EXPECT_EQ(band->Pen().color, TLColor(255, 0, 0));
    }
}

TEST_F(SideIntersectionTest, CirclesCrossOnTheChosenSideOfAToB) {
    pick("TLDigitizeSideIntersection");
    typeAll("0", "0", "10", "0", "10", "10");
    EXPECT_EQ(calculate(), Texts("5.000000", "8.660254"));
    set("mRadioButtonABRight", "on");
    EXPECT_EQ(calculate(), Texts("5.000000", "-8.660254"));

    // B west of A: right of the way west is north.
    typeAll("10", "0", "0", "0", "10", "10");
    EXPECT_EQ(calculate(), Texts("5.000000", "8.660254"));
    EXPECT_TRUE(warnings().empty());
}

TEST_F(SideIntersectionTest, CirclesThatTouchOrMissAreDisjoint) {
    pick("TLDigitizeSideIntersection");
    typeAll("0", "0", "10", "0", "5", "5");
    EXPECT_EQ(calculate(), Texts("", ""));
    typeAll("0", "0", "0", "0", "5", "5");
    clickButton("mPushButtonDrawPointP");
    EXPECT_EQ(warnings(), std::vector<std::string>(2, "Disjoint point."));
    EXPECT_TRUE(tool()->isActive());
    EXPECT_EQ(layerNamed("MeasurePointLayer"), nullptr);
}

TEST_F(SideIntersectionTest, DistancePicksShowTheirLineAndFillTheLength) {
    pick("TLDigitizeSideIntersection");
    clickButton("mPushButtonA");
    click(0, 0);
    clickButton("mPushButtonB");
    click(10, 0);
    clickButton("mPushButtonAP");
    EXPECT_FALSE(dialog()->isVisible());
    move(3, 4);
    TLRubberBand* toA = view->RubberBands().at(0);
    EXPECT_EQ(lineOf(toA), (Path{{10, 0}, {0, 0}, {3, 4}}));
    click(6, 8);
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_EQ(textOf("mLineEditAPLength"), "10.00");
    EXPECT_EQ(lineOf(toA), (Path{{10, 0}, {0, 0}, {6, 8}}));

    clickButton("mPushButtonBP");
    click(7, 4);
    EXPECT_EQ(textOf("mLineEditBPLength"), "5.00");
    EXPECT_EQ(lineOf(view->RubberBands().at(1)), (Path{{0, 0}, {10, 0}, {7, 4}}));
    // The pick is used up: moving on leaves both lines as they are.
    move(50, 50);
    EXPECT_EQ(lineOf(toA), (Path{{10, 0}, {0, 0}, {6, 8}}));
}

TEST_F(SideIntersectionTest, DrawPointWritesOneUndoableFeatureAndEndsTheTool) {
    pick("TLDigitizeSideIntersection");
    typeAll("0", "0", "10", "0", "10", "10");
    set("mRadioButtonABRight", "on");
    clickButton("mPushButtonDrawPointP");
    TLFeatureLayer* scratch = layerNamed("MeasurePointLayer");
    ASSERT_NE(scratch, nullptr);
    ASSERT_EQ(pointsOf(scratch).size(), 1u);
    EXPECT_NEAR(pointsOf(scratch)[0].first, 5, 1e-6);
    EXPECT_NEAR(pointsOf(scratch)[0].second, -8.660254, 1e-6);
    EXPECT_EQ(map->editor()->UndoCount(), 1);
    EXPECT_EQ(map->editor()->UndoLabel(), "add feature");
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_FALSE(tool()->isActive());
    EXPECT_TRUE(view->RubberBands().empty()) << "the lines go with the tool";
}

}  // namespace

}  // namespace TMObjects
