// The panels around the map: the tool palette and Tools menu from the tool table, the layer
// panel's boxes, the command window's recall, and what the buddy's calls show.

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTest>
#include <QTextCursor>

#include "ShellFixture.h"
#include "TLCommandWindow.h"
#include "TLLayerPanel.h"
#include "TLMapCanvas.h"
#include "TLShellText.h"
#include "TLShellToolTable.h"
#include "TLToolPalette.h"
#include "hostkit/TLHostBuddy.h"
#include "hostkit/TLToolDispatcher.h"
#include "tlmap/TLCMDPool.h"
#include "tlmap/TLFeatureLayer.h"

namespace TMObjects {

class PanelsTest : public ShellFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { openShell(); }
    void cleanup() { closeShell(); }

    void thePaletteListsEveryPooledToolUnderItsSubsystem() {
        TLToolPalette* palette = window->Palette();
        QCOMPARE(TLShellToolTable::Count(), 66);
        QCOMPARE(TLCMDPool::GetInstance()->GetToolCount(), 66);
        int listed = 0;
        for (int group = 0; group < palette->topLevelItemCount(); ++group)
            listed += palette->topLevelItem(group)->childCount();
        QCOMPARE(listed, 66);
        for (int i = 0; i < TLShellToolTable::Count(); ++i) {
            const auto& entry = TLShellToolTable::Entries()[std::size_t(i)];
            // Every row names a tool the plugin put into the pool, in the pool's order.
            QCOMPARE(TLShellToolTable::PoolTool(i), TLCMDPool::GetInstance()->GetTool(i));
            QTreeWidgetItem* item = palette->ItemOf(i);
            QCOMPARE(item->parent()->text(0), QString(entry.subsystem));
            const bool built = entry.status == TLShellToolTable::Built;
            QCOMPARE(item->text(TLToolPalette::StatusColumn),
                     QString(built ? "built" : "not built"));
            QCOMPARE(item->toolTip(TLToolPalette::StatusColumn),
                     TLShellToolTable::StatusText(entry.status));
        }
        const int point = TLShellToolTable::IndexOf("TLCmdDigitizePoint");
        QCOMPARE(palette->ItemOf(point)->text(TLToolPalette::ToolColumn),
                 QString("Digitize Point"));
        QCOMPARE(palette->ItemOf(point)->text(TLToolPalette::StatusColumn), QString("built"));
        // A tool with no behaviour of its own stays unbuilt.
        QCOMPARE(palette->ItemOf(TLShellToolTable::IndexOf("TLToolIdentifyRoute"))
                     ->text(TLToolPalette::StatusColumn),
                 QString("not built"));
    }

    void theToolsMenuPicksLikeThePalette() {
        const int point = TLShellToolTable::IndexOf("TLCmdDigitizePoint");
        QAction* action = window->Palette()->ActionOf(point);
        QMenu* digitizing = nullptr;
        for (QAction* top : window->menuBar()->actions())
            if (top->text() == "&Tools")
                for (QAction* sub : top->menu()->actions())
                    if (sub->menu() && sub->text() == "Digitizing") digitizing = sub->menu();
        QVERIFY(digitizing);
        QVERIFY(digitizing->actions().contains(action));
        action->trigger();
        QVERIFY(window->Dispatcher()->ActiveTool() == TLShellToolTable::PoolTool(point));
        QVERIFY(action->isChecked());
        QCOMPARE(window->Palette()->ItemOf(point)->checkState(0), Qt::Checked);
        const int route = TLShellToolTable::IndexOf("TLToolIdentifyRoute");
        QVERIFY(window->Palette()->ActionOf(route)->text().endsWith("(not built)"));
        window->LeaveTool();
        QVERIFY(!window->Dispatcher()->ActiveTool());
        QVERIFY(!action->isChecked());
        QCOMPARE(prompt(), QString());
    }

    void aDrawingToolWithoutALayerOfItsKindGetsOne() {
        tickLayerBox("wells", TLLayerPanel::EditingColumn, false);
        QVERIFY(!window->Document()->Map()->editor()->edit_layer());
        pickFromPalette("TLCmdDigitizePoint");
        QCOMPARE(window->Document()->Map()->editor()->edit_layer(), layer("wells"));
        QCOMPARE(window->Document()->Map()->GetCurrentLayer().get(),
                 static_cast<TLLayer*>(layer("wells")));
        QCOMPARE(window->Palette()->Active(), TLShellToolTable::IndexOf("TLCmdDigitizePoint"));
        QVERIFY(history().contains("Digitize Point draws on a point layer: now editing wells."));
        QCOMPARE(window->Layers()->ItemOf(layer("wells"))->checkState(TLLayerPanel::EditingColumn),
                 Qt::Checked);
        QVERIFY(window->Layers()->ItemOf(layer("wells"))->font(TLLayerPanel::NameColumn).bold());

        // The line command moves the editing to the one line layer.
        pickFromPalette("TLCmdDigitizeLine");
        QCOMPARE(window->Document()->Map()->editor()->edit_layer(), layer("roads"));
        QVERIFY(!window->Layers()->ItemOf(layer("wells"))->font(TLLayerPanel::NameColumn).bold());
        QCOMPARE(prompt(), QString("Specify the first point:"));
    }

