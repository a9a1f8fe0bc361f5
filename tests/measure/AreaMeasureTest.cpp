#include <proj.h>

#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/PolygonArea.hpp>
#include <QAbstractButton>
#include <QWidget>
#include <cmath>

#include "MeasureSession.h"

namespace TMObjects {

namespace {

// The area of a ring of longitudes and latitudes on WGS 84, by GeographicLib itself.
double geodesicArea(const Path& lonLat) {
    GeographicLib::PolygonArea polygon(GeographicLib::Geodesic::WGS84());
    for (const XY& p : lonLat) polygon.AddPoint(p.second, p.first);
    double perimeter = 0.0, area = 0.0;
    polygon.Compute(false, true, perimeter, area);
    return std::fabs(area);
}

// Projected corners taken back to longitude and latitude by PROJ itself.
Path toLonLat(const char* crs, const Path& ring) {
    PJ_CONTEXT* context = proj_context_create();
    PJ* raw = proj_create_crs_to_crs(context, crs, "EPSG:4326", nullptr);
    PJ* transform = proj_normalize_for_visualization(context, raw);
    Path out;
    for (const XY& p : ring) {
        const PJ_COORD c = proj_trans(transform, PJ_FWD, proj_coord(p.first, p.second, 0, 0));
        out.emplace_back(c.xy.x, c.xy.y);
    }
    proj_destroy(transform);
    proj_destroy(raw);
    proj_context_destroy(context);
    return out;
}

class AreaMeasureTest : public MeasureSession {
protected:
    void SetUp() override { MeasureSession::SetUp(); }

    void addParcels(const char* crs, double x, double y) {
        parcels = addLayer("parcels", TLLayer::PolygonLayer, crs);
        square = addPolygon(
            parcels,
            {{x + 100, y + 100}, {x + 300, y + 100}, {x + 300, y + 300}, {x + 100, y + 300}});
        triangle =
            addPolygon(parcels, {{x + 400, y + 100}, {x + 700, y + 100}, {x + 400, y + 500}});
        map->SetCurrentLayer(parcels);
    }

    double shownArea() const { return number(textOf("mLineEditTotal")); }
    bool isChecked(const char* name) const {
        auto* button = qobject_cast<QAbstractButton*>(shown(name));
        return button && button->isChecked();
    }
    // The mode is the tool's own and outlives its dialog: set it as the user would.
    void setFeatureMode(bool on) {
        if (isChecked("mCheckBoxMeasureFea") != on) clickButton("mCheckBoxMeasureFea");
    }
    bool isEnabled(const char* name) const { return shown(name) && shown(name)->isEnabled(); }

