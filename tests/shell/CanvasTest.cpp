// What the canvas shows and how it moves: layers in their colours, the selection outline, the
// snap marker, the clip polygon, redraws kept to the changed area, and pan and zoom.

#include <QApplication>
#include <QCoreApplication>
#include <QLabel>
#include <QTest>
#include <QWheelEvent>

#include "ShellFixture.h"
#include "ShellTestData.h"
#include "TLLayerPanel.h"
#include "TLLayerStyle.h"
#include "TLMapCanvas.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLSelection.h"
#include "tlmap/TLSnapTool.h"

namespace TMObjects {

namespace {

QColor colourOf(const TLColor& c) {
    return QColor(c.getR(), c.getG(), c.getB());
}

TLRefPtr<TLGeoPolygon> rectangle(double x0, double y0, double x1, double y1) {
    TLRefPtr<TLGeoPolygon> polygon(new TLGeoPolygon);
    polygon->BeginPath();
    polygon->BeginSegment(1);
    polygon->AddXY(x0, y0);
    polygon->AddXY(x1, y0);
    polygon->AddXY(x1, y1);
    polygon->AddXY(x0, y1);
    polygon->AddXY(x0, y0);
    polygon->EndEntity();
    return polygon;
}

}  // namespace

class CanvasTest : public ShellFixture {
    Q_OBJECT

private:
    QColor colourOfLayer(const char* name) { return TLLayerStyle::ForLayer(layer(name)).Colour(); }

private Q_SLOTS:
    void init() {
        openShell();
        TLSnapEnvironment::Instance()->setEnabled(false);
    }
    void cleanup() {
        TLSnapEnvironment::Instance()->setEnabled(false);
        closeShell();
    }

    void everyLayerIsDrawnInItsOwnColour() {
        const QImage image = canvasImage();
        QVERIFY(colourNear(image, deviceOf(500, 500), 1, colourOfLayer("wells")));
        QVERIFY(tintedNear(image, deviceOf(500, 100), 1, colourOfLayer("roads")));
        // The parcel's inside is a light fill of its colour, its edge the colour darker.
        const QColor fill = QColor::fromRgb(image.pixel(deviceOf(375, 675)));
        QVERIFY(fill != TLMapCanvas::Background());
        QVERIFY(colourOfLayer("wells") != colourOfLayer("roads"));
        QVERIFY(sameColour(image.pixel(deviceOf(600, 800)), TLMapCanvas::Background()));
    }

    void aLayerSwitchedOffInThePanelDisappears() {
        tickLayerBox("wells", TLLayerPanel::NameColumn, false);
        QVERIFY(!layer("wells")->IsVisible());
        QVERIFY(!colourNear(canvasImage(), deviceOf(500, 500), 2, colourOfLayer("wells")));
        tickLayerBox("wells", TLLayerPanel::NameColumn, true);
        QVERIFY(colourNear(canvasImage(), deviceOf(500, 500), 1, colourOfLayer("wells")));
    }

    void aCommittedPointRedrawsOnlyItsOwnCorner() {
        canvasImage();
        const int renders = window->Canvas()->RenderCount();
        pickFromPalette("TLCmdDigitizePoint");
        const QPoint at = deviceOf(700, 700);
        clickCanvas(at);
        window->Canvas()->RenderPending();
        QCOMPARE(window->Canvas()->RenderCount(), renders + 1);
        const TLMapCanvas::RenderRecord& record = window->Canvas()->LastRender();
        QVERIFY(!record.full);
        QVERIFY(record.region.contains(at));
        QVERIFY2(record.region.width() < 40 && record.region.height() < 40, "a small corner");
        QCOMPARE(record.features, 1);
        QVERIFY(colourNear(canvasImage(), at, 1, colourOfLayer("wells")));
    }

    void theSelectionIsOutlinedInTheEnvironmentsColour() {
        const QColor outline = colourOf(TLSelectionEnvironment::Instance()->GetOutLineColor());
        TLFeatureLayer* wells = layer("wells");
        QVERIFY(!colourNear(canvasImage(), deviceOf(500, 500), 8, outline));
        const int centre = wells->GetDatasource()->GetIds().at(1);
        wells->AddSelect(centre);
        window->View()->Refresh(nullptr, TLMapCache::SelectionCache, TLRect());
        const QImage image = canvasImage();
        QVERIFY(colourNear(image, deviceOf(500, 500), 8, outline));
        QVERIFY(!colourNear(image, deviceOf(200, 200), 8, outline));
    }

    void theSnapMarkerShowsWhereAMoveSnaps() {
        TLSnapEnvironment::Instance()->setEnabled(true);
        pickFromPalette("TLCmdDigitizePoint");
        const QPoint well = deviceOf(800, 300);
        moveCanvas(well + QPoint(3, 2));
        QVERIFY(window->View()->HasSnapMarker());
        const QImage image = canvasImage();
        QVERIFY(colourNear(image, well, 6, QColor(255, 0, 255)));
        QVERIFY(!colourNear(image, deviceOf(500, 500), 8, QColor(255, 0, 255)));
    }

    void theClipPolygonMasksEverythingOutsideIt() {
        window->View()->setClipPolygon(rectangle(0, 0, 600, 600).get());
        const QImage image = canvasImage();
        QVERIFY(colourNear(image, deviceOf(500, 500), 1, colourOfLayer("wells")));
        QVERIFY(!colourNear(image, deviceOf(800, 300), 3, colourOfLayer("wells")));
        QVERIFY(sameColour(image.pixel(deviceOf(800, 800)), TLMapCanvas::MaskedBackground()));
        window->View()->setClipPolygon(nullptr);
        QVERIFY(colourNear(canvasImage(), deviceOf(800, 300), 1, colourOfLayer("wells")));
    }