    void aDrawingToolWithNoLayerOfItsKindSaysWhichItNeeds() {
        tickLayerBox("wells", TLLayerPanel::EditingColumn, false);
        tickLayerBox("wells", TLLayerPanel::EditableColumn, false);
        pickFromPalette("TLCmdDigitizePoint");
        QCOMPARE(window->Palette()->Active(), -1);
        QVERIFY(
            history().contains("Digitize Point draws on a point layer, and no point layer is "
                               "open for editing: tick Editable on one, or open one from the "
                               "File menu."));
        QVERIFY(window->statusBar()->currentMessage().contains("No layer is being edited"));
    }

    void switchingTheEditLayerRestartsTheToolOnIt() {
        pickFromPalette("TLCmdDigitizePoint");
        tickLayerBox("roads", TLLayerPanel::EditingColumn, true);
        QCOMPARE(window->Document()->Map()->editor()->edit_layer(), layer("roads"));
        QTreeWidgetItem* wells = window->Layers()->ItemOf(layer("wells"));
        QCOMPARE(wells->checkState(TLLayerPanel::EditingColumn), Qt::Unchecked);
        QCOMPARE(history().back(),
                 QString("The current layer is not a point layer. Please select the point layer "
                         "editor!"));
        QCOMPARE(prompt(), QString("Command:"));
        clickCanvas(deviceOf(600, 600));
        QCOMPARE(layer("roads")->GetDatasource()->GetFeatureCount(), 2);
    }

    void anUneditableLayerTakesNoClicks() {
        pickFromPalette("TLCmdDigitizePoint");
        tickLayerBox("wells", TLLayerPanel::EditableColumn, false);
        QVERIFY(!layer("wells")->IsEditable());
        clickCanvas(deviceOf(600, 600));
        QCOMPARE(layer("wells")->GetDatasource()->GetFeatureCount(), 3);
        tickLayerBox("wells", TLLayerPanel::EditableColumn, true);
        clickCanvas(deviceOf(600, 600));
        QCOMPARE(layer("wells")->GetDatasource()->GetFeatureCount(), 4);
    }

    void escapeLeavesTheToolFromTheMapAndFromTheCommandLine() {
        pickFromPalette("TLCmdDigitizePoint");
        window->Canvas()->setFocus();
        QTest::keyClick(window->Canvas(), Qt::Key_Escape);
        QVERIFY(!window->Dispatcher()->ActiveTool());
        QCOMPARE(window->Palette()->Active(), -1);
        QCOMPARE(prompt(), QString());

        // Typed text goes first; the next Escape leaves the tool.
        pickFromPalette("TLCmdDigitizePoint");
        QLineEdit* input = window->Commands()->Input();
        QTest::keyClicks(input, "12,");
        QTest::keyClick(input, Qt::Key_Escape);
        QVERIFY(input->text().isEmpty());
        QVERIFY(window->Dispatcher()->ActiveTool());
        QTest::keyClick(input, Qt::Key_Escape);
        QVERIFY(!window->Dispatcher()->ActiveTool());
        QCOMPARE(layer("wells")->GetDatasource()->GetFeatureCount(), 3);
    }

    void theCurrentLayerFollowsThePanelsSelection() {
        TLLayerPanel* panel = window->Layers();
        panel->setCurrentItem(panel->ItemOf(layer("parcels")));
        QCOMPARE(window->Document()->Map()->GetCurrentLayer().get(),
                 static_cast<TLLayer*>(layer("parcels")));
        QCOMPARE(panel->topLevelItemCount(), 3);
        QCOMPARE(panel->ItemOf(layer("parcels"))->text(TLLayerPanel::KindColumn),
                 QString("polygon"));
    }

    void layersThatToolsAddOrPickShowInThePanel() {
        TLMap* map = window->Document()->Map();
        TLFeatureLayer* scratch = TLFeatureLayer::CreateMemoryLayer(
            "MeasurePointLayer", TLLayer::PointLayer, TLFields(), map->GetSpatialReference());
        // Position 0 is the bottom of the map, which the panel shows in its last row.
        map->InsertLayer(0, scratch, true);
        TLLayerPanel* panel = window->Layers();
        QCOMPARE(panel->topLevelItemCount(), 4);
        QCOMPARE(panel->topLevelItem(3)->text(TLLayerPanel::NameColumn),
                 QString("MeasurePointLayer"));
        // The layer on top of the map, its last, is the panel's first row.
        QCOMPARE(panel->topLevelItem(0)->text(TLLayerPanel::NameColumn),
                 ToQString(map->GetLayers(true).back()->GetLayerName()));
        map->SetCurrentLayer(layer("roads"));
        QCOMPARE(panel->currentItem(), panel->ItemOf(layer("roads")));
        map->RemoveLayer(scratch);
        QCOMPARE(panel->topLevelItemCount(), 3);
    }