    TLFeatureLayer* parcels = nullptr;
    int square = 0, triangle = 0;
};

TEST_F(AreaMeasureTest, FeatureModePicksThePolygonUnderTheClick) {
    addParcels(nullptr, 0, 0);
    pick("TLToolMeasureArea");
    EXPECT_EQ(shownArea(), 0.0) << "the dialog, with its mode, is there from the start";
    setFeatureMode(true);
    clickAt(200, 200);
    EXPECT_NEAR(shownArea(), 40000, 5e-7);
    EXPECT_EQ(parcels->GetSelectedIds(), std::vector<int>{square});
    QWidget* dialog = shown("mLineEditTotal")->window();
    EXPECT_EQ(dialog->windowTitle(), "Measure area");
    EXPECT_EQ(dialog->parentWidget(), mainWindow.get());
    EXPECT_TRUE(isChecked("mCheckBoxMeasureFea"));
    EXPECT_EQ(textOf("mCheckBoxMeasureFea"), "Measure feature");
    EXPECT_EQ(textOf("mComboBoxUnits"), "square map units");
    // Without a system only the plane is possible, and the text box says so.
    EXPECT_EQ(textOf("mTextEditCoordinateSystem"), "not found!");
    EXPECT_TRUE(isChecked("mRadioButtonPlane"));
    EXPECT_FALSE(isEnabled("mRadioButtonPlane"));
    EXPECT_FALSE(isChecked("mRadioButtonEllipsoid"));
    EXPECT_FALSE(isEnabled("mRadioButtonEllipsoid"));

    clickAt(450, 150);
    EXPECT_NEAR(shownArea(), 60000, 5e-7);
    EXPECT_EQ(parcels->GetSelectedIds(), std::vector<int>{triangle});

    // Outside all polygons: no highlight and 0.
    clickAt(750, 550);
    EXPECT_EQ(shownArea(), 0.0);
    EXPECT_TRUE(parcels->GetSelectedIds().empty());
    expectNoEdits({parcels}, 2);

    clickAt(200, 200);
    dispatcher->Deactivate();
    EXPECT_TRUE(parcels->GetSelectedIds().empty()) << "leaving the tool drops its highlight";
    EXPECT_EQ(shown("mLineEditTotal"), nullptr);
    // A click that reaches the tool after it was left does nothing.
    TLTool* tool = poolTool("TLToolMeasureArea");
    EXPECT_FALSE(tool->OnMouseDown(TLLeftButton, 200, 400));
    tool->OnMouseUp(TLLeftButton, 200, 400);
    EXPECT_TRUE(parcels->GetSelectedIds().empty());
    EXPECT_EQ(shown("mLineEditTotal"), nullptr);
}

TEST_F(AreaMeasureTest, FreeModeMeasuresThePolygonClickedIn) {
    addParcels(nullptr, 0, 0);
    pick("TLToolMeasureArea");
    clickAt(200, 200);
    setFeatureMode(false);
    EXPECT_FALSE(isChecked("mCheckBoxMeasureFea"));

    clickAt(100, 100);
    EXPECT_EQ(shownArea(), 0.0);
    clickAt(400, 100);
    moveTo(400, 500);
    EXPECT_NEAR(shownArea(), 60000, 5e-7);
    clickAt(400, 500);
    moveTo(100, 500);
    EXPECT_NEAR(shownArea(), 120000, 5e-7);
    EXPECT_EQ(parcels->GetSelectedIds(), std::vector<int>{square}) << "drawing selects nothing";

    clickAt(100, 500, TLRightButton);
    EXPECT_EQ(shownArea(), 0.0);
    EXPECT_TRUE(view->RubberBands().empty());
    expectNoEdits({parcels}, 2);
}

TEST_F(AreaMeasureTest, GeographicMapMeasuresOnTheEllipsoidOnly) {
    showMap("EPSG:4326", 10, 40, 18, 46);
    pick("TLToolMeasureArea");
    setFeatureMode(false);
    clickAt(11, 41);
    clickAt(15, 41);
    clickAt(15, 44);
    moveTo(11, 44);
    const double area = geodesicArea({{11, 41}, {15, 41}, {15, 44}, {11, 44}});
    EXPECT_EQ(textOf("mComboBoxUnits"), "square meters");
    EXPECT_NEAR(shownArea(), area, 1e-3);
    EXPECT_TRUE(isChecked("mRadioButtonEllipsoid"));
    EXPECT_FALSE(isEnabled("mRadioButtonEllipsoid"));
    EXPECT_FALSE(isChecked("mRadioButtonPlane"));
    EXPECT_FALSE(isEnabled("mRadioButtonPlane"));
    EXPECT_TRUE(textOf("mTextEditCoordinateSystem").contains("EPSG:4326"));

    chooseUnit("square kilometers");
    EXPECT_NEAR(shownArea(), area / 1e6, 5e-7);
    chooseUnit("hectares");
    EXPECT_NEAR(shownArea(), area / 1e4, 5e-7);
    chooseUnit("acres");
    EXPECT_NEAR(shownArea(), area / 4046.8564224, 5e-7);
    chooseUnit("square miles");
    EXPECT_NEAR(shownArea(), area / (1609.344 * 1609.344), 5e-7);
}

TEST_F(AreaMeasureTest, ProjectedMapSwitchesBetweenPlaneAndEllipsoid) {
    const char* utm = "EPSG:32633";
    showMap(utm, 500000, 5000000, 500800, 5000600);
    addParcels(utm, 500000, 5000000);
    pick("TLToolMeasureArea");
    setFeatureMode(true);
    clickAt(500200, 5000200);
    EXPECT_EQ(textOf("mComboBoxUnits"), "square meters");
    EXPECT_NEAR(shownArea(), 40000, 5e-7);
    EXPECT_TRUE(isEnabled("mRadioButtonPlane"));
    EXPECT_TRUE(isEnabled("mRadioButtonEllipsoid"));
    EXPECT_TRUE(textOf("mTextEditCoordinateSystem").contains("UTM zone 33N"));

    clickButton("mRadioButtonEllipsoid");
    const double area = geodesicArea(toLonLat(
        utm, {{500100, 5000100}, {500300, 5000100}, {500300, 5000300}, {500100, 5000300}}));
    EXPECT_GT(std::fabs(area - 40000), 10) << "the grid and the ground differ here";
    EXPECT_NEAR(shownArea(), area, 1e-3);
    EXPECT_EQ(parcels->GetSelectedIds(), std::vector<int>{square});

    clickButton("mRadioButtonPlane");
    EXPECT_NEAR(shownArea(), 40000, 5e-7);
}

}  // namespace

}  // namespace TMObjects
