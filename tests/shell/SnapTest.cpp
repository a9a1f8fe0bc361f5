// Snapping in the shell: on by default for vertices and segments, switched by the toolbar and by
// the typed SNAP command, kept in the settings, with the marker drawn where the point will land
// and the committed point exactly on the vertex.

#include <QAction>
#include <QSettings>
#include <QSpinBox>
#include <QTest>

#include "ShellFixture.h"
#include "TLSnapSettings.h"
#include "TLSnapToolBar.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLSnapTool.h"

namespace TMObjects {

namespace {

// The vertices of the last feature of a line layer.
std::vector<TLPoint> lastLine(TLFeatureLayer* layer) {
    TLRefPtr<TLFeatureTable> table = layer->GetDatasource();
    TLGeometry* line = table->PeekFeature(table->GetIds().back())->GetGeometry().get();
    double* xy = nullptr;
    int count = 0;
    std::vector<TLPoint> points;
    if (!line || !line->GetRawPoints(&xy, count)) return points;
    for (int i = 0; i < count; ++i) points.emplace_back(xy[2 * i], xy[2 * i + 1]);
    return points;
}

}  // namespace

class SnapTest : public ShellFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { openShell(); }
    void cleanup() { closeShell(); }

    void aNewUserFindsSnappingOnForVerticesAndSegments() {
        TLSnapEnvironment* environment = TLSnapEnvironment::Instance();
        QVERIFY(environment->isEnabled());
        QVERIFY(environment->snapToVertex());
        QVERIFY(environment->snapToSegment());
        QCOMPARE(environment->getTolerance(), TLSnapSettings::kDefaultTolerance);
        TLSnapToolBar* bar = window->SnapBar();
        QVERIFY(bar->isVisible());
        QVERIFY(bar->SnapAction()->isChecked());
        QVERIFY(bar->VertexAction()->isChecked());
        QVERIFY(bar->SegmentAction()->isChecked());
        QCOMPARE(bar->ToleranceBox()->value(), 10);
    }

    void theToolbarSwitchesSnappingAndTheNextStartKeepsIt() {
        TLSnapToolBar* bar = window->SnapBar();
        bar->SnapAction()->trigger();
        QVERIFY(!TLSnapEnvironment::Instance()->isEnabled());
        // Without snapping, what to snap to cannot be chosen.
        QVERIFY(!bar->VertexAction()->isEnabled());
        bar->ToleranceBox()->setValue(25);
        QCOMPARE(TLSnapEnvironment::Instance()->getTolerance(), 25.0);

        // A new window (a new start of the program) reads what the user left.
        window.reset();
        window = std::make_unique<TLShellWindow>();
        QVERIFY(!window->Snapping()->Enabled());
        QVERIFY(!TLSnapEnvironment::Instance()->isEnabled());
        QCOMPARE(window->SnapBar()->ToleranceBox()->value(), 25);
        QVERIFY(!window->SnapBar()->SnapAction()->isChecked());
        window->SnapBar()->SnapAction()->trigger();
        QVERIFY(TLSnapEnvironment::Instance()->isEnabled());
        QVERIFY(QSettings().value("snap/enabled").toBool());
    }

    void aHandEditedSettingOutOfRangeGivesTheDefault() {
        QSettings().setValue("snap/tolerance", "wide");
        TLSnapSettings words;
        QCOMPARE(words.Tolerance(), TLSnapSettings::kDefaultTolerance);
        QSettings().setValue("snap/tolerance", 5000);
        TLSnapSettings huge;
        QCOMPARE(huge.Tolerance(), TLSnapSettings::kMaximumTolerance);
    }

