#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QSortFilterProxyModel;
class QTableView;

namespace TMObjects {

class TLAttributeTableModel;
class TLFeatureLayer;
class TLMap;
class TLMapView;

// The attribute table panel: the features of one layer with their values, sortable by a click
// on a column's header, editable cell by cell through the map's editor (each edit one undo
// step). Its selection is the map's: rows picked here are selected on the map, and features
// selected on the map by a tool are picked here when the map redraws its selection.
class TLAttributeTable : public QWidget {
    Q_OBJECT

public:
    explicit TLAttributeTable(QWidget* parent = nullptr);

    void SetView(TLMapView* view);
    // The feature layers of the map again, after layers came or went.
    void ReloadLayers();
    void ShowLayer(TLFeatureLayer* layer);
    // Lets go of the layer and closes any open cell without writing it: before the map goes.
    void Release();
    TLFeatureLayer* Layer() const;
    // Picks the map's selection of the shown layer.
    void SyncFromMap();
    // Takes the user to a cell: the feature's row is selected (on the map too) and the field's
    // cell opened for typing. False when the feature or the field is not in the table.
    bool EditCell(int id, const QString& field);

    TLAttributeTableModel* Model() const { return mModel; }
    QSortFilterProxyModel* Proxy() const { return mProxy; }
    QTableView* Table() const { return mTable; }
    QComboBox* LayerBox() const { return mLayers; }
    QLabel* Summary() const { return mSummary; }
    // The source row of a row as shown (sorted).
    int SourceRow(int shownRow) const;

Q_SIGNALS:
    // A typed value was refused, with the reason, for the history.
    void refused(const QString& why);

private:
    void layerChosen(int index);
    void pushSelection();
    void showSummary();

    TLMapView* mView = nullptr;
    QComboBox* mLayers;
    QTableView* mTable;
    QLabel* mSummary;
    TLAttributeTableModel* mModel = nullptr;
    QSortFilterProxyModel* mProxy;
    bool mSyncing = false;
};

}  // namespace TMObjects