    void layersAreReorderedByDraggingTheirRows() {
        TLLayerPanel* panel = window->Layers();
        const auto rows = [panel] {
            QStringList names;
            for (int i = 0; i < panel->topLevelItemCount(); ++i)
                names << panel->topLevelItem(i)->text(TLLayerPanel::NameColumn);
            return names;
        };
        // The map's last layer is on top, so the top row shows the source's last layer.
        QCOMPARE(rows(), (QStringList{"parcels", "roads", "wells"}));
        const int renders = window->Canvas()->RenderCount();
        // Rows are dragged, one at a time, between rows and never onto one.
        QCOMPARE(panel->dragDropMode(), QAbstractItemView::InternalMove);
        QVERIFY(panel->topLevelItem(2)->flags() & Qt::ItemIsDragEnabled);
        QVERIFY(!(panel->topLevelItem(0)->flags() & Qt::ItemIsDropEnabled));
        // What a drop of wells on the top row does: wells become the map's last layer.
        panel->MoveLayerToRow(layer("wells"), 0);
        QCOMPARE(rows(), (QStringList{"wells", "parcels", "roads"}));
        std::vector<TLLayer*> order;
        for (const TLRefPtr<TLLayer>& each : panel->LayersTopFirst()) order.push_back(each.get());
        QCOMPARE(order, (std::vector<TLLayer*>{layer("wells"), layer("parcels"), layer("roads")}));
        QCOMPARE(window->Document()->Map()->GetLayers(true).back().get(), layer("wells"));
        // The current and edit layers are the same layers as before the move.
        QCOMPARE(window->Document()->Map()->editor()->edit_layer(), layer("wells"));
        QCoreApplication::processEvents();
        QVERIFY(window->Canvas()->RenderCount() > renders);
        QVERIFY(window->Canvas()->LastRender().full);

        // A drop below the last row puts the layer at the bottom of the map.
        panel->MoveLayerToRow(layer("wells"), 9);
        QCOMPARE(rows(), (QStringList{"parcels", "roads", "wells"}));
        QCOMPARE(window->Document()->Map()->GetLayers(true).front().get(), layer("wells"));
    }

    void upAndDownRecallEarlierLines() {
        TLCommandWindow* commands = window->Commands();
        QLineEdit* input = commands->Input();
        QStringList sent;
        connect(commands, &TLCommandWindow::lineEntered, this,
                [&sent](const QString& line) { sent << line; });
        typeLine("PL");
        typeLine("");
        typeLine("10,20");
        QCOMPARE(sent, (QStringList{"PL", "", "10,20"}));
        QTest::keyClicks(input, "draft");
        QTest::keyClick(input, Qt::Key_Up);
        QCOMPARE(input->text(), QString("10,20"));
        QTest::keyClick(input, Qt::Key_Up);
        QCOMPARE(input->text(), QString("PL"));
        QTest::keyClick(input, Qt::Key_Up);
        QCOMPARE(input->text(), QString("PL"));
        QTest::keyClick(input, Qt::Key_Down);
        QTest::keyClick(input, Qt::Key_Down);
        QCOMPARE(input->text(), QString("draft"));
    }

    void buddyCallsShowOnScreen() {
        TLHostBuddy* buddy = window->Buddy();
        buddy->SetCursor(Qt::CrossCursor);
        QCOMPARE(window->Canvas()->cursor().shape(), Qt::CrossCursor);
        buddy->ShowMessage(TLString("Layer saved"));
        QCOMPARE(window->statusBar()->currentMessage(), QString("Layer saved"));
        QVERIFY(!history().contains("Layer saved"));
        QCOMPARE(QWidget::find(WId(buddy->MainWindowId())), static_cast<QWidget*>(window.get()));
        buddy->SetPrompt(TLString("Specify the first point:"));
        QCOMPARE(prompt(), QString("Specify the first point:"));
    }

    void theLastHistoryLineStaysInSightWhenALongPromptWraps() {
        tickLayerBox("roads", TLLayerPanel::EditingColumn, true);
        pickFromPalette("TLCmdDigitizeLine");
        clickCanvas(deviceOf(150, 400));
        clickCanvas(deviceOf(450, 400));
        // After two vertices the line command's menu of sub-commands wraps over four lines and
        // the history gives up most of its height.
        QVERIFY(prompt().startsWith("Offset coordinate(OF)"));
        QCoreApplication::processEvents();
        QPlainTextEdit* shown = window->Commands()->HistoryView();
        QTextCursor end(shown->document());
        end.movePosition(QTextCursor::End);
        QCOMPARE(history().back(), QString("Command:Drawing Line"));
        QVERIFY(shown->viewport()->rect().contains(shown->cursorRect(end)));
    }

    void aLineTypedWithNoCommandWaitingIsNotLost() {
        typeLine("100,100");
        QCOMPARE(history().mid(history().size() - 2),
                 (QStringList{"> 100,100",
                              "No command is waiting for typed input: pick a tool, "
                              "or type one of SNAP, CRS, TABLE, HELP."}));
        QTest::keyClick(window->Commands()->Input(), Qt::Key_Up);
        QCOMPARE(window->Commands()->Input()->text(), QString("100,100"));
    }
};

SHELL_TEST_CLASS(PanelsTest);

}  // namespace TMObjects

#include "PanelsTest.moc"
