#include "TLLayerPanel.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QMenu>
#include <algorithm>

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
    // Rows are dragged between rows, never onto one: layers do not nest.
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(true);
    setDragDropMode(QAbstractItemView::InternalMove);
    invisibleRootItem()->setFlags(invisibleRootItem()->flags() | Qt::ItemIsDropEnabled);
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
        for (const TLRefPtr<TLLayer>& layer : LayersTopFirst()) {
            auto* item = new QTreeWidgetItem(
                this, {ToQString(layer->GetLayerName()), KindText(layer->GetLayerType())});
            item->setData(NameColumn, kIdRole, layer->GetLayerId());
            Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable |
                                  Qt::ItemIsUserCheckable | Qt::ItemIsDragEnabled;
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
        // The edit layer stands out by name too, where the eye reads the list.
        QFont font = item->font(NameColumn);
        font.setBold(layer == editing);
        item->setFont(NameColumn, font);
        item->setToolTip(
            NameColumn, layer == editing
                            ? tr("%1: the layer being edited").arg(ToQString(layer->GetLayerName()))
                            : ToQString(layer->GetLayerName()));
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
    // One layer to work on: measuring and identify start from the current layer, drawing from
    // the edit layer, and choosing the one chooses the other.
    if (layer) mMap->SetCurrentLayer(layer);
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

std::vector<TLRefPtr<TLLayer>> TLLayerPanel::LayersTopFirst() const {
    // The map's last layer is drawn on top, so the top row shows the end of its list.
    std::vector<TLRefPtr<TLLayer>> layers =
        mMap ? mMap->GetLayers(true) : std::vector<TLRefPtr<TLLayer>>();
    std::reverse(layers.begin(), layers.end());
    return layers;
}

void TLLayerPanel::MoveLayerToRow(TLLayer* layer, int row) {
    if (!mMap || !layer || !ItemOf(layer)) return;
    // The map has no move of its own: the layer is taken out and put back in its new place,
    // and stays the current and the edit layer if it was.
    TLRefPtr<TLLayer> held(layer);
    TLRefPtr<TLLayer> current = mMap->GetCurrentLayer();
    TLLayer* editing = mMap->editor()->edit_layer();
    mMap->RemoveLayer(layer);
    // Rows run top first, the map's list bottom first.
    const int remaining = mMap->GetLayerCount();
    const int position = remaining - std::clamp(row, 0, remaining);
    mMap->InsertLayer(position, layer, true);
    if (editing) mMap->editor()->set_edit_layer(editing);
    mMap->SetCurrentLayer(current.get());
    Reload();
    Q_EMIT orderChanged();
}

void TLLayerPanel::dropEvent(QDropEvent* event) {
    TLLayer* dragged = LayerOf(currentItem());
    // Only rows of this panel are dragged here (the drag mode allows no other source).
    if (!dragged) return event->ignore();
    QTreeWidgetItem* target = itemAt(event->pos());
    int row = target ? indexOfTopLevelItem(target) : topLevelItemCount();
    if (target && dropIndicatorPosition() == QAbstractItemView::BelowItem) ++row;
    // The row counted with the dragged layer still in its place.
    if (row > indexOfTopLevelItem(currentItem())) --row;
    // The panel is rebuilt from the map: the view does not move the row itself.
    event->setDropAction(Qt::IgnoreAction);
    event->accept();
    MoveLayerToRow(dragged, row);
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
    if (dynamic_cast<TLFeatureLayer*>(layer)) {
        menu.addAction(tr("Edit This Layer"), this, [this, layer] { SetEditLayer(layer); });
        menu.addAction(tr("Open Attribute Table"), this,
                       [this, layer] { Q_EMIT attributeTableRequested(layer); });
    }
    menu.exec(event->globalPos());
}

}  // namespace TMObjects