    void theSnapCommandIsTypedWithOrWithoutATool() {
        typeLine("snap off");
        QCOMPARE(history().back(), QString("Snap: off, vertex and segment, 10 pixels."));
        QVERIFY(!window->SnapBar()->SnapAction()->isChecked());
        typeLine("SNAP");
        QCOMPARE(history().back(), QString("Snap: on, vertex and segment, 10 pixels."));
        typeLine("SNAP SEGMENT OFF");
        QCOMPARE(history().back(), QString("Snap: on, vertex, 10 pixels."));
        QVERIFY(!TLSnapEnvironment::Instance()->snapToSegment());
        typeLine("SNAP 0");
        QCOMPARE(history().back(), QString("The snap tolerance lies between 1 and 100 pixels."));
        typeLine("SNAP sideways");
        QCOMPARE(history().back(),
                 QString("SNAP takes ON, OFF, VERTEX ON|OFF, SEGMENT ON|OFF or a tolerance in "
                         "pixels."));

        // While the line command waits for a point, the apostrophe makes the line the shell's
        // and the command's prompt stays as it was.
        pickFromPalette("TLCmdDigitizeLine");
        const QString waiting = prompt();
        QCOMPARE(waiting, QString("Specify the first point:"));
        typeLine("'snap 15");
        QCOMPARE(history().back(), QString("Snap: on, vertex, 15 pixels."));
        QCOMPARE(window->SnapBar()->ToleranceBox()->value(), 15);
        QCOMPARE(prompt(), waiting);
        // Without it the line is the command's: SNAP is no point, and the command says so.
        typeLine("snap off");
        QVERIFY(TLSnapEnvironment::Instance()->isEnabled());
        QCOMPARE(history().back(),
                 QString("Point coordinate or command input error, please re-enter!"));
    }

    void theMarkerShowsWhereThePointLandsAndTheVertexIsCommittedExactly() {
        pickFromPalette("TLCmdDigitizeLine");
        // Three pixels beside the road's first vertex (100, 100): within the tolerance.
        const QPoint beside = deviceOf(100, 100) + QPoint(3, -2);
        moveCanvas(beside);
        TLMapView* view = window->View();
        QVERIFY(view->HasSnapMarker());
        QCOMPARE(view->SnapMarker().x, 100.0);
        QCOMPARE(view->SnapMarker().y, 100.0);
        const QImage shown = canvasImage();
        // The marker is drawn around the vertex, not around the pointer.
        const QPoint vertex = deviceOf(100, 100);
        QVERIFY(colourNear(shown, vertex + QPoint(0, 8), 2, QColor(255, 0, 255)));
        QVERIFY(colourNear(shown, vertex - QPoint(0, 8), 2, QColor(255, 0, 255)));

        clickCanvas(beside);
        clickCanvas(deviceOf(430, 610) + QPoint(2, 2));  // beside a corner of the parcel
        typeLine("E");
        const std::vector<TLPoint> committed = lastLine(layer("roads"));
        QCOMPARE(int(committed.size()), 2);
        QCOMPARE(committed[0].x, 100.0);
        QCOMPARE(committed[0].y, 100.0);
        // A pointer away from every vertex and segment shows no marker.
        pickFromPalette("TLCmdDigitizeLine");
        moveCanvas(deviceOf(650, 450));
        QVERIFY(!view->HasSnapMarker());
    }

    void withSnappingOffThePointerIsTakenAsItIs() {
        typeLine("snap off");
        pickFromPalette("TLCmdDigitizeLine");
        const QPoint beside = deviceOf(100, 100) + QPoint(3, -2);
        moveCanvas(beside);
        QVERIFY(!window->View()->HasSnapMarker());
        clickCanvas(beside);
        clickCanvas(deviceOf(650, 450));
        typeLine("E");
        const std::vector<TLPoint> committed = lastLine(layer("roads"));
        QCOMPARE(committed[0].x, double(mapOf(beside).x()));
        QCOMPARE(committed[0].y, double(mapOf(beside).y()));
    }
};

SHELL_TEST_CLASS(SnapTest);

}  // namespace TMObjects

#include "SnapTest.moc"
