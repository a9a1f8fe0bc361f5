// A screenshot of the whole shell with a line being drawn, written under the build folder for a
// person to look at, and checked for the rubber band in the drawing look of the tools: a solid
// red pen one pixel wide (the fill of red at alpha 50 is for polygon bands).

#include <QCoreApplication>
#include <QDir>
#include <QPainter>
#include <QTest>

#include "ShellFixture.h"
#include "TLLayerPanel.h"
#include "TLMapCanvas.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLRubberBand.h"

namespace TMObjects {

namespace {

const QColor kBandRed(255, 0, 0);

}  // namespace

class ScreenshotTest : public ShellFixture {
    Q_OBJECT

private:
    // Every pixel on the straight run from a to b, a few pixels clear of both ends (where the
    // vertex markers of other drawings could lie), must be the band's red.
    int offColourPixels(const QImage& image, QPoint a, QPoint b) {
        const QPoint offset = window->Canvas()->mapTo(window.get(), QPoint(0, 0));
        a += offset;
        b += offset;
        const int steps = std::max(std::abs(b.x() - a.x()), std::abs(b.y() - a.y()));
        int off = 0;
        for (int i = 4; i <= steps - 4; ++i) {
            const QPoint p(a.x() + (b.x() - a.x()) * i / steps,
                           a.y() + (b.y() - a.y()) * i / steps);
            if (!colourNear(image, p, 1, kBandRed)) ++off;
        }
        return off;
    }

private Q_SLOTS:
    void init() { openShell(); }
    void cleanup() { closeShell(); }

    void aLineBeingDrawnShowsItsBandInRed() {
        tickLayerBox("roads", TLLayerPanel::EditingColumn, true);
        pickFromPalette("TLCmdDigitizeLine");
        QCOMPARE(history().back(), QString("Command:Drawing Line"));
        // Two vertices in an empty part of the map, then the pointer on to a third place: the
        // band holds the drawn segment and the guide to the pointer.
        const QPoint a = deviceOf(150, 400), b = deviceOf(450, 400), c = deviceOf(600, 250);
        clickCanvas(a);
        clickCanvas(b);
        moveCanvas(c);
        QVERIFY(!window->View()->RubberBands().empty());

        // What the user sees once the event loop has laid out the new prompt.
        QCoreApplication::processEvents();
        const QImage shot = window->grab().toImage().convertToFormat(QImage::Format_ARGB32);
        const QString path = QDir(TL_SCREENSHOT_DIR).filePath("shell-line-band.png");
        QVERIFY(shot.save(path));
        QVERIFY(QFileInfo(path).size() > 0);

        QCOMPARE(offColourPixels(shot, a, b), 0);
        QCOMPARE(offColourPixels(shot, b, c), 0);
        // Nothing red away from the band: it is drawn where it is and nowhere else.
        QVERIFY(!colourNear(shot, deviceOf(150, 700) + window->Canvas()->mapTo(window.get(), {}), 6,
                            kBandRed));
        QCOMPARE(layer("roads")->GetDatasource()->GetFeatureCount(), 2);
    }

    void aPolygonBandIsFilledWithItsTranslucentBrush() {
        TLRubberBand band(window->View(), TLRubberBand::PolygonBand);
        band.SetPenStyle(TLPen::SolidLine, 1.0, TLColor(255, 0, 0));
        band.SetBrushStyle(TLBrush::SolidPattern, TLColor(255, 0, 0, 50));
        for (const TLPoint& p :
             {TLPoint(550, 600), TLPoint(750, 600), TLPoint(750, 800), TLPoint(550, 800)})
            band.AddPoint(p, -1);
        band.Update();
        const QImage image = canvasImage();
        // Red at alpha 50 over the white map: 255 - 50 = 205 in green and blue.
        QVERIFY(sameColour(image.pixel(deviceOf(650, 700)), QColor(255, 205, 205), 1));
        QVERIFY(colourNear(image, deviceOf(550, 700), 1, kBandRed));
        QVERIFY(colourNear(image, deviceOf(650, 800), 1, kBandRed));
    }
};

SHELL_TEST_CLASS(ScreenshotTest);

}  // namespace TMObjects

#include "ScreenshotTest.moc"
