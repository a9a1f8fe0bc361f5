// A cartographer's session on the real-data mix: counties in NAD27, tracts in UTM, a Dutch
// raster in RD New. The map takes the first system; the others are projected for display, the
// raster through a warped VRT; the map is switched to UTM; a new tract is snapped onto a
// tract's corner (committed exactly there), its required code typed in the attribute table;
// saved, and read back with GDAL.

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <QSortFilterProxyModel>
#include <QTest>

#include "RealDataMix.h"
#include "ShellFixture.h"
#include "TLAttributeTable.h"
#include "TLAttributeTableModel.h"
#include "TLLayerPanel.h"
#include "TLMapSystem.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLRasterLayer.h"

namespace TMObjects {

namespace {

// Whether any pixel of the canvas inside `area` is a shade of grey darker than the background:
// raster cells, not the white map nor a dashed outline alone.
int greyPixels(const QImage& image, const QRect& area) {
    int count = 0;
    for (int y = std::max(0, area.top()); y <= std::min(image.height() - 1, area.bottom()); ++y)
        for (int x = std::max(0, area.left()); x <= std::min(image.width() - 1, area.right());
             ++x) {
            const QRgb p = image.pixel(x, y);
            if (qRed(p) == qGreen(p) && qGreen(p) == qBlue(p) && qRed(p) < 250) ++count;
        }
    return count;
}

}  // namespace

class RealDataTest : public ShellFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(folder->isValid());
        dataPath = RealDataMix::WriteCounties(folder->path());
        QVERIFY(!dataPath.isEmpty());
        showWindowOnData();
    }
    void cleanup() { closeShell(); }

    void openReprojectSnapEditSaveAndReadBack() {
        const QString tracts = RealDataMix::WriteTracts(folder->path());
        const QString raster = RealDataMix::WriteDutchRaster(folder->path());
        QVERIFY(!tracts.isEmpty());
        QVERIFY2(!raster.isEmpty(), "gdal_translate made no raster");
        QVERIFY(window->OpenData(tracts));
        QVERIFY(window->OpenData(raster));
        QVERIFY(TLMapSystem::Describe(window->View()).startsWith("EPSG:4267"));

        // The Dutch raster, seen from a map in NAD27 degrees, is drawn cell by cell.
        TLLayer* heights = window->Document()->Map()->GetLayerByName(TLString("heights")).get();
        QVERIFY(dynamic_cast<TLRasterLayer*>(heights));
        window->Canvas()->ZoomToLayer(heights);
        QCoreApplication::processEvents();
        const QImage dutch = canvasImage();
        const QRect middle(dutch.width() / 2 - 40, dutch.height() / 2 - 40, 80, 80);
        QVERIFY(greyPixels(dutch, middle) > 3000);
        window->grab().save(TL_SCREENSHOT_DIR "/realdata-raster.png");
        QVERIFY(!history().join("\n").contains("outline only"));

        // The map in the tracts' system: the tracts' own coordinates on screen.
        typeLine("CRS EPSG:26917");
        QVERIFY(history().back().startsWith("Map coordinate system: EPSG:26917"));
        window->Canvas()->ZoomToLayer(layer("tracts"));
        QCoreApplication::processEvents();

        // A new tract north of the first, its first corner snapped onto the first tract's
        // north-west corner from a few pixels off.
        const double x = RealDataMix::kTractCornerX, y = RealDataMix::kTractCornerY + 5000;
        tickLayerBox("tracts", TLLayerPanel::EditingColumn, true);
        pickFromPalette("TLCmdDigitizePolygon");
        QCOMPARE(window->Document()->Map()->editor()->edit_layer(),
                 static_cast<TLLayer*>(layer("tracts")));
        const QPoint corner = deviceOf(x, y) + QPoint(-3, 2);
        moveCanvas(corner);
        QVERIFY(window->View()->HasSnapMarker());
        // For a look by eye (under Xvfb): the tracts in UTM, the counties projected, the marker.
        window->grab().save(TL_SCREENSHOT_DIR "/realdata-snap.png");
        clickCanvas(corner);
        typeLine(QString("%1,%2").arg(x + 4000, 0, 'f', 0).arg(y));
        typeLine(QString("%1,%2").arg(x + 2000, 0, 'f', 0).arg(y + 3000));
        typeLine("E");
        TLFeatureLayer* tractLayer = layer("tracts");
        QCOMPARE(tractLayer->GetDatasource()->GetFeatureCount(), 3);
        QVERIFY(history().contains("tracts: feature 3 added."));
        const TLFeature* added = tractLayer->GetDatasource()->PeekFeature(3);
        double* xy = nullptr;
        int count = 0;
        QVERIFY(added->GetGeometry()->GetRawPoints(&xy, count));
        QCOMPARE(xy[0], x);
        QCOMPARE(xy[1], y);

        // Saving asks for the required tract code first, in the table, on the new tract.
        QVERIFY(!window->SaveEdits());
        QVERIFY(
            history().back().startsWith("Not saved: feature 3 of tracts has no value for TRACTCE"));
        TLAttributeTable* table = window->Attributes();
        QCOMPARE(table->Layer(), tractLayer);
        QWidget* editor = QApplication::focusWidget();
        QVERIFY(editor);
        QTest::keyClicks(editor, "950300");
        QTest::keyClick(editor, Qt::Key_Return);
        // The delegate writes the typed value once the event loop comes round.
        QCoreApplication::processEvents();
        const QModelIndex population = table->Proxy()->mapFromSource(
            table->Model()->index(table->Model()->RowOf(3), table->Model()->ColumnOf("POP")));
        QVERIFY(table->Proxy()->setData(population, "2950", Qt::EditRole));
        window->grab().save(TL_SCREENSHOT_DIR "/realdata-table.png");
        QVERIFY(window->SaveEdits());

        GDALDatasetUniquePtr file(GDALDataset::Open(tracts.toUtf8().constData(), GDAL_OF_VECTOR));
        QVERIFY(file);
        OGRLayer* stored = file->GetLayerByName("tracts");
        QCOMPARE(stored->GetFeatureCount(), 3LL);
        std::unique_ptr<OGRFeature> third(stored->GetFeature(3));
        QVERIFY(third);
        QCOMPARE(QString(third->GetFieldAsString("TRACTCE")), QString("950300"));
        QCOMPARE(third->GetFieldAsInteger("POP"), 2950);
        const OGRLinearRing* ring = third->GetGeometryRef()->toPolygon()->getExteriorRing();
        QCOMPARE(ring->getX(0), x);
        QCOMPARE(ring->getY(0), y);
        QCOMPARE(ring->getNumPoints(), 4);
    }
};

SHELL_TEST_CLASS(RealDataTest);

}  // namespace TMObjects

#include "RealDataTest.moc"