    void theWheelZoomsAboutThePointer() {
        TLMapCanvas* canvas = window->Canvas();
        const QString scale = window->ScaleLabel()->text();
        QVERIFY(scale.startsWith("1:"));
        const QPoint at = deviceOf(200, 200);
        const QPointF fixed = mapOf(at);
        const double before = window->View()->GetDisplayTransform()->mResolution;
        QWheelEvent wheel(at, canvas->mapToGlobal(at), QPoint(), QPoint(0, 240), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(canvas, &wheel);
        QCOMPARE(window->View()->GetDisplayTransform()->mResolution, before / 1.5625);
        QVERIFY(samePlace(exactDeviceOf(fixed.x(), fixed.y()), at));
        QVERIFY(window->ScaleLabel()->text() != scale);
    }

    void arrowKeysAndTheMiddleButtonMoveTheMap() {
        TLMapCanvas* canvas = window->Canvas();
        const QPointF well = exactDeviceOf(500, 500);
        canvas->setFocus();
        QTest::keyClick(canvas, Qt::Key_Right);
        QVERIFY(samePlace(exactDeviceOf(500, 500), well - QPointF(int(canvas->width() * 0.25), 0)));
        QTest::keyClick(canvas, Qt::Key_Left);
        QVERIFY(samePlace(exactDeviceOf(500, 500), well));

        const QPoint from(300, 300), to(360, 250);
        QTest::mousePress(canvas, Qt::MiddleButton, {}, from);
        moveCanvas(to, Qt::MiddleButton);
        // While dragging only the picture moves; tools see nothing of it.
        QVERIFY(samePlace(exactDeviceOf(500, 500), well));
        QTest::mouseRelease(canvas, Qt::MiddleButton, {}, to);
        QVERIFY(samePlace(exactDeviceOf(500, 500), well + (to - from)));
    }

    void fullExtentShowsEveryFeatureAgain() {
        window->Canvas()->ZoomBy(20, deviceOf(500, 500));
        QVERIFY(!window->Canvas()->rect().contains(deviceOf(100, 100)));
        window->Canvas()->ZoomToFullExtent();
        for (const QPoint& corner : {deviceOf(100, 100), deviceOf(900, 900)})
            QVERIFY(window->Canvas()->rect().contains(corner));
    }

    void zoomToLayerFillsTheViewWithTheCurrentLayer() {
        window->Layers()->setCurrentItem(window->Layers()->ItemOf(layer("parcels")));
        QAction* zoom = menuAction("&View", "Zoom to &Layer");
        QVERIFY(zoom);
        zoom->trigger();
        const QRect shown = window->Canvas()->rect();
        const QPoint low = deviceOf(300, 600), high = deviceOf(450, 750);
        QVERIFY(shown.contains(low) && shown.contains(high));
        QVERIFY(low.y() - high.y() > shown.height() * 0.8);
        QVERIFY(!shown.contains(deviceOf(200, 200)));
    }

    void aRasterIsDrawnInGreyBeneathTheVectors() {
        QVERIFY(window->OpenData(ShellTestData::WriteRaster(folder->path())));
        TLLayerPanel* panel = window->Layers();
        QCOMPARE(panel->topLevelItemCount(), 4);
        QCOMPARE(panel->topLevelItem(3)->text(TLLayerPanel::KindColumn), QString("raster"));
        window->Canvas()->ZoomToFullExtent();
        const QImage image = canvasImage();
        // Cells run from 0 (black) on the left to 90 (white) on the right.
        QVERIFY(sameColour(image.pixel(deviceOf(50, 250)), QColor(0, 0, 0)));
        QVERIFY(sameColour(image.pixel(deviceOf(450, 250)), QColor(113, 113, 113), 1));
        // The cell without data shows the map's background.
        QVERIFY(sameColour(image.pixel(deviceOf(50, 950)), TLMapCanvas::Background()));
        QVERIFY(colourNear(image, deviceOf(500, 500), 1, colourOfLayer("wells")));
    }

    void dataOpenedBeforeTheWindowShowsFillsTheCanvas() {
        // The program opens its data before showing the window, when the canvas has no size of
        // its own yet.
        window = std::make_unique<TLShellWindow>();
        QVERIFY(window->OpenData(dataPath));
        window->resize(1100, 760);
        window->show();
        QCoreApplication::processEvents();
        const QRect shown = window->Canvas()->rect();
        for (const QPoint& corner : {deviceOf(100, 100), deviceOf(900, 900)})
            QVERIFY(shown.contains(corner));
        // Fitted, not left at the size of the first guess: the data span most of the height.
        QVERIFY(deviceOf(100, 100).y() - deviceOf(900, 900).y() > shown.height() * 0.8);
    }

    void thePointerPositionIsShownInMapCoordinates() {
        moveCanvas(deviceOf(500, 500));
        const QStringList xy = window->CoordinateLabel()->text().split(", ");
        QCOMPARE(xy.size(), 2);
        const double resolution = window->View()->GetDisplayTransform()->mResolution;
        QVERIFY(std::abs(xy[0].toDouble() - 500) <= resolution);
        QVERIFY(std::abs(xy[1].toDouble() - 500) <= resolution);
    }
};

SHELL_TEST_CLASS(CanvasTest);

}  // namespace TMObjects

#include "CanvasTest.moc"
