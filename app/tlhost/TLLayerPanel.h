#pragma once

#include <QTreeWidget>
#include <vector>

#include "tlbase/TLRefBase.h"

namespace TMObjects {

class TLLayer;
class TLMap;

// The map's layers, top first, in the order they are drawn (drag a row to change it): whether each
// is shown, which one is current (the selected row), which one is being edited, and whether a layer
// may be edited at all. Changes go straight into the map; the signals tell the window what to draw
// or restart.
class TLLayerPanel : public QTreeWidget {
    Q_OBJECT

public:
    enum Column { NameColumn = 0, KindColumn, EditableColumn, EditingColumn };

    explicit TLLayerPanel(QWidget* parent = nullptr);

    void SetMap(TLMap* map);
    // Lists the map's layers again, after layers were added or removed.
    void Reload();
    // Brings the marks (shown, current, editable, edited) in line with the map without telling
    // anybody: after a tool changed them.
    void Sync();
    QTreeWidgetItem* ItemOf(const TLLayer* layer) const;
    TLLayer* LayerOf(const QTreeWidgetItem* item) const;

    // What the panel's boxes do, for the menu and for scripts.
    void SetEditLayer(TLLayer* layer);
    void SetLayerVisible(TLLayer* layer, bool visible);
    void SetLayerEditable(TLLayer* layer, bool editable);
    // Moves a layer to a row of the panel (0 the top, drawn over all others), as a drag does.
    void MoveLayerToRow(TLLayer* layer, int row);
    // The map's layers in the panel's order, top first.
    std::vector<TLRefPtr<TLLayer>> LayersTopFirst() const;

    static QString KindText(int layerType);

Q_SIGNALS:
    void visibilityChanged(TLLayer* layer);
    void editLayerChanged(TLLayer* layer);
    void editableChanged(TLLayer* layer);
    void zoomToLayerRequested(TLLayer* layer);
    // The drawing order changed.
    void orderChanged();
    void attributeTableRequested(TLLayer* layer);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void itemChanged(QTreeWidgetItem* item, int column);
    void currentChanged(QTreeWidgetItem* item);

    TLMap* mMap = nullptr;
    bool mSyncing = false;
};

}  // namespace TMObjects
