#include "TLLayerPanel.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>

#include "TLShellText.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"

namespace TMObjects {

namespace {

const int kIdRole = Qt::UserRole;

}  // namespace

TLLayerPanel::TLLayerPanel(QWidget* parent) : QTreeWidget(parent) {
    setObjectName("layerPanel");
    setColumnCount(4);
    setHeaderLabels({tr("Layer"), tr("Kind"), tr("Editable"), tr("Editing")});
    header()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    for (int column : {KindColumn, EditableColumn, EditingColumn})
        header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    connect(this, &QTreeWidget::itemChanged, this, &TLLayerPanel::itemChanged);
    connect(this, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* item) { currentChanged(item); });
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
        if (TLLayer* layer = LayerOf(item)) Q_EMIT zoomToLayerRequested(layer);
    });
}

QString TLLayerPanel::KindText(int layerType) {
    switch (layerType) {
        case TLLayer::PointLayer:
        case TLLayer::MultiPointLayer:
            return tr("point");
        case TLLayer::LineLayer:
            return tr("line");
        case TLLayer::PolygonLayer:
            return tr("polygon");
        case TLLayer::AnnotationLayer:
            return tr("annotation");
        default:
            return layerType >= 6 ? tr("raster") : tr("other");
    }
}

void TLLayerPanel::SetMap(TLMap* map) {
    mMap = map;
    Reload();
}

void TLLayerPanel::Reload() {
    mSyncing = true;
    clear();
    if (mMap) {
        // The top row shows the layer on top, which is the map's last.
        const std::vector<TLRefPtr<TLLayer>> layers = mMap->GetLayers(true);
        for (auto it = layers.rbegin(); it != layers.rend(); ++it) {
            const TLRefPtr<TLLayer>& layer = *it;
            auto* item = new QTreeWidgetItem(
                this, {ToQString(layer->GetLayerName()), KindText(layer->GetLayerType())});
            item->setData(NameColumn, kIdRole, layer->GetLayerId());
            Qt::ItemFlags flags =
                Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable;
            item->setFlags(flags);
            // Only feature layers can be edited; the boxes of a raster would promise what
            // no tool does.
            if (!dynamic_cast<TLFeatureLayer*>(layer.get())) {
                item->setData(EditableColumn, Qt::CheckStateRole, QVariant());
                item->setData(EditingColumn, Qt::CheckStateRole, QVariant());
            }
        }
    }
    mSyncing = false;
    Sync();
}

void TLLayerPanel::Sync() {
    if (!mMap) return;
    mSyncing = true;
    TLLayer* editing = mMap->editor()->edit_layer();
    TLLayer* current = mMap->GetCurrentLayer().get();
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = topLevelItem(i);
        TLLayer* layer = LayerOf(item);
        if (!layer) continue;
        item->setCheckState(NameColumn, layer->IsVisible() ? Qt::Checked : Qt::Unchecked);
        if (dynamic_cast<TLFeatureLayer*>(layer)) {
            item->setCheckState(EditableColumn, layer->IsEditable() ? Qt::Checked : Qt::Unchecked);
            item->setCheckState(EditingColumn, layer == editing ? Qt::Checked : Qt::Unchecked);
        }
        if (layer == current) setCurrentItem(item);
    }
    mSyncing = false;
}

QTreeWidgetItem* TLLayerPanel::ItemOf(const TLLayer* layer) const {
    for (int i = 0; layer && i < topLevelItemCount(); ++i)
        if (topLevelItem(i)->data(NameColumn, kIdRole).toInt() == layer->GetLayerId())
            return topLevelItem(i);
    return nullptr;
}

TLLayer* TLLayerPanel::LayerOf(const QTreeWidgetItem* item) const {
    if (!item || !mMap) return nullptr;
    return mMap->GetLayerByID(item->data(NameColumn, kIdRole).toInt()).get();
}

void TLLayerPanel::SetEditLayer(TLLayer* layer) {
    if (!mMap || mMap->editor()->edit_layer() == layer) return;
    mMap->editor()->set_edit_layer(layer);
    Sync();
    Q_EMIT editLayerChanged(layer);
}

void TLLayerPanel::SetLayerVisible(TLLayer* layer, bool visible) {
    if (!layer || layer->IsVisible() == visible) return;
    layer->SetVisible(visible);
    Sync();
    Q_EMIT visibilityChanged(layer);
}

void TLLayerPanel::SetLayerEditable(TLLayer* layer, bool editable) {
    if (!layer || layer->IsEditable() == editable) return;
    layer->SetEditable(editable);
    Sync();
    Q_EMIT editableChanged(layer);
}

void TLLayerPanel::itemChanged(QTreeWidgetItem* item, int column) {
    if (mSyncing) return;
    TLLayer* layer = LayerOf(item);
    if (!layer) return;
    const bool checked = item->checkState(column) == Qt::Checked;
    switch (column) {
        case NameColumn:
            return SetLayerVisible(layer, checked);
        case EditableColumn:
            return SetLayerEditable(layer, checked);
        case EditingColumn:
            // One layer is edited at a time: ticking one moves the editing there, unticking the
            // edited one leaves no layer in editing.
            return SetEditLayer(checked ? layer : nullptr);
        default:
            return;
    }
}

void TLLayerPanel::currentChanged(QTreeWidgetItem* item) {
    if (mSyncing || !mMap) return;
    mMap->SetCurrentLayer(LayerOf(item));
}

void TLLayerPanel::contextMenuEvent(QContextMenuEvent* event) {
    TLLayer* layer = LayerOf(itemAt(viewport()->mapFromGlobal(event->globalPos())));
    if (!layer) return;
    QMenu menu(this);
    menu.addAction(tr("Zoom to Layer"), this,
                   [this, layer] { Q_EMIT zoomToLayerRequested(layer); });
    if (dynamic_cast<TLFeatureLayer*>(layer))
        menu.addAction(tr("Edit This Layer"), this, [this, layer] { SetEditLayer(layer); });
    menu.exec(event->globalPos());
}

}  // namespace TMObjects
