// Opening and viewing: progress while a layer of a million vertices is read (the window's events
// go on meanwhile, and Cancel stops it), the demo opened as a working copy, the map's coordinate
// system chosen by command, and a raster in another system drawn through a warped VRT.

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <QCryptographicHash>
#include <QFile>
#include <QProgressDialog>
#include <QTest>
#include <QTimer>

#include "ShellFixture.h"
#include "ShellTestData.h"
#include "TLDemoData.h"
#include "TLDemoWorkingCopy.h"
#include "TLMapSystem.h"
#include "TLOpenProgress.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLRasterLayer.h"

namespace TMObjects {

namespace {

constexpr int kLines = 20000;
constexpr int kVerticesEach = 50;

// kLines lines of kVerticesEach vertices: a million vertices in all.
QString writeMillionVertices(const QString& folder) {
    const QString path = folder + "/contours.gpkg";
    std::unique_ptr<GDALDataset> dataset = ShellTestData::NewGeoPackage(path);
    if (!dataset) return QString();
    OGRSpatialReference srs;
    srs.importFromEPSG(3857);
    OGRLayer* lines = dataset->CreateLayer("contours", &srs, wkbLineString, nullptr);
    dataset->StartTransaction();
    for (int i = 0; i < kLines; ++i) {
        std::unique_ptr<OGRFeature> feature(OGRFeature::CreateFeature(lines->GetLayerDefn()));
        auto* line = new OGRLineString;
        for (int v = 0; v < kVerticesEach; ++v) line->addPoint(v * 10.0, i * 5.0 + (v % 2));
        feature->SetGeometryDirectly(line);
        if (lines->CreateFeature(feature.get()) != OGRERR_NONE) return QString();
    }
    dataset->CommitTransaction();
    return path;
}

QByteArray digest(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return QByteArray();
    return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
}

}  // namespace

class OpenAndViewTest : public ShellFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { openShell(); }
    void cleanup() { closeShell(); }

    void aMillionVerticesOpenWithProgressAndTheEventsGoOn() {
        const QString path = writeMillionVertices(folder->path());
        QVERIFY(!path.isEmpty());
        TLOpenProgress progress(window.get(), path);
        long long readWhenTimerRan = -1;
        // An event posted before the reading starts runs while it goes on.
        QTimer::singleShot(0, window.get(), [&] { readWhenTimerRan = progress.Read(); });
        QString error;
        QVERIFY2(window->Document()->Open(path, error, progress.Listener()), qPrintable(error));
        QVERIFY(progress.Reports() >= kLines / 4096);
        QCOMPARE(progress.Read(), (long long)kLines);
        QVERIFY(readWhenTimerRan >= 0 && readWhenTimerRan < kLines);
        QCOMPARE(progress.Dialog()->maximum(), kLines);
        QCOMPARE(progress.Dialog()->value(), kLines);
        QCOMPARE(layer("contours")->GetDatasource()->GetFeatureCount(), kLines);
    }

    void cancelStopsTheOpeningAndAddsNothing() {
        const QString path = writeMillionVertices(folder->path());
        TLOpenProgress progress(window.get(), path);
        QTimer::singleShot(0, window.get(), [&] { progress.Dialog()->cancel(); });
        const int layers = window->Document()->Map()->GetLayerCount();
        QString error;
        QVERIFY(!window->Document()->Open(path, error, progress.Listener()));
        QVERIFY(error.endsWith("was cancelled."));
        QCOMPARE(window->Document()->Map()->GetLayerCount(), layers);
    }

    void theDemoOpensAsAWorkingCopyAndStaysAsItWas() {
        QTemporaryDir demoFolder;
        const QString demo = demoFolder.filePath("demo.gpkg");
        std::string written;
        QVERIFY2(TLDemoData::Write(demo.toStdString(), written), written.c_str());
        const QByteArray before = digest(demo);
        TLDemoWorkingCopy copy;
        QString error;
        QVERIFY2(copy.Make(demo, error), qPrintable(error));
        QVERIFY(copy.Path() != demo);
        QCOMPARE(digest(copy.Path()), before);
        QVERIFY(copy.Note(demo).contains(copy.Path()));

        closeShell();
        folder = std::make_unique<QTemporaryDir>();
        dataPath = copy.Path();
        showWindowOnData();
        pickFromPalette("TLCmdDigitizePoint");
        typeLine("500250,5000073");
        QVERIFY(window->SaveEdits());
        QCOMPARE(digest(demo), before);
        QVERIFY(digest(copy.Path()) != before);
    }

    void theMapsSystemIsChosenByCommand() {
        QVERIFY(TLMapSystem::Describe(window->View()).startsWith("EPSG:3857"));
        QCOMPARE(TLMapSystem::Choices(window->View()), (QStringList{"EPSG:3857", "EPSG:4326"}));
        const TLRect before = window->View()->GetVisibleRect();
        typeLine("CRS EPSG:4326");
        QCOMPARE(history().back(), QString("Map coordinate system: EPSG:4326 WGS 84."));
        // The same ground in degrees: near the origin of Web Mercator, a few thousandths.
        const TLRect after = window->View()->GetVisibleRect();
        QVERIFY(after.Width() < 0.1 && after.Width() > 0);
        QVERIFY(after.Center().x > 0 && after.Center().x < before.Center().x);
        typeLine("CRS EPSG:999999");
        QCOMPARE(history().back(),
                 QString("EPSG:999999 names no coordinate system that PROJ knows."));
        typeLine("CRS");
        QCOMPARE(history().back(), QString("Map coordinate system: EPSG:4326 WGS 84."));
    }

    void aRasterInAnotherSystemIsDrawnCellByCell() {
        const QString raster = ShellTestData::WriteRaster(folder->path());
        QVERIFY(window->OpenData(raster));
        typeLine("CRS EPSG:4326");
        window->Canvas()->ZoomToLayer(
            window->Document()->Map()->GetLayerByName(TLString("slope")).get());
        QCoreApplication::processEvents();
        const QImage shown = canvasImage();
        // The cells grow from black on the left to light grey on the right, in degrees now.
        const QRgb left = shown.pixel(shown.width() / 2 - shown.width() / 4, shown.height() / 2);
        const QRgb right = shown.pixel(shown.width() / 2 + shown.width() / 4, shown.height() / 2);
        QVERIFY(qGray(left) < qGray(right));
        QVERIFY(qGray(right) < 250);
        QVERIFY(!history().join("\n").contains("outline only"));
    }
};

SHELL_TEST_CLASS(OpenAndViewTest);

}  // namespace TMObjects

#include "OpenAndViewTest.moc"
