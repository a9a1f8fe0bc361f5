// The attribute table panel: values of a layer's features, sorted by a header click, edited
// through the editor (one undo step per cell), its selection the map's both ways, and a required
// field that stops a save, names the feature and opens the table on its cell.

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <QComboBox>
#include <QDockWidget>
#include <QHeaderView>
#include <QLabel>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QTest>

#include "ShellFixture.h"
#include "ShellTestData.h"
#include "TLAttributeTable.h"
#include "TLAttributeTableModel.h"
#include "TLLayerPanel.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMapView.h"

namespace TMObjects {

namespace {

// The text of a column, row after row as shown.
QStringList column(TLAttributeTable* table, const QString& field) {
    QStringList values;
    const int c = table->Model()->ColumnOf(field);
    for (int row = 0; row < table->Proxy()->rowCount(); ++row)
        values << table->Proxy()->index(row, c).data().toString();
    return values;
}

QModelIndex cell(TLAttributeTable* table, int id, const QString& field) {
    TLAttributeTableModel* model = table->Model();
    return table->Proxy()->mapFromSource(model->index(model->RowOf(id), model->ColumnOf(field)));
}

}  // namespace

class AttributeTableTest : public ShellFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(folder->isValid());
        dataPath = ShellTestData::WriteSites(folder->path());
        QVERIFY(!dataPath.isEmpty());
        showWindowOnData();
        typeLine("TABLE");
    }
    void cleanup() { closeShell(); }

    void theTableShowsTheCurrentLayersValuesAndSortsThem() {
        TLAttributeTable* table = window->Attributes();
        QVERIFY(table->isVisible());
        QCOMPARE(history().back(), QString("Attributes of sites."));
        QCOMPARE(table->LayerBox()->currentText(), QString("sites"));
        QCOMPARE(table->Proxy()->rowCount(), 2);
        QCOMPARE(column(table, "owner"), (QStringList{"Ames", "Bell"}));
        // The required field says so in its header's tip.
        QCOMPARE(
            table->Model()
                ->headerData(table->Model()->ColumnOf("owner"), Qt::Horizontal, Qt::ToolTipRole)
                .toString(),
            QString("owner (required)"));
        // Numbers sort as numbers: 10 after 3.
        table->Table()->horizontalHeader()->setSortIndicator(table->Model()->ColumnOf("visits"),
                                                             Qt::DescendingOrder);
        QCOMPARE(column(table, "visits"), (QStringList{"10", "3"}));
        QCOMPARE(column(table, "owner"), (QStringList{"Bell", "Ames"}));
        QCOMPARE(table->Summary()->text(), QString("2 features, 0 selected"));
    }

    void anEditedCellIsOneUndoStep() {
        TLAttributeTable* table = window->Attributes();
        QVERIFY(table->Proxy()->setData(cell(table, 2, "owner"), "Crane", Qt::EditRole));
        TLFeatureLayer* sites = layer("sites");
        QCOMPARE(ToQStringOf(sites, 2, "owner"), QString("Crane"));
        QCOMPARE(column(table, "owner"), (QStringList{"Ames", "Crane"}));
        QCOMPARE(history().back(), QString("sites: feature 2 changed."));
        QCOMPARE(window->UndoAction()->text(), QString("&Undo edit attribute"));
        window->UndoAction()->trigger();
        QCOMPARE(column(table, "owner"), (QStringList{"Ames", "Bell"}));
        QVERIFY(!window->Document()->HasUnsavedEdits());

        // A value the field cannot hold is refused with the reason, and nothing is written.
        QVERIFY(!table->Proxy()->setData(cell(table, 1, "visits"), "many", Qt::EditRole));
        QCOMPARE(history().back(), QString("visits takes a whole number."));
        QVERIFY(!table->Proxy()->setData(cell(table, 1, "area"), "12,5", Qt::EditRole));
        QCOMPARE(history().back(), QString("area takes a number."));
        QVERIFY(table->Proxy()->setData(cell(table, 1, "area"), "13.25", Qt::EditRole));
        QCOMPARE(column(table, "area")[0], QString("13.25"));

        // A layer that may not be edited offers no cell for typing.
        tickLayerBox("sites", TLLayerPanel::EditableColumn, false);
        QVERIFY(!(table->Proxy()->flags(cell(table, 1, "owner")) & Qt::ItemIsEditable));
    }

    void theSelectionIsTheMapsBothWays() {
        TLAttributeTable* table = window->Attributes();
        TLFeatureLayer* sites = layer("sites");
        table->Table()->selectRow(cell(table, 2, "owner").row());
        QCOMPARE(sites->GetSelectedIds(), std::vector<int>{2});
        QCOMPARE(table->Summary()->text(), QString("2 features, 1 selected"));

        // A tool selects on the map and redraws the selection: the table follows.
        sites->ClearSelect(false);
        sites->AddSelect(1);
        window->View()->Refresh(nullptr, TLMapCache::SelectionCache, TLRect());
        const QModelIndexList rows = table->Table()->selectionModel()->selectedRows();
        QCOMPARE(rows.size(), 1);
        QCOMPARE(table->Model()->IdAt(table->SourceRow(rows.front().row())), 1);
        QCOMPARE(sites->GetSelectedIds(), std::vector<int>{1});
    }

    void aRequiredValueStopsTheSaveAndTheTableOpensOnIt() {
        pickFromPalette("TLCmdDigitizePoint");
        typeLine("700,700");
        TLFeatureLayer* sites = layer("sites");
        QCOMPARE(sites->GetDatasource()->GetFeatureCount(), 3);
        window->Attributes()->parentWidget()->hide();

        QVERIFY(!window->SaveEdits());
        QCOMPARE(history().back(),
                 QString("Not saved: feature 3 of sites has no value for owner, which the layer "
                         "requires. Type it in the attribute table and save again."));
        TLAttributeTable* table = window->Attributes();
        QVERIFY(table->isVisible());
        QCOMPARE(table->Table()->currentIndex(), cell(table, 3, "owner"));
        // The cell is open for typing: its editor has the focus, inside the table.
        QVERIFY(QApplication::focusWidget());
        QCOMPARE(QApplication::focusWidget()->parentWidget(), table->Table()->viewport());
        QVERIFY(window->Document()->HasUnsavedEdits());

        // Typed into the open cell and saved: the file holds it.
        QWidget* editor = QApplication::focusWidget();
        QVERIFY(editor);
        QTest::keyClicks(editor, "Dunn");
        QTest::keyClick(editor, Qt::Key_Return);
        // The delegate writes the typed value once the event loop comes round.
        QCoreApplication::processEvents();
        QCOMPARE(ToQStringOf(sites, 3, "owner"), QString("Dunn"));
        QVERIFY(window->SaveEdits());
        GDALDatasetUniquePtr file(GDALDataset::Open(dataPath.toUtf8().constData(), GDAL_OF_VECTOR));
        QVERIFY(file);
        OGRLayer* stored = file->GetLayerByName("sites");
        QCOMPARE(stored->GetFeatureCount(), 3LL);
        std::unique_ptr<OGRFeature> third(stored->GetFeature(3));
        QVERIFY(third);
        QCOMPARE(QString(third->GetFieldAsString("owner")), QString("Dunn"));
        QCOMPARE(third->GetGeometryRef()->toPoint()->getX(), 700.0);
    }

private:
    static QString ToQStringOf(TLFeatureLayer* layer, int id, const char* field) {
        const TLFeature* feature = layer->GetDatasource()->PeekFeature(id);
        return feature ? QString::fromStdWString(
                             feature->GetValue(TLString(field)).ToString().toStdWString())
                       : QString();
    }
};

SHELL_TEST_CLASS(AttributeTableTest);

}  // namespace TMObjects

#include "AttributeTableTest.moc"
