// The point command as a cartographer uses it in the shell, on the demo data the shell starts
// on: picked from the palette, a press on the map, undo from the Edit menu, a coordinate pair
// typed into the command window.

#include <QAction>
#include <QLineEdit>
#include <QTest>

#include "ShellFixture.h"
#include "TLShellToolTable.h"
#include "TLToolPalette.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlmap/TLFeatureLayer.h"

namespace TMObjects {

namespace {

const char* const kInputLayer = "The current input layer is:*******point*******";
const char* const kCommand = "Command:Drawing Point";
const char* const kPrompt = "Specify point or input point coordinates:";
const char* const kBadText = "Point coordinate or command input error, please re-enter!";

// The points of a layer, in id order.
QList<QPointF> pointsOf(TLFeatureLayer* layer) {
    QList<QPointF> points;
    TLRefPtr<TLFeatureTable> table = layer->GetDatasource();
    for (int id : table->GetIds()) {
        auto* point = dynamic_cast<TLGeoPoint*>(table->PeekFeature(id)->GetGeometry().get());
        if (point) points << QPointF(point->GetX(), point->GetY());
    }
    return points;
}

}  // namespace

class PointSessionTest : public ShellFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { openDemoShell(); }
    void cleanup() { closeShell(); }

    void pressOnTheMapAddsAPointThatUndoTakesBack() {
        TLFeatureLayer* wells = layer("wells");
        QCOMPARE(wells->GetDatasource()->GetFeatureCount(), 3);
        pickFromPalette("TLCmdDigitizePoint");
        QCOMPARE(window->Palette()->Active(), TLShellToolTable::IndexOf("TLCmdDigitizePoint"));
        QCOMPARE(history(), (QStringList{kInputLayer, kCommand}));
        QCOMPARE(prompt(), QString(kPrompt));

        // Clear of every feature, so that nothing is snapped to.
        const QPoint at = deviceOf(500520, 5000460);
        clickCanvas(at);
        QCOMPARE(wells->GetDatasource()->GetFeatureCount(), 4);
        const QPointF added = pointsOf(wells).back();
        const QPointF expected = mapOf(at);
        QCOMPARE(added.x(), expected.x());
        QCOMPARE(added.y(), expected.y());
        QCOMPARE(history().back(), QString(kCommand));
        QCOMPARE(prompt(), QString(kPrompt));

        QAction* undo = window->UndoAction();
        QVERIFY(undo->isEnabled());
        QCOMPARE(undo->text(), QString("&Undo add feature"));
        undo->trigger();
        QCOMPARE(wells->GetDatasource()->GetFeatureCount(), 3);
        QVERIFY(!pointsOf(wells).contains(added));
        QVERIFY(!undo->isEnabled());
        QCOMPARE(window->RedoAction()->text(), QString("&Redo add feature"));
        window->RedoAction()->trigger();
        QCOMPARE(pointsOf(wells).back(), added);
    }

    void aTypedCoordinatePairAddsThatPoint() {
        pickFromPalette("TLCmdDigitizePoint");
        typeLine("500250.5,5000073");
        TLFeatureLayer* wells = layer("wells");
        QCOMPARE(wells->GetDatasource()->GetFeatureCount(), 4);
        QCOMPARE(pointsOf(wells).back(), QPointF(500250.5, 5000073));
        QCOMPARE(history().back(), QString(kCommand));
        QVERIFY(window->Commands()->Input()->text().isEmpty());
        window->UndoAction()->trigger();
        QCOMPARE(wells->GetDatasource()->GetFeatureCount(), 3);
    }

    void anEmptyEnterReachesTheToolAsAnEmptyLine() {
        pickFromPalette("TLCmdDigitizePoint");
        const int lines = history().size();
        typeLine("");
        // The empty line is echoed after its prompt, then the tool answers it.
        QCOMPARE(history().mid(lines), (QStringList{QString(kPrompt) + " ", kBadText}));
        QCOMPARE(prompt(), QString(kPrompt));
        QCOMPARE(layer("wells")->GetDatasource()->GetFeatureCount(), 3);
    }

    void typingOverTheMapGoesToTheCommandLine() {
        pickFromPalette("TLCmdDigitizePoint");
        window->Canvas()->setFocus();
        QTest::keyClicks(window->Canvas(), "500012,5000034");
        QCOMPARE(window->Commands()->Input()->text(), QString("500012,5000034"));
        QTest::keyClick(window->Commands()->Input(), Qt::Key_Return);
        QCOMPARE(pointsOf(layer("wells")).back(), QPointF(500012, 5000034));
    }
};

SHELL_TEST_CLASS(PointSessionTest);

}  // namespace TMObjects

#include "PointSessionTest.moc"
