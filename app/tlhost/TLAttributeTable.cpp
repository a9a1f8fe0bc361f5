#include "TLAttributeTable.h"

#include <QComboBox>
#include <QHeaderView>
#include <QItemSelection>
#include <QLabel>
#include <QSignalBlocker>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QVBoxLayout>

#include "TLAttributeTableModel.h"
#include "TLRequiredValues.h"
#include "TLShellText.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"

namespace TMObjects {

TLAttributeTable::TLAttributeTable(QWidget* parent)
    : QWidget(parent),
      mLayers(new QComboBox(this)),
      mTable(new QTableView(this)),
      mSummary(new QLabel(this)),
      mProxy(new QSortFilterProxyModel(this)) {
    setObjectName("attributeTable");
    mLayers->setObjectName("attributeLayerBox");
    mTable->setObjectName("attributeTableView");
    mSummary->setObjectName("attributeSummary");
    mProxy->setSortRole(TLAttributeTableModel::SortRole);
    mTable->setModel(mProxy);
    mTable->setSortingEnabled(true);
    mTable->sortByColumn(-1, Qt::AscendingOrder);
    mTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    mTable->setSelectionMode(QAbstractItemView::ExtendedSelection);
    mTable->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                            QAbstractItemView::AnyKeyPressed);
    mTable->verticalHeader()->setDefaultSectionSize(mTable->fontMetrics().height() + 6);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addWidget(mLayers);
    layout->addWidget(mTable, 1);
    layout->addWidget(mSummary);
    connect(mLayers, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &TLAttributeTable::layerChosen);
    connect(mTable->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &TLAttributeTable::pushSelection);
}

void TLAttributeTable::SetView(TLMapView* view) {
    mView = view;
    mModel = new TLAttributeTableModel(view->GetMap()->editor(), this);
    mProxy->setSourceModel(mModel);
    connect(mModel, &TLAttributeTableModel::refused, this, &TLAttributeTable::refused);
    connect(mModel, &QAbstractItemModel::modelReset, this, [this] {
        SyncFromMap();
        showSummary();
    });
    ReloadLayers();
}

void TLAttributeTable::ReloadLayers() {
    if (!mView) return;
    TLFeatureLayer* shown = Layer();
    const QSignalBlocker block(mLayers);
    mLayers->clear();
    for (const TLRefPtr<TLLayer>& layer : mView->GetMap()->GetLayers(true))
        if (dynamic_cast<TLFeatureLayer*>(layer.get()))
            mLayers->addItem(ToQString(layer->GetLayerName()), layer->GetLayerId());
    const int at = shown ? mLayers->findData(shown->GetLayerId()) : -1;
    if (at >= 0) {
        mLayers->setCurrentIndex(at);
        return;
    }
    // The layer shown is gone from the map (or none was shown yet): the first one takes its
    // place.
    const int first = mLayers->count() > 0 ? 0 : -1;
    mLayers->setCurrentIndex(first);
    layerChosen(first);
}

TLFeatureLayer* TLAttributeTable::Layer() const {
    return mModel ? mModel->Layer() : nullptr;
}

void TLAttributeTable::ShowLayer(TLFeatureLayer* layer) {
    const int at = layer ? mLayers->findData(layer->GetLayerId()) : -1;
    if (at < 0) return;
    if (mLayers->currentIndex() == at && Layer() == layer) return;
    const QSignalBlocker block(mLayers);
    mLayers->setCurrentIndex(at);
    layerChosen(at);
}

void TLAttributeTable::Release() {
    if (mModel) mModel->SetLayer(nullptr);
}

void TLAttributeTable::layerChosen(int index) {
    if (!mView || !mModel) return;
    TLLayer* layer = index >= 0
                         ? mView->GetMap()->GetLayerByID(mLayers->itemData(index).toInt()).get()
                         : nullptr;
    auto* features = dynamic_cast<TLFeatureLayer*>(layer);
    mModel->SetLayer(features, TLRequiredValues::RequiredFields(features));
    mTable->resizeColumnsToContents();
}

int TLAttributeTable::SourceRow(int shownRow) const {
    return mProxy->mapToSource(mProxy->index(shownRow, 0)).row();
}

void TLAttributeTable::pushSelection() {
    TLFeatureLayer* layer = Layer();
    if (mSyncing || !layer || !mView) return;
    layer->ClearSelect(false);
    for (const QModelIndex& row : mTable->selectionModel()->selectedRows())
        layer->AddSelect(mModel->IdAt(mProxy->mapToSource(row).row()));
    mSyncing = true;
    mView->Refresh(nullptr, TLMapCache::SelectionCache, TLRect());
    mSyncing = false;
    showSummary();
}

void TLAttributeTable::SyncFromMap() {
    TLFeatureLayer* layer = Layer();
    if (mSyncing || !layer) return;
    QItemSelection selection;
    for (int id : layer->GetSelectedIds()) {
        const int row = mModel->RowOf(id);
        if (row < 0) continue;
        const QModelIndex shown = mProxy->mapFromSource(mModel->index(row, 0));
        selection.select(shown, shown.siblingAtColumn(mModel->columnCount() - 1));
    }
    mSyncing = true;
    mTable->selectionModel()->select(
        selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    mSyncing = false;
    showSummary();
}

bool TLAttributeTable::EditCell(int id, const QString& field) {
    // A feature added within this event is in the table, but its row not yet read.
    if (mModel && mModel->RowOf(id) < 0) mModel->Reload();
    const int row = mModel ? mModel->RowOf(id) : -1;
    const int column = mModel ? mModel->ColumnOf(field) : -1;
    if (row < 0 || column < 0) return false;
    const QModelIndex shown = mProxy->mapFromSource(mModel->index(row, column));
    mTable->selectionModel()->setCurrentIndex(
        shown, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    mTable->scrollTo(shown, QAbstractItemView::PositionAtCenter);
    mTable->setFocus(Qt::OtherFocusReason);
    mTable->edit(shown);
    return true;
}

void TLAttributeTable::showSummary() {
    TLFeatureLayer* layer = Layer();
    mSummary->setText(layer ? tr("%1 features, %2 selected")
                                  .arg(mModel->rowCount())
                                  .arg(layer->SelectedFeatureCount())
                            : tr("No layer"));
}

}  // namespace TMObjects
