#include <GeographicLib/Geodesic.hpp>
#include <QLocale>
#include <QWidget>

#include "MeasureSession.h"

namespace TMObjects {

namespace {

class GirthMeasureTest : public MeasureSession {
protected:
    void SetUp() override {
        MeasureSession::SetUp();
        roads = addLayer("roads", TLLayer::LineLayer);
        a = addLine(roads, {{100, 100}, {400, 500}});              // 500 long
        b = addLine(roads, {{500, 100}, {500, 400}, {620, 400}});  // 300 + 120
        rivers = addLayer("rivers", TLLayer::LineLayer);
        river = addLine(rivers, {{0, 560}, {800, 560}});
        map->SetCurrentLayer(roads);
    }

    double shownSum() const { return number(textOf("mLineEditTotal")); }

    TLFeatureLayer* roads = nullptr;
    TLFeatureLayer* rivers = nullptr;
    int a = 0, b = 0, river = 0;
};

TEST_F(GirthMeasureTest, ClicksPickOnTheCurrentLayerAndShiftAddsUp) {
    pick("TLToolMeasureGirth");
    clickAt(250, 300);
    EXPECT_NEAR(shownSum(), 500, 5e-7);
    EXPECT_EQ(roads->GetSelectedIds(), std::vector<int>{a});
    EXPECT_EQ(textOf("mLabelGrith"), "Perimeter");
    EXPECT_EQ(textOf("mComboBoxUnits"), "map units");
    QWidget* dialog = shown("mLineEditTotal")->window();
    EXPECT_EQ(dialog->windowTitle(), "Measure perimeter");
    EXPECT_EQ(dialog->parentWidget(), mainWindow.get());

    buddy->SetKeyboardModifiers(0x2000000);
    clickAt(560, 402);  // within three pixels of b's second leg
    EXPECT_NEAR(shownSum(), 920, 5e-7);
    EXPECT_EQ(roads->GetSelectedIds(), (std::vector<int>{a, b}));

    buddy->SetKeyboardModifiers(0);
    clickAt(500, 250);
    EXPECT_NEAR(shownSum(), 420, 5e-7);
    EXPECT_EQ(roads->GetSelectedIds(), std::vector<int>{b});

    // Four pixels off is a miss; the river lies on a layer that is not current.
    clickAt(504, 250);
    EXPECT_EQ(textOf("mLineEditTotal"), QLocale().toString(0.0, 'f', 6));
    EXPECT_TRUE(roads->GetSelectedIds().empty());
    clickAt(300, 560);
    EXPECT_TRUE(rivers->GetSelectedIds().empty());
    EXPECT_EQ(shownSum(), 0.0);

    EXPECT_EQ(buddy->RegisteredTool(), nullptr);
    expectNoEdits({roads, rivers}, 3);
}

TEST_F(GirthMeasureTest, ChangingTheCurrentLayerClearsWhatWasPicked) {
    pick("TLToolMeasureGirth");
    clickAt(250, 300);
    ASSERT_NEAR(shownSum(), 500, 5e-7);
    map->SetCurrentLayer(rivers);
    EXPECT_TRUE(roads->GetSelectedIds().empty());
    EXPECT_EQ(shownSum(), 0.0);
    clickAt(300, 560);
    EXPECT_NEAR(shownSum(), 800, 5e-7);

    // Once the tool is left, a change of layer leaves other selections alone.
    dispatcher->Deactivate();
    EXPECT_EQ(shown("mLineEditTotal"), nullptr);
    roads->AddSelect(a);
    map->SetCurrentLayer(roads);
    EXPECT_EQ(roads->GetSelectedIds(), std::vector<int>{a});
}

TEST_F(GirthMeasureTest, ProjectedMapShowsMetresInTheUnitPicked) {
    showMap("EPSG:32633", 0, 0, 800, 600);
    pick("TLToolMeasureGirth");
    clickAt(250, 300);
    EXPECT_EQ(textOf("mComboBoxUnits"), "meters");
    EXPECT_NEAR(shownSum(), 500, 5e-7);
    chooseUnit("kilometers");
    EXPECT_NEAR(shownSum(), 0.5, 5e-7);
    chooseUnit("feet");
    EXPECT_NEAR(shownSum(), 500 / 0.3048, 5e-7);
    // The unit stays for the next pick.
    clickAt(500, 250);
    EXPECT_EQ(textOf("mComboBoxUnits"), "feet");
    EXPECT_NEAR(shownSum(), 420 / 0.3048, 5e-7);
}

TEST_F(GirthMeasureTest, GeographicLayerIsMeasuredOnItsEllipsoidInMetres) {
    showMap("EPSG:4326", 10, 40, 18, 46);
    TLFeatureLayer* tracks = addLayer("tracks", TLLayer::LineLayer, "EPSG:4326");
    addLine(tracks, {{11, 41}, {15, 44}, {17, 45.5}});
    map->SetCurrentLayer(tracks);
    pick("TLToolMeasureGirth");
    clickAt(13, 42.5);
    double first = 0.0, second = 0.0;
    GeographicLib::Geodesic::WGS84().Inverse(41, 11, 44, 15, first);
    GeographicLib::Geodesic::WGS84().Inverse(44, 15, 45.5, 17, second);
    EXPECT_EQ(textOf("mComboBoxUnits"), "meters");
    EXPECT_NEAR(shownSum(), first + second, 5e-7);
}

}  // namespace

}  // namespace TMObjects
