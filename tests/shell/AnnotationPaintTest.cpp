// Annotation as the shell draws it: the text of each feature inside its box, in its font colour,
// over its background box, redrawn the same each time. Written as a picture under the build
// folder for a person to look at. The text is in DejaVu Sans, the font the dependencies install.

#include <QCoreApplication>
#include <QDir>
#include <QTest>

#include "ShellFixture.h"
#include "ShellTestData.h"
#include "TLMapCanvas.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLAnnoMgrTool.h"
#include "tlmap/TLAnnotationLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMapView.h"
#include "tmgis/TLOgrAnnotation.h"

namespace TMObjects {

namespace {

const QColor kText(200, 0, 0);
const QColor kBox(255, 255, 0);

}  // namespace

class AnnotationPaintTest : public ShellFixture {
    Q_OBJECT

private:
    // A box of 240 x 60 pixels about the canvas's centre, its corners in map coordinates.
    QRect addAnnotation(TLAnnotationLayer* labels) {
        const QSize size = window->Canvas()->size();
        const QRect box(size.width() / 2 - 120, size.height() / 2 - 30, 240, 60);
        const QPointF topLeft = mapOf(box.topLeft()), bottomRight = mapOf(box.bottomRight());
        TLRefPtr<TLGeoPolygon> ring(new TLGeoPolygon);
        ring->BeginPath();
        ring->BeginSegment(1);
        const double xy[5][2] = {{topLeft.x(), topLeft.y()},
                                 {bottomRight.x(), topLeft.y()},
                                 {bottomRight.x(), bottomRight.y()},
                                 {topLeft.x(), bottomRight.y()},
                                 {topLeft.x(), topLeft.y()}};
        for (const auto& p : xy) ring->AddXY(p[0], p[1]);
        ring->EndEntity();
        TLAnnotation record;
        record.put_Text("Ridge");
        record.put_FontName("DejaVu Sans");
        record.put_FontHeight(20, TLTextElement::Pixels);
        record.put_FontWeight(700);
        record.put_FontColor(kText.rgba());
        record.put_BackgroundStyle(BackgroundRectangle);
        record.put_BackColor(kBox.rgba());
        record.put_BoundWidth(0);
        TLFeature feature;
        feature.SetGeometry(ring);
        TLLayerEditBuffer* buffer = labels->layer_edit_buffer();
        buffer->AddFeature(feature, true, true);
        TLAnnoMgrTool::CopyZjInfoToField(labels->annoFieldKind, buffer, record, feature.GetId());
        window->View()->RefreshMap(false, TLRect());
        QCoreApplication::processEvents();
        return box;
    }

    static int pixelsOf(const QImage& image, const QRect& area, const QColor& colour) {
        int count = 0;
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                if (sameColour(image.pixel(x, y), colour, 8)) ++count;
        return count;
    }

private Q_SLOTS:
    void init() {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(folder->isValid());
        dataPath = ShellTestData::WriteGeoPackage(folder->path());
        TLString error;
        QVERIFY2(TLOgrAnnotation::CreateTable(TLString(dataPath.toStdString()), "labels", 2, 1000,
                                              TLAnnotationLayer::AnnoGeoPolygon, TLFields(),
                                              nullptr, error),
                 error.toStdString().c_str());
        showWindowOnData();
    }
    void cleanup() { closeShell(); }

    void annotationShowsItsTextOverItsBox() {
        auto* labels = dynamic_cast<TLAnnotationLayer*>(layer("labels"));
        QVERIFY(labels);
        const QRect box = addAnnotation(labels);
        const QImage first = canvasImage();
        first.save(QDir(TL_SCREENSHOT_DIR).filePath("annotation.png"));
        // Drawn the same way every time.
        window->View()->RefreshMap(false, TLRect());
        QCoreApplication::processEvents();
        QCOMPARE(canvasImage(), first);

        const QRect inside = box.adjusted(2, 2, -2, -2);
        QVERIFY(pixelsOf(first, inside, kBox) > inside.width() * inside.height() / 2);
        QVERIFY(pixelsOf(first, inside, kText) > 100);
        // Nothing of the text or the box beyond the box.
        const QRect around = box.adjusted(-20, -20, 20, 20);
        const int all = pixelsOf(first, around, kText) + pixelsOf(first, around, kBox);
        QCOMPARE(all, pixelsOf(first, box.adjusted(-1, -1, 1, 1), kText) +
                          pixelsOf(first, box.adjusted(-1, -1, 1, 1), kBox));
    }
};

SHELL_TEST_CLASS(AnnotationPaintTest);

}  // namespace TMObjects

#include "AnnotationPaintTest.moc"
