// Surface area over a drawn polygon or a coordinate file, and surface distance between two
// clicks, on planes whose true values are known.
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <cmath>
#include <fstream>
#include <stdexcept>

#include "RasterToolSession.h"
#include "raster/TLSurfaceAreaMeasurement.h"

namespace TMObjects {
namespace {

const double kA = 0.3, kB = -0.2;

// 80 x 60 cells of 10 m over the view, 64-bit heights of the plane z = 100 + a x + b y.
RasterSpec plane(const char* type = "Float64") {
    RasterSpec spec;
    spec.columns = 80;
    spec.rows = 60;
    spec.left = 0;
    spec.top = 600;
    spec.type = type;
    spec.value = [](int, int c, int r) {
        return 100 + kA * (5.0 + 10 * c) + kB * (595.0 - 10 * r);
    };
    return spec;
}

double shoelace(const Path& ring) {
    double twice = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const XY& p = ring[i];
        const XY& q = ring[(i + 1) % ring.size()];
        twice += p.first * q.second - q.first * p.second;
    }
    return std::fabs(twice) / 2;
}

// The number before the unit of the area field.
double areaShown(const QString& text) {
    return text.left(text.indexOf('(')).toDouble();
}

class SurfaceMeasure : public RasterToolSession {
protected:
    void draw(const Path& ring) {
        for (std::size_t i = 0; i + 1 < ring.size(); ++i) click(ring[i].first, ring[i].second);
        press(ring.back().first, ring.back().second);
        doubleClick(ring.back().first, ring.back().second);
    }
    void writeText(const std::string& name, const std::string& text) {
        std::ofstream(scratch(name)) << text;
    }
    // Ticks "Use range from coordinate file" with the file dialog answered by `path`.
    void useFile(const std::string& path) {
        answerer.Queue(path);
        static_cast<QCheckBox*>(shown("mUseCoordinateFileCheckBox"))->click();
    }
};

const Path kPolygon = {{150, 250}, {450, 260}, {400, 450}, {300, 380}, {180, 470}};

TEST_F(SurfaceMeasure, APlaneGivesThePolygonsAreaTimesItsSecant) {
    addRaster("plane", plane());
    pick("TLSurfaceAreaMeasurement");
    draw(kPolygon);
    const QString text = textOf("mSurfaceAreaLineEdit");
    EXPECT_TRUE(text.endsWith("(Meter)")) << text.toStdString();
    const double expected = shoelace(kPolygon) * std::sqrt(1 + kA * kA + kB * kB);
    EXPECT_NEAR(areaShown(text) / expected, 1.0, 1e-9) << text.toStdString();
    EXPECT_EQ(text.section('.', 1).left(10).size(), 10);
}

TEST_F(SurfaceMeasure, ThirtyTwoBitHeightsAreRoundedButMeasuredTheSameWay) {
    addRaster("plane", plane("Float32"));
    pick("TLSurfaceAreaMeasurement");
    draw(kPolygon);
    const double expected = shoelace(kPolygon) * std::sqrt(1 + kA * kA + kB * kB);
    EXPECT_NEAR(areaShown(textOf("mSurfaceAreaLineEdit")) / expected, 1.0, 1e-6);
}

TEST_F(SurfaceMeasure, TheClickCountIsNeverResetSoTheNextPolygonSkipsTheFormersLastPoint) {
    addRaster("flat", plane());
    pick("TLSurfaceAreaMeasurement");
    auto* tool = static_cast<TLSurfaceAreaMeasurement*>(poolTool("TLSurfaceAreaMeasurement"));
    // Not even a new activation resets it: the pool keeps the tool from the tests before.
    const int before = tool->pointCount();
    draw({{100, 100}, {200, 100}, {200, 200}});
    EXPECT_EQ(tool->pointCount(), before + 3);
    // A click on (200, 200) again is ignored; then a single point and a double click measure a
    // ring without area.
    click(200, 200);
    EXPECT_EQ(tool->pointCount(), before + 3);
    press(300, 300);
    doubleClick(300, 300);
    EXPECT_EQ(areaShown(textOf("mSurfaceAreaLineEdit")), 0.0);
    EXPECT_EQ(tool->pointCount(), before + 4);
}

TEST_F(SurfaceMeasure, ARingOffTheRasterMeasuresZero) {
    RasterSpec spec = plane();
    spec.columns = 20;
    spec.rows = 20;
    addRaster("small", spec);
    pick("TLSurfaceAreaMeasurement");
    draw({{500, 100}, {700, 100}, {700, 300}});
    EXPECT_EQ(textOf("mSurfaceAreaLineEdit"), "0.0000000000(Meter)");
}

TEST_F(SurfaceMeasure, CoordinateFilesOfTheThreeFormatsGiveTheSameArea) {
    addRaster("plane", plane());
    pick("TLSurfaceAreaMeasurement");
    click(10, 10);
    const Path square = {{100, 100}, {100, 400}, {400, 400}, {400, 100}};
    const double expected = 90000 * std::sqrt(1 + kA * kA + kB * kB);
    writeText("ring.txt", "Begin\n1,100,100\n2,100,400\n 3 , 400 , 400 \n4,400,100\nEnd\n");
    useFile(scratch("ring.txt"));
    EXPECT_EQ(textOf("mInputCoordinateFileLineEdit"), QString::fromStdString(scratch("ring.txt")));
    EXPECT_NEAR(areaShown(textOf("mSurfaceAreaLineEdit")) / expected, 1.0, 1e-9);
    for (const char* workbook : {"square.xls", "square.xlsx"}) {
        setText("mSurfaceAreaLineEdit", "");
        useFile(std::string(RASTER_TEST_DATA) + "/" + workbook);
        EXPECT_NEAR(areaShown(textOf("mSurfaceAreaLineEdit")) / expected, 1.0, 1e-9) << workbook;
    }
    // The help's own example crosses itself: the two triangles it encloses.
    writeText("help.txt", "1,100,100\n2,100,400\n3,400,100\n4,400,400\n");
    useFile(scratch("help.txt"));
    EXPECT_NEAR(areaShown(textOf("mSurfaceAreaLineEdit")) / (expected / 2), 1.0, 1e-9);
}

TEST_F(SurfaceMeasure, BadFilesWarnAndLeaveTheFormerArea) {
    addRaster("plane", plane());
    pick("TLSurfaceAreaMeasurement");
    draw(kPolygon);
    const QString before = textOf("mSurfaceAreaLineEdit");
    writeText("long.txt", "1,100,100\n2,100,400,,\n3,400,400\n");
    answerer.Queue(scratch("long.txt"));
    answerer.Queue("OK");
    static_cast<QCheckBox*>(shown("mUseCoordinateFileCheckBox"))->click();
    EXPECT_EQ(answerer.Records().back().title, "Warning");
    EXPECT_EQ(answerer.Records().back().text, "The file format is illegal!");
    EXPECT_EQ(textOf("mSurfaceAreaLineEdit"), before);

    answerer.Queue(std::string(RASTER_TEST_DATA) + "/titles-only.xlsx");
    answerer.Queue("OK");
    static_cast<QCheckBox*>(shown("mUseCoordinateFileCheckBox"))->click();
    EXPECT_EQ(answerer.Records().back().text, "The coordinate file format is not standard.");
    EXPECT_EQ(textOf("mSurfaceAreaLineEdit"), before);
}

TEST_F(SurfaceMeasure, AFileWithoutCoordinateLinesFailsOutOfRange) {
    addRaster("plane", plane());
    pick("TLSurfaceAreaMeasurement");
    click(10, 10);
    writeText("empty.txt", "Begin\nEnd\n");
    answerer.Queue(scratch("empty.txt"));
    EXPECT_THROW(static_cast<QCheckBox*>(shown("mUseCoordinateFileCheckBox"))->click(),
                 std::out_of_range);
    // The wait dialog went down with the failure.
    EXPECT_EQ(shown("TMWaitDialog"), nullptr);
}

TEST_F(SurfaceMeasure, OkAndClosingEndTheTool) {
    addRaster("plane", plane());
    pick("TLSurfaceAreaMeasurement");
    click(10, 10);
    EXPECT_EQ(textOf("mPushButton_OK"), "OK");
    answerer.Queue("OK");
    clickButton("mPushButton_Help");
    EXPECT_EQ(answerer.Records().back().title, "Coordinate file");
    EXPECT_EQ(answerer.Records().back().text,
              "The format of the coordinate file is as follows:\n1,100,100\n2,100,400\n"
              "3,400,100\n4,400,400\n");
    clickButton("mPushButton_OK");
    EXPECT_FALSE(poolTool("TLSurfaceAreaMeasurement")->isActive());
    settle();
    EXPECT_EQ(shown("mSurfaceAreaLineEdit"), nullptr);
}

TEST_F(SurfaceMeasure, TheDistanceAlongAPlaneIsThePlaneDistanceTimesTheRise) {
    addRaster("plane", plane());
    pick("TLMeasurementForSurfaceDistance");
    click(155, 305);
    EXPECT_EQ(textOf("mXCoordinateLineEdit1"), "155.0000000000");
    // A second click on the first point is ignored.
    click(155, 305);
    EXPECT_EQ(textOf("mXCoordinateLineEdit2"), "");
    click(455, 405);
    const double dz = kA * 300 + kB * 100;
    const double expected = std::sqrt(300.0 * 300 + 100.0 * 100 + dz * dz);
    EXPECT_EQ(textOf("mOutptDistanceLineEidt"), QString::number(expected, 'g', 6));
    // Typed coordinates count when "Calculate" is pressed.
    setText("mXCoordinateLineEdit2", "155");
    auto* box = dynamic_cast<QDialogButtonBox*>(shown("mDialogButtonBox"));
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->button(QDialogButtonBox::Ok)->text(), "Calculate");
    box->button(QDialogButtonBox::Ok)->click();
    EXPECT_EQ(textOf("mOutptDistanceLineEidt"),
              QString::number(std::sqrt(100.0 * 100 + (kB * 100) * (kB * 100)), 'g', 6));
    EXPECT_EQ(box->button(QDialogButtonBox::Cancel)->text(), "Cancle");
    box->button(QDialogButtonBox::Cancel)->click();
    EXPECT_FALSE(poolTool("TLMeasurementForSurfaceDistance")->isActive());
    settle();
}

}  // namespace
}  // namespace TMObjects
