#include <QLineEdit>
#include <QLocale>
#include <QSettings>

#include "MeasureSession.h"
#include "tlmap/TLRubberBand.h"

namespace TMObjects {

namespace {

// The legs used below, in map coordinates: the first leg runs west from the vertex (300, 100),
// so a pointer straight above the vertex makes a right angle, one to the north-west half of it,
// and one straight below a right angle the other way round.
class AngleMeasureTest : public MeasureSession {
protected:
    void SetUp() override {
        MeasureSession::SetUp();
        QSettings().remove("/terraloom/measure");
        layer = addLayer("roads", TLLayer::LineLayer);
        edit(layer);
    }
    void TearDown() override {
        QSettings().remove("/terraloom/measure");
        MeasureSession::TearDown();
    }

    void drawLegs() {
        clickAt(100, 100);
        clickAt(300, 100);
    }
    static void setting(const char* key, const char* value) {
        QSettings().setValue(QString("/terraloom/measure/") + key, value);
    }
    QString angle() const { return textOf("mLineEditDegree"); }

    TLFeatureLayer* layer = nullptr;
};

TEST_F(AngleMeasureTest, SignedAngleAtTheSecondPointInDegreesByDefault) {
    pick("TLToolMeasureAngle");
    clickAt(100, 100);
    moveTo(300, 100);
    EXPECT_EQ(angle(), "0.000") << "no angle until the second leg begins";
    auto* edit = qobject_cast<QLineEdit*>(shown("mLineEditDegree"));
    ASSERT_NE(edit, nullptr);
    EXPECT_TRUE(edit->isReadOnly());
    EXPECT_TRUE(edit->font().bold());
    EXPECT_EQ(edit->window()->parentWidget(), mainWindow.get());

    clickAt(300, 100);
    moveTo(300, 300);
    EXPECT_EQ(angle(), "90.000");
    moveTo(100, 300);
    EXPECT_EQ(angle(), "45.000");
    moveTo(300, 0);
    EXPECT_EQ(angle(), "-90.000");
    // Just past the straight angle on either side: the value wraps into (-180, 180].
    moveTo(500, 99);
    EXPECT_NEAR(number(angle()), -179.714, 0.0005);
    moveTo(500, 101);
    EXPECT_NEAR(number(angle()), 179.714, 0.0005);

    EXPECT_EQ(buddy->RegisteredTool(), nullptr);
    expectNoEdits({layer}, 0);
}

TEST_F(AngleMeasureTest, UnitAndDecimalsComeFromTheSettings) {
    pick("TLToolMeasureAngle");
    drawLegs();
    setting("angleunits", "rad");
    setting("decimalplaces", "5");
    moveTo(300, 300);
    EXPECT_EQ(angle(), "1.57080");
    setting("angleunits", "gon");
    moveTo(100, 300);
    EXPECT_EQ(angle(), "50.00000");
    setting("angleunits", "moa");
    setting("decimalplaces", "1");
    moveTo(300, 300);
    EXPECT_NEAR(number(angle()), 5400.0, 1e-9);
    EXPECT_TRUE(angle().endsWith(QLocale().decimalPoint() + QString("0")));
    setting("angleunits", "tr");
    setting("decimalplaces", "2");
    moveTo(300, 300);
    EXPECT_EQ(angle(), "0.25");

    // What cannot be read falls back to degrees and three decimals.
    setting("angleunits", "furlongs");
    setting("decimalplaces", "many");
    moveTo(300, 300);
    EXPECT_EQ(angle(), "90.000");
}

TEST_F(AngleMeasureTest, ThirdClickFixesTheFigureAndTheFourthStartsOver) {
    pick("TLToolMeasureAngle");
    drawLegs();
    clickAt(300, 300);
    EXPECT_EQ(angle(), "90.000");
    moveTo(100, 300);
    EXPECT_EQ(angle(), "90.000") << "a finished figure keeps its angle";

    clickAt(500, 500);
    EXPECT_EQ(shown("mLineEditDegree"), nullptr);
    ASSERT_EQ(view->RubberBands().size(), 1u);
    EXPECT_EQ(view->RubberBands().front()->GetCount(), 1);
    moveTo(600, 500);
    EXPECT_EQ(angle(), "0.000");

    // A right click shows 0 and drops the figure; Close hides the dialog.
    clickAt(600, 500);
    moveTo(600, 300);
    clickAt(600, 300, TLRightButton);
    EXPECT_EQ(angle(), "0.000");
    EXPECT_EQ(view->RubberBands().front()->GetCount(), 0);
    clickButton("mButtonClose");
    EXPECT_EQ(shown("mLineEditDegree"), nullptr);
}

}  // namespace

}  // namespace TMObjects
