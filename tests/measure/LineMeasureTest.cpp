#include <GeographicLib/Geodesic.hpp>
#include <QLocale>
#include <QWidget>

#include "MeasureSession.h"

namespace TMObjects {

namespace {

class LineMeasureTest : public MeasureSession {
protected:
    void SetUp() override {
        MeasureSession::SetUp();
        roads = addLayer("roads", TLLayer::LineLayer);
        addLine(roads, {{0, 0}, {800, 600}});
        edit(roads);
    }

    // Six decimals are shown: each value within half of the last place.
    void expectRows(const std::vector<double>& expected) {
        const double tolerance = 5.01e-7;
        const QStringList rows = segmentRows();
        ASSERT_EQ(rows.size(), int(expected.size())) << rows.join(" | ").toStdString();
        double total = 0.0;
        for (int i = 0; i < rows.size(); ++i) {
            EXPECT_NEAR(number(rows[i]), expected[i], tolerance) << "row " << i;
            EXPECT_EQ(rows[i].section(QLocale::system().decimalPoint(), -1).size(), 6)
                << "decimals";
            total += expected[i];
        }
        EXPECT_NEAR(number(textOf("mLineEditTotal")), total, tolerance);
    }

    static double geodesic(double lon1, double lat1, double lon2, double lat2) {
        double s12 = 0.0;
        GeographicLib::Geodesic::WGS84().Inverse(lat1, lon1, lat2, lon2, s12);
        return s12;
    }

    TLFeatureLayer* roads = nullptr;
};

TEST_F(LineMeasureTest, PlainMapListsSegmentsInMapUnitsAndWritesNothing) {
    pick("TLToolMeasureLine");
    EXPECT_EQ(shown("mLineEditTotal"), nullptr) << "no dialog before the first segment";
    clickAt(100, 100);
    moveTo(400, 500);
    // With one clicked point the list holds only the live segment.
    expectRows({500});
    EXPECT_EQ(textOf("mComboBoxUnits"), "map units");
    EXPECT_EQ(textOf("mLabelTotal"), "Total");
    QWidget* dialog = shown("mLineEditTotal")->window();
    EXPECT_EQ(dialog->windowTitle(), "Measure distance");
    EXPECT_EQ(dialog->parentWidget(), mainWindow.get());
    EXPECT_TRUE(dialog->windowFlags() & Qt::WindowStaysOnTopHint);

    clickAt(400, 500);
    moveTo(400, 100);
    expectRows({500, 400});
    clickAt(400, 100);
    moveTo(700, 500);
    expectRows({500, 400, 500});

    // A right click ends the measurement; the values stay and further moves change nothing.
    clickAt(700, 500, TLRightButton);
    EXPECT_TRUE(view->RubberBands().empty());
    moveTo(0, 0);
    expectRows({500, 400, 500});

    EXPECT_EQ(buddy->RegisteredTool(), nullptr);
    EXPECT_TRUE(messages().empty());
    expectNoEdits({roads}, 1);

    dispatcher->Deactivate();
    EXPECT_EQ(shown("mLineEditTotal"), nullptr) << "the dialog goes with the tool";
}

TEST_F(LineMeasureTest, DoubleClickEndsAndTheNextClickStartsAfresh) {
    pick("TLToolMeasureLine");
    clickAt(100, 100);
    moveTo(400, 500);
    dblClickAt(400, 500);
    expectRows({500});
    EXPECT_TRUE(view->RubberBands().empty());
    moveTo(0, 0);
    expectRows({500});

    clickAt(0, 0);
    moveTo(0, 300);
    expectRows({300});
}

TEST_F(LineMeasureTest, GeographicMapMeasuresOnTheEllipsoidInEachUnit) {
    showMap("EPSG:4326", 10, 40, 18, 46);
    pick("TLToolMeasureLine");
    clickAt(11, 41);
    clickAt(15, 44);
    moveTo(17, 45.5);
    const double first = geodesic(11, 41, 15, 44);
    const double live = geodesic(15, 44, 17, 45.5);
    EXPECT_EQ(textOf("mComboBoxUnits"), "meters") << "a geographic map opens on the first unit";
    expectRows({first, live});

    // A change of unit shows the clicked segments; the live one comes back with the pointer.
    chooseUnit("kilometers");
    expectRows({first / 1000});
    moveTo(17, 45.5);
    expectRows({first / 1000, live / 1000});
    chooseUnit("feet");
    expectRows({first / 0.3048});
    chooseUnit("nautical miles");
    expectRows({first / 1852});
    chooseUnit("yards");
    expectRows({first / 0.9144});

    // The unit picked stays while measuring goes on.
    moveTo(17, 45.5);
    EXPECT_EQ(textOf("mComboBoxUnits"), "yards");
    expectRows({first / 0.9144, live / 0.9144});
}

TEST_F(LineMeasureTest, ProjectedMapMeasuresInThePlaneInMetres) {
    showMap("EPSG:32633", 500000, 5000000, 500800, 5000600);
    pick("TLToolMeasureLine");
    clickAt(500100, 5000100);
    moveTo(500400, 5000500);
    EXPECT_EQ(textOf("mComboBoxUnits"), "meters");
    expectRows({500});
    chooseUnit("miles");
    expectRows({});
    moveTo(500400, 5000500);
    expectRows({500 / 1609.344});
}

}  // namespace

}  // namespace TMObjects
