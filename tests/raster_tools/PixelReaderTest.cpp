// The pixel value viewer and the pixel inspector: what a click on a raster shows, at its edges,
// on no-data, and on maps without rasters.
#include <QComboBox>
#include <QTabWidget>
#include <QTableWidget>

#include "RasterToolSession.h"
#include "raster/TLToolPixelInspector.h"
#include "tlmap/TLSingleBandImageRender.h"

namespace TMObjects {
namespace {

// 40 x 30 cells of 10 m over x 100..500, y 200..500; cell (c, r) holds 10 r + c, and the cell
// (3, 2) the no-data value -9999.
RasterSpec grid() {
    RasterSpec spec;
    spec.columns = 40;
    spec.rows = 30;
    spec.left = 100;
    spec.top = 500;
    spec.hasNoData = true;
    spec.value = [](int, int c, int r) { return c == 3 && r == 2 ? -9999.0 : 10.0 * r + c; };
    return spec;
}

// The centre of a cell of grid().
double cx(int column) {
    return 105.0 + 10 * column;
}
double cy(int row) {
    return 495.0 - 10 * row;
}

class PixelReaders : public RasterToolSession {};

TEST_F(PixelReaders, AMapWithoutRastersNeverShowsTheDialog) {
    addLayer("wells", TLLayer::PointLayer);
    pick("TLToolViewPixelVal");
    click(300, 300);
    EXPECT_EQ(shown("tableWidget"), nullptr);
    pick("TLToolPixelInspector");
    click(300, 300);
    EXPECT_EQ(shown("comboBox_layer"), nullptr);
}

TEST_F(PixelReaders, TheViewerShowsValueRowColumnAndPlace) {
    addRaster("heights", grid());
    pick("TLToolViewPixelVal");
    click(cx(7), cy(4));
    EXPECT_EQ(textOf("lineEdit"), "175.000000  455.000000 Meters");
    EXPECT_EQ(textOf("lineEdit_row"), "4");
    EXPECT_EQ(textOf("lineEdit_col"), "7");
    EXPECT_EQ(textOf("lineEdit_viewLayer"), "heights");
    EXPECT_EQ(textOf("comboBox"), "Top most layer");
    QTableWidget* values = table("tableWidget");
    ASSERT_NE(values, nullptr);
    EXPECT_EQ(values->rowCount(), 20);
    EXPECT_EQ(cell(values, 0, 0), "Pixel value");
    EXPECT_EQ(cell(values, 0, 1), "47.000000");
    EXPECT_EQ(cell(values, 1, 0), "-");

    click(cx(3), cy(2));
    EXPECT_EQ(cell(values, 0, 1), "NoData");
    // A zero cell is a value.
    click(cx(0), cy(0));
    EXPECT_EQ(cell(values, 0, 1), "0.000000");
}

TEST_F(PixelReaders, OffTheRasterTheTableEmptiesAndTheRestStays) {
    addRaster("heights", grid());
    pick("TLToolViewPixelVal");
    click(cx(7), cy(4));
    click(600, 100);
    EXPECT_EQ(cell(table("tableWidget"), 0, 1), "-");
    EXPECT_EQ(textOf("lineEdit_viewLayer"), "heights");
    // The location is cleared with the combo's refill, and not written again.
    EXPECT_EQ(textOf("lineEdit"), "");
}

TEST_F(PixelReaders, AClickAtTheExactOriginShowsTheDialogWithoutReading) {
    RasterSpec spec = grid();
    spec.left = -50;
    spec.top = 50;
    addRaster("heights", spec);
    pick("TLToolViewPixelVal");
    click(0, 0);
    ASSERT_NE(shown("tableWidget"), nullptr);
    EXPECT_EQ(textOf("lineEdit_row"), "");
    EXPECT_EQ(cell(table("tableWidget"), 0, 0), "-");
}

TEST_F(PixelReaders, TheTopMostRasterThatCoversThePointAnswersAndAChosenOneIsKept) {
    RasterSpec west = grid();
    RasterSpec east = grid();
    east.left = 450;
    east.value = [](int, int, int) { return 7.0; };
    addRaster("west", west);
    addRaster("east", east);
    pick("TLToolViewPixelVal");
    click(cx(38), cy(1));  // x 485: both cover it
    auto* combo = static_cast<QComboBox*>(shown("comboBox"));
    ASSERT_NE(combo, nullptr);
    ASSERT_EQ(combo->count(), 3);
    const QString first = combo->itemText(1);
    EXPECT_EQ(textOf("lineEdit_viewLayer"), first);
    combo->setCurrentIndex(2);
    // Read again only at the next click, with the choice kept across the refill.
    click(cx(38), cy(1));
    EXPECT_EQ(textOf("comboBox"), combo->itemText(2));
    EXPECT_EQ(textOf("lineEdit_viewLayer"), combo->itemText(2));
}

TEST_F(PixelReaders, TheInspectorShowsTheCellsOnTheRasterAroundTheClickAndNodata) {
    addRaster("heights", grid());
    pick("TLToolPixelInspector");
    // Cell (1, 1): the block reaches one row and one column off the raster.
    dispatcher->MouseDown(TLLeftButton, int(cx(1)), int(600 - cy(1)));
    QTableWidget* band1 = table("tableWidget_band1");
    ASSERT_NE(band1, nullptr);
    auto* tabs = static_cast<QTabWidget*>(shown("tabWidget"));
    ASSERT_EQ(tabs->count(), 1);
    EXPECT_EQ(tabs->tabText(0), "Band_1");
    EXPECT_EQ(cell(band1, 0, 0), "-");
    EXPECT_EQ(cell(band1, 0, 4), "-");
    EXPECT_EQ(cell(band1, 1, 1), "0.000000");
    EXPECT_EQ(cell(band1, 2, 2), "11.000000");
    EXPECT_EQ(cell(band1, 3, 4), "Nodata");
    EXPECT_EQ(cell(band1, 4, 4), "33.000000");

    // The grid of the block, while the button is held: six lines each way, one cell apart.
    auto* tool = static_cast<TLToolPixelInspector*>(poolTool("TLToolPixelInspector"));
    ASSERT_NE(tool->gridBand(), nullptr);
    const Path rows = pointsOf(tool->gridBand());
    ASSERT_EQ(tool->gridBand()->GetGeometryCount(), 12);
    EXPECT_EQ(rows.front(), XY(90, 510));
    EXPECT_EQ(rows[1], XY(140, 510));
    EXPECT_EQ(rows[10], XY(90, 460));
    EXPECT_EQ(rows[22], XY(140, 510));
    EXPECT_EQ(rows[23], XY(140, 460));
    dispatcher->MouseUp(TLRightButton, int(cx(1)), int(600 - cy(1)));
    EXPECT_EQ(tool->gridBand(), nullptr);
}

TEST_F(PixelReaders, AMultiBandRasterShownByOneBandShowsEmptyTables) {
    RasterSpec spec = grid();
    spec.bands = 3;
    TLRasterLayer* layer = addRaster("image", spec);
    pick("TLToolPixelInspector");
    click(cx(10), cy(10));
    ASSERT_EQ(static_cast<QTabWidget*>(shown("tabWidget"))->count(), 3);
    EXPECT_EQ(cell(table("tableWidget_band3"), 2, 2), "110.000000");
    EXPECT_EQ(cell(table("tableWidget_band1"), 2, 2), "110.000000");

    layer->SetRender(new TLSingleBandImageRender(2));
    click(cx(10), cy(10));
    EXPECT_EQ(cell(table("tableWidget_band1"), 2, 2), "-");
    EXPECT_EQ(cell(table("tableWidget_band2"), 2, 2), "-");
}

}  // namespace
}  // namespace TMObjects
