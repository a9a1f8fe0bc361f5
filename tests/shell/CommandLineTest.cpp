// The command window as a transcript: typed lines echoed after their prompt, each editor step's
// features named, survey points with copyable coordinates; Escape to the tool first, then out of
// it, wherever the focus is; a long prompt that wraps beside a usable input.

#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "ShellFixture.h"
#include "TLLayerPanel.h"
#include "TLShellToolTable.h"
#include "TLToolPalette.h"
#include "hostkit/TLHostBuddy.h"
#include "hostkit/TLToolDispatcher.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLSnapTool.h"

namespace TMObjects {

namespace {

const char* const kPointPrompt = "Specify point or input point coordinates:";

int bandPoints(TLMapView* view) {
    int count = 0;
    for (const TLRubberBand* band : view->RubberBands()) count += band->GetCount();
    return count;
}

}  // namespace

class CommandLineTest : public ShellFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { openShell(); }
    void cleanup() { closeShell(); }

    void aTypedLineIsEchoedAndTheWrittenFeatureNamed() {
        pickFromPalette("TLCmdDigitizePoint");
        typeLine("250,260");
        const QStringList lines = history();
        const int echo = lines.indexOf(QString("%1 250,260").arg(kPointPrompt));
        QVERIFY(echo >= 0);
        const int added = lines.indexOf("wells: feature 4 added.");
        QVERIFY(added > echo);

        window->UndoAction()->trigger();
        QCOMPARE(history().mid(history().size() - 2),
                 (QStringList{"Undone: add feature.", "undo: wells: feature 4 deleted."}));
        window->RedoAction()->trigger();
        QCOMPARE(history().mid(history().size() - 2),
                 (QStringList{"Redone: add feature.", "redo: wells: feature 4 added."}));
    }

    void changesAndDeletionsAreNamedPerLayerAndCounted() {
        TLEditor* editor = window->Document()->Map()->editor();
        TLFeatureLayer* wells = layer("wells");
        editor->StartOperation(TLString("delete features"));
        wells->layer_edit_buffer()->DeleteFeature(1, true, true);
        wells->layer_edit_buffer()->DeleteFeature(2, true, true);
        layer("roads")->layer_edit_buffer()->ChangeAttribute(1, TLString("name"),
                                                             TLVariant(TLString("A1")), true);
        editor->CommitOperation(true);
        // Lines in the map's order of layers, whatever order the step wrote them in.
        QStringList expected{"wells: 2 features deleted.", "roads: feature 1 changed."};
        const QStringList lines = history().mid(history().size() - 2);
        std::sort(expected.begin(), expected.end());
        QStringList got = lines;
        std::sort(got.begin(), got.end());
        QCOMPARE(got, expected);

        // A step that adds a feature and drops it again wrote nothing the user can see.
        const int before = history().size();
        editor->StartOperation(TLString("add feature"));
        TLFeature feature;
        feature.SetGeometry(TLRefPtr<TLGeometry>(new TLGeoPoint(1, 1)));
        wells->layer_edit_buffer()->AddFeature(feature, true, true);
        wells->layer_edit_buffer()->DeleteFeature(feature.GetId(), true, true);
        editor->CommitOperation(true);
        QCOMPARE(history().size(), before);
    }

    void aSurveyPointIsToldWithItsCoordinates() {
        pickFromPalette("TLDigitizeOffsetDistance");
        TLToolDispatcher* dispatcher = window->Dispatcher();
        QVERIFY(dispatcher->ActiveTool());
        // What the dialog's "Draw P" hands the tool.
        dispatcher->SetInformation(TLString("3"));
        TLArray<TLString> list;
        list.Add(TLString("123.45678,890.12345"));
        dispatcher->SetMultipleInformation(list);
        QVERIFY(window->Buddy()->ScratchPointLayerId() >= 0);
        QVERIFY(history().contains("MeasurePointLayer: feature 1 added."));
        QCOMPARE(history().back(), QString("Point P: 123.457, 890.123"));
    }

    void escapeDropsWhatIsDrawnThenLeavesTheToolFromAnyPanel() {
        tickLayerBox("roads", TLLayerPanel::EditingColumn, true);
        typeLine("snap off");
        pickFromPalette("TLCmdDigitizeLine");
        clickCanvas(deviceOf(150, 400));
        clickCanvas(deviceOf(450, 400));
        QVERIFY(bandPoints(window->View()) > 0);
        QVERIFY(prompt() != "Specify the first point:");

        // The focus is on the layer panel: Escape is still the tool's.
        window->Layers()->setFocus();
        QTest::keyClick(window->Layers(), Qt::Key_Escape);
        QCOMPARE(window->Palette()->Active(), TLShellToolTable::IndexOf("TLCmdDigitizeLine"));
        QCOMPARE(bandPoints(window->View()), 0);
        QCOMPARE(prompt(), QString("Specify the first point:"));
        QCOMPARE(layer("roads")->GetDatasource()->GetFeatureCount(), 2);

        QTest::keyClick(window->Palette(), Qt::Key_Escape);
        QVERIFY(!window->Dispatcher()->ActiveTool());
        QCOMPARE(window->Palette()->Active(), -1);
        QCOMPARE(prompt(), QString());
        // With no tool, Escape does nothing at all.
        QTest::keyClick(window->Canvas(), Qt::Key_Escape);
        QVERIFY(!window->Dispatcher()->ActiveTool());
    }

    void aLongPromptWrapsBesideAnInputThatStaysInSight() {
        tickLayerBox("roads", TLLayerPanel::EditingColumn, true);
        pickFromPalette("TLCmdDigitizeLine");
        clickCanvas(deviceOf(150, 400));
        clickCanvas(deviceOf(450, 400));
        QVERIFY(prompt().startsWith("Offset coordinate(OF)"));
        QCoreApplication::processEvents();
        TLCommandWindow* commands = window->Commands();
        QLineEdit* input = commands->Input();
        QVERIFY(commands->PromptLabel()->width() <= commands->width() * 0.6 + 1);
        QVERIFY(commands->PromptLabel()->height() >
                commands->PromptLabel()->fontMetrics().height());
        QVERIFY(input->isVisible());
        QVERIFY(input->width() >= commands->width() / 3);
        QVERIFY(commands->rect().contains(input->geometry()));
    }
};

SHELL_TEST_CLASS(CommandLineTest);

}  // namespace TMObjects

#include "CommandLineTest.moc"
