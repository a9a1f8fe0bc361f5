// Slope and aspect at a point: against GDAL's DEM processing on a hill and a cone, and the
// cases of flat ground, planes, no-data, points off the raster and the dialog's closing.
#include <gdal_priv.h>
#include <gdal_utils.h>

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QPushButton>
#include <cmath>

#include "RasterToolSession.h"
#include "raster/TLSlopeCalculation.h"

namespace TMObjects {
namespace {

// 80 x 60 cells of 10 m over the whole view.
RasterSpec terrain(std::function<double(double x, double y)> z) {
    RasterSpec spec;
    spec.columns = 80;
    spec.rows = 60;
    spec.left = 0;
    spec.top = 600;
    spec.value = [z](int, int c, int r) { return z(5.0 + 10 * c, 595.0 - 10 * r); };
    return spec;
}

double hill(double x, double y) {
    const double dx = x - 400, dy = y - 300;
    return 250 + 80 * std::exp(-(dx * dx + dy * dy) / (2 * 150.0 * 150.0));
}

double cone(double x, double y) {
    return std::max(0.0, 120 * (1 - std::hypot(x - 380, y - 290) / 260));
}

// gdaldem's answer (slope or aspect, Horn) for every cell of the raster at `path`.
std::vector<float> gdaldem(const std::string& path, const char* processing) {
    GDALDatasetH source = GDALOpen(path.c_str(), GA_ReadOnly);
    char* arguments[] = {const_cast<char*>("-of"), const_cast<char*>("MEM"),
                         const_cast<char*>("-alg"), const_cast<char*>("Horn"), nullptr};
    GDALDEMProcessingOptions* options = GDALDEMProcessingOptionsNew(arguments, nullptr);
    GDALDatasetH result = GDALDEMProcessing("", source, processing, nullptr, options, nullptr);
    std::vector<float> values(80 * 60);
    if (result && GDALRasterIO(GDALGetRasterBand(result, 1), GF_Read, 0, 0, 80, 60, values.data(),
                               80, 60, GDT_Float32, 0, 0) != CE_None)
        ADD_FAILURE() << "gdaldem gave nothing to read";
    GDALDEMProcessingOptionsFree(options);
    GDALClose(result);
    GDALClose(source);
    return values;
}

class TerrainPoint : public RasterToolSession {
protected:
    QAbstractButton* boxButton(QDialogButtonBox::StandardButton which) {
        auto* box = dynamic_cast<QDialogButtonBox*>(shown("mButtonBox"));
        return box ? box->button(which) : nullptr;
    }
    // The value the tool shows after a release on the centre of the cell.
    double valueAt(int column, int row) {
        click(5.0 + 10 * column, 595.0 - 10 * row);
        return textOf("mOutputLineEdit").toDouble();
    }
    void compareWithGdal(const char* name, double (*z)(double, double)) {
        addRaster(name, terrain(z));
        const std::vector<float> slope = gdaldem(scratch(std::string(name) + ".tif"), "slope");
        const std::vector<float> aspect = gdaldem(scratch(std::string(name) + ".tif"), "aspect");
        int compared = 0;
        for (int row = 1; row < 59; row += 4)
            for (int column = 1; column < 79; column += 5) {
                const std::size_t i = std::size_t(row) * 80 + column;
                pick("TLSlopeCalculation");
                EXPECT_NEAR(valueAt(column, row), slope[i], 1e-3 + 1e-5 * slope[i])
                    << name << " slope at " << column << "," << row;
                pick("TLAspectCalculation");
                const double ours = valueAt(column, row);
                if (aspect[i] < 0) {
                    EXPECT_EQ(ours, -1.0) << name << " flat at " << column << "," << row;
                } else {
                    const double gap = std::fabs(ours - aspect[i]);
                    // gdaldem works in single precision: on the plain's gentle slopes its
                    // direction wanders by some thousandths of a degree.
                    EXPECT_LT(std::min(gap, 360 - gap), 1e-2)
                        << name << " aspect at " << column << "," << row;
                }
                ++compared;
            }
        EXPECT_EQ(compared, 15 * 16);
    }
};

TEST_F(TerrainPoint, SlopeAndAspectAgreeWithGdaldemOnAHill) {
    compareWithGdal("hill", hill);
}

TEST_F(TerrainPoint, SlopeAndAspectAgreeWithGdaldemOnACone) {
    compareWithGdal("cone", cone);
}

TEST_F(TerrainPoint, PlanesGiveTheirSlopeAndTheirCompassDirection) {
    addRaster("flat", terrain([](double, double) { return 12.0; }));
    pick("TLSlopeCalculation");
    EXPECT_EQ(valueAt(10, 10), 0.0);
    EXPECT_EQ(textOf("mSlopeValueLabel"), "Slope value:");
    pick("TLAspectCalculation");
    EXPECT_EQ((valueAt(10, 10)), -1.0);
    EXPECT_EQ(textOf("mAspectValueLabel"), "Aspect value:");

    // Rising by 10 a cell of 10 towards the east: 45 degrees, facing west.
    addRaster("east", terrain([](double x, double) { return x; }));
    map->RemoveLayer(map->GetLayerByName("flat").get());
    dispatcher->Deactivate();
    pick("TLSlopeCalculation");
    EXPECT_EQ(valueAt(10, 10), 45.0);
    pick("TLAspectCalculation");
    EXPECT_EQ(valueAt(10, 10), 270.0);
}

TEST_F(TerrainPoint, AspectTurnsWithTheRiseOfThePlane) {
    const std::pair<std::function<double(double, double)>, double> planes[] = {
        {[](double, double y) { return y; }, 180.0},  // rising to the north
        {[](double x, double) { return -x; }, 90.0},  // falling to the east
        {[](double, double y) { return -y; }, 0.0},   // falling to the north
        {[](double x, double y) { return x + y; }, 225.0}};
    int n = 0;
    for (const auto& [z, expected] : planes) {
        const std::string name = "plane" + std::to_string(n++);
        for (const TLRefPtr<TLLayer>& layer : map->GetLayers(true)) map->RemoveLayer(layer.get());
        addRaster(name, terrain(z));
        pick("TLAspectCalculation");
        EXPECT_EQ(valueAt(20, 20), expected) << name;
    }
}

TEST_F(TerrainPoint, ANoDataCellAnywhereInTheWindowGivesMinusOne) {
    RasterSpec spec = terrain([](double x, double) { return x; });
    spec.hasNoData = true;
    spec.value = [](int, int c, int r) { return c == 9 && r == 9 ? -9999.0 : 10.0 * c; };
    addRaster("gap", spec);
    pick("TLSlopeCalculation");
    EXPECT_EQ(valueAt(10, 10), -1.0);  // the corner a
    EXPECT_EQ(valueAt(9, 9), -1.0);    // the centre e, which the formula does not use
    EXPECT_EQ(valueAt(12, 12), 45.0);
    // At the raster's edge the window reaches out over no-data padding.
    EXPECT_EQ(valueAt(0, 30), -1.0);
}

TEST_F(TerrainPoint, TypedCoordinatesAreCalculatedAndCheckedAgainstTheBound) {
    addRaster("east", terrain([](double x, double) { return 2 * x; }));
    pick("TLSlopeCalculation");
    click(55, 55);
    EXPECT_EQ(textOf("mXCoordinateLineEdit"), "55.0000");
    setText("mXCoordinateLineEdit", "300.5");
    setText("mYCoordinateLineEdit", "250");
    boxButton(QDialogButtonBox::Ok)->click();
    EXPECT_EQ(textOf("mOutputLineEdit"),
              QString::number(std::atan(2.0) / 0.017453292222222222, 'g', 6));
    answerer.Queue("OK");
    setText("mXCoordinateLineEdit", "800.001");
    boxButton(QDialogButtonBox::Ok)->click();
    ASSERT_FALSE(answerer.Records().empty());
    EXPECT_EQ(answerer.Records().back().title, "warning");
    EXPECT_EQ(answerer.Records().back().text,
              "The coordinates are not in this range, please re-enter.");
}

TEST_F(TerrainPoint, ClosingTheDialogEndsTheToolOnce) {
    addRaster("east", terrain([](double x, double) { return x; }));
    pick("TLSlopeCalculation");
    TLTool* tool = poolTool("TLSlopeCalculation");
    click(55, 55);
    QWidget* dialog = shown("mOutputLineEdit")->window();
    EXPECT_EQ(dialog->windowTitle(), "Slope calculation");
    EXPECT_EQ(boxButton(QDialogButtonBox::Ok)->text(), "Calculate");
    EXPECT_EQ(boxButton(QDialogButtonBox::Cancel)->text(), "Cancle");
    // Closed inside its own close event: the tool ends and the dialog goes once the event loop
    // runs, not while its handler runs.
    dialog->close();
    EXPECT_FALSE(tool->isActive());
    settle();
    EXPECT_EQ(shown("mOutputLineEdit"), nullptr);
    // The host leaving the ended tool as well does no harm.
    dispatcher->Deactivate();
    settle();
    // "Cancle" does the same; the tool comes back as new.
    pick("TLSlopeCalculation");
    click(55, 55);
    EXPECT_EQ(textOf("mOutputLineEdit"), "45");
    boxButton(QDialogButtonBox::Cancel)->click();
    EXPECT_FALSE(tool->isActive());
    settle();
    EXPECT_EQ(shown("mOutputLineEdit"), nullptr);
    // Left by the host, the tool takes its dialog with it.
    pick("TLSlopeCalculation");
    click(55, 55);
    dispatcher->Deactivate();
    settle();
    EXPECT_EQ(shown("mOutputLineEdit"), nullptr);
}

}  // namespace
}  // namespace TMObjects
