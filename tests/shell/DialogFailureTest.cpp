// A failure in a dialog's slot, outside any event of the tool, is caught by the desktop's
// application as the dispatcher catches a tool's: the command window says so, the step the slot
// left open is undone, and the shell goes on.

#include <QDialog>
#include <QPushButton>
#include <QTest>
#include <stdexcept>

#include "ShellFixture.h"
#include "hostkit/TLGuardedApplication.h"
#include "hostkit/TLToolDispatcher.h"
#include "tlgeo/TLGeometryWkt.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMap.h"

namespace TMObjects {

class DialogFailureTest : public ShellFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { openShell(); }
    void cleanup() { closeShell(); }

    void aSlotThatThrowsIsToldOnTheCommandWindowAndItsStepUndone() {
        QVERIFY(dynamic_cast<TLGuardedApplication*>(QApplication::instance()));
        TLFeatureLayer* wells = layer("wells");
        const int before = wells->GetDatasource()->GetFeatureCount();
        QDialog dialog(window.get());
        auto* write = new QPushButton(QStringLiteral("Write"), &dialog);
        write->setGeometry(10, 10, 100, 30);
        dialog.resize(200, 80);
        int clicks = 0;
        connect(write, &QPushButton::clicked, &dialog, [&] {
            ++clicks;
            TLEditor* editor = window->Document()->Map()->editor();
            editor->StartOperation(TLString("add feature"));
            TLFeature feature;
            feature.SetGeometry(TLGeometryWkt::FromWkt("POINT (500 500)"));
            wells->layer_edit_buffer()->AddFeature(feature, true, true);
            throw std::out_of_range("vector::_M_range_check");
        });
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));

        QTest::mouseClick(write, Qt::LeftButton);
        QCOMPARE(clicks, 1);
        QVERIFY(history().last().contains(
            QStringLiteral("The tool failed in a dialog and its changes were undone: "
                           "vector::_M_range_check")));
        QVERIFY(!window->Document()->Map()->editor()->IsOperationOpen());
        QCOMPARE(wells->GetDatasource()->GetFeatureCount(), before);

        // The shell and the dialog go on.
        QTest::mouseClick(write, Qt::LeftButton);
        QCOMPARE(clicks, 2);
        pickFromPalette("TLCmdDigitizePoint");
        QVERIFY(window->Dispatcher()->ActiveTool() != nullptr);
    }
};

SHELL_TEST_CLASS(DialogFailureTest);

}  // namespace TMObjects

#include "DialogFailureTest.moc"
