// The shield tools in the shell: the rectangle or polygon being drawn shows although the tool
// keeps no band between events, the map outside the mask is hidden on a dimmed ground, and the
// clear tool brings it back.

#include <QTest>

#include "ShellFixture.h"
#include "TLLayerStyle.h"
#include "TLMapCanvas.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLSnapTool.h"

namespace TMObjects {

namespace {

const QColor kBandRed(255, 0, 0);

QPoint middle(const QPoint& a, const QPoint& b) {
    return (a + b) / 2;
}

}  // namespace

class MaskTest : public ShellFixture {
    Q_OBJECT

private:
    QColor colourOfLayer(const char* name) { return TLLayerStyle::ForLayer(layer(name)).Colour(); }

private Q_SLOTS:
    void init() {
        openShell();
        TLSnapEnvironment::Instance()->setEnabled(false);
    }
    void cleanup() { closeShell(); }

    void aDraggedRectangleShowsAndThenHidesTheMapOutsideIt() {
        pickFromPalette("TLToolShieldRectangle");
        const QPoint a = deviceOf(400, 400), b = deviceOf(650, 650);
        clickCanvas(a);
        moveCanvas(b);
        QVERIFY(window->View()->RubberBands().empty());
        QImage image = canvasImage();
        // The side from the first corner across to the pointer's column.
        QVERIFY(colourNear(image, middle(a, QPoint(b.x(), a.y())), 1, kBandRed));

        clickCanvas(b);
        QVERIFY(window->View()->clipPolygon() != nullptr);
        image = canvasImage();
        QVERIFY(colourNear(image, deviceOf(500, 500), 1, colourOfLayer("wells")));
        QVERIFY(!colourNear(image, deviceOf(800, 300), 3, colourOfLayer("wells")));
        QVERIFY(sameColour(image.pixel(deviceOf(800, 800)), TLMapCanvas::MaskedBackground()));
        // The picture of the drag is gone; the mask's own outline is no band.
        QVERIFY(!colourNear(image, middle(a, QPoint(b.x(), a.y())), 2, kBandRed));

        pickFromPalette("TLToolShieldAreasClear");
        QVERIFY(window->View()->clipPolygon() == nullptr);
        image = canvasImage();
        QVERIFY(colourNear(image, deviceOf(800, 300), 1, colourOfLayer("wells")));
        QVERIFY(!sameColour(image.pixel(deviceOf(800, 800)), TLMapCanvas::MaskedBackground()));
    }

    void aPolygonBeingClickedShowsItsSidesToThePointer() {
        pickFromPalette("TLToolShieldPolygon");
        const QPoint a = deviceOf(150, 700), b = deviceOf(450, 700), c = deviceOf(300, 900);
        clickCanvas(a);
        clickCanvas(b);
        moveCanvas(c);
        const QImage image = canvasImage();
        QVERIFY(colourNear(image, middle(a, b), 1, kBandRed));
        QVERIFY(colourNear(image, middle(b, c), 1, kBandRed));
        QVERIFY(window->View()->clipPolygon() == nullptr);
    }
};

SHELL_TEST_CLASS(MaskTest);

}  // namespace TMObjects

#include "MaskTest.moc"
