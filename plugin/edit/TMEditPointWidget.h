#pragma once

#include <QModelIndex>
#include <QStandardItemModel>
#include <QVector>
#include <QWidget>

#include "tlbase/TLRefBase.h"
#include "tlgeo/TLGeometry.h"

class QPushButton;
class QTableView;

namespace TMObjects {
class TLFeatureLayer;
class TLGeoPath;
class TLMapView;
class TLRubberBand;
}  // namespace TMObjects

// The vertex table of one feature: its paths or rings on top, the vertices of one of them below.
// Cell edits change a working copy in map coordinates, shown by a band on the map; Ok writes the
// copy to the layer as one "edit point" step.
class TMEditPointWidget : public QWidget {
public:
    explicit TMEditPointWidget(QWidget* parent = nullptr);
    ~TMEditPointWidget() override;

    void setEditFeature(TMObjects::TLMapView* view, TMObjects::TLFeatureLayer* layer,
                        int featureId);

    void clickPath(const QModelIndex& index);
    void clickPoint(const QModelIndex& index);
    void editPoint(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                   const QVector<int>& roles);
    // False when nothing was written: no feature, or a polygon ring left open.
    bool apply();
    void onOK();
    void onCancel();

    TMObjects::TLGeometry* geometry() const { return mGeometry.get(); }
    TMObjects::TLRubberBand* band() const { return mBand; }
    int currentPath() const { return mCurrentPath; }
    int featureId() const { return mFeatureId; }

private:
    void buildWidgets();
    void clearBand();
    void fillTables();
    // The point table from path or ring `index` of a line or polygon.
    void fillPointRows(int index);
    void addPointRow(int number, double x, double y, const double* z);
    QString formatted(double value) const;
    void showZColumn();
    bool geometryHasZ() const;
    TMObjects::TLRefPtr<TMObjects::TLGeoPath> pathAt(int index) const;
    void editPointGeometry(const QModelIndex& topLeft, const QModelIndex& bottomRight);
    void editPathGeometry(const QModelIndex& topLeft, const QModelIndex& bottomRight);
    void rebuildBand();
    // Warns and gives false when a ring of a polygon does not end where it starts.
    bool ringsClosed();
    bool needsProjection() const;

    TMObjects::TLMapView* mMapView = nullptr;
    TMObjects::TLRefPtr<TMObjects::TLFeatureLayer> mLayer;
    int mFeatureId = -1;
    QStandardItemModel mPathModel{0, 1};
    QStandardItemModel mPointModel{0, 4};
    TMObjects::TLRefPtr<TMObjects::TLGeometry> mGeometry;
    int mCurrentPath = -1;
    TMObjects::TLRubberBand* mBand = nullptr;
    QString mNumberFormat;

    QTableView* mTableViewPath = nullptr;
    QTableView* mTableViewPoint = nullptr;
    QPushButton* mBtnOk = nullptr;
    QPushButton* mBtnCancel = nullptr;
};
