#include "edit/TMEditPointWidget.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <cmath>
#include <cstdio>

#include "TLToolText.h"
#include "edit/NumberDataDelegate.h"
#include "edit/ReadOnlyDelegate.h"
#include "tlgeo/TLGeoPath.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlsparef/TLGeometryProject.h"
#include "tlsymbol/TLStyleSimplePoint.h"

using namespace TMObjects;

namespace {

constexpr int kZColumn = 3;
// Single precision's epsilon: closer than this, a ring's two ends count as one point.
constexpr double kRingClosure = 1.1920928955078125e-07;

bool isLineOrPolygon(TLGeometry* geometry) {
    return geometry && (geometry->GetType() == TLGeometry::GeoPolyline ||
                        geometry->GetType() == TLGeometry::GeoPolygon);
}

int partCount(TLGeometry* geometry) {
    if (!geometry) return 0;
    if (geometry->GetType() == TLGeometry::GeoPolyline)
        return static_cast<TLGeoPolyline*>(geometry)->GetPathCount();
    if (geometry->GetType() == TLGeometry::GeoPolygon)
        return static_cast<TLGeoPolygon*>(geometry)->GetRingCount();
    return 0;
}

}  // namespace

TMEditPointWidget::TMEditPointWidget(QWidget* parent) : QWidget(parent) {
    buildWidgets();
    connect(mTableViewPath, &QTableView::clicked, this, &TMEditPointWidget::clickPath);
    connect(mTableViewPoint, &QTableView::clicked, this, &TMEditPointWidget::clickPoint);
    connect(&mPointModel, &QAbstractItemModel::dataChanged, this, &TMEditPointWidget::editPoint);
    connect(mBtnOk, &QPushButton::clicked, this, &TMEditPointWidget::onOK);
    connect(mBtnCancel, &QPushButton::clicked, this, &TMEditPointWidget::onCancel);
}

TMEditPointWidget::~TMEditPointWidget() {
    clearBand();
}

void TMEditPointWidget::buildWidgets() {
    setWindowTitle(QObject::tr("Edit Line"));
    resize(426, 518);
    mPathModel.setHorizontalHeaderLabels({QObject::tr("Path")});
    mPointModel.setHorizontalHeaderLabels(
        {QObject::tr("Point No."), QObject::tr("X"), QObject::tr("Y"), QObject::tr("Z")});

    mTableViewPath = new QTableView(this);
    mTableViewPath->setObjectName(QStringLiteral("mTableViewPath"));
    mTableViewPath->setModel(&mPathModel);
    mTableViewPath->setFixedHeight(130);
    mTableViewPath->setEditTriggers(QAbstractItemView::NoEditTriggers);
    mTableViewPath->verticalHeader()->hide();
    mTableViewPath->horizontalHeader()->setStretchLastSection(true);

    mTableViewPoint = new QTableView(this);
    mTableViewPoint->setObjectName(QStringLiteral("mTableViewPoint"));
    mTableViewPoint->setModel(&mPointModel);
    mTableViewPoint->verticalHeader()->hide();
    mTableViewPoint->setColumnWidth(0, 70);
    mTableViewPoint->setColumnWidth(1, 120);
    mTableViewPoint->setColumnWidth(2, 120);
    mTableViewPoint->horizontalHeader()->setStretchLastSection(true);
    mTableViewPoint->setItemDelegateForColumn(0, new ReadOnlyDelegate(mTableViewPoint));
    mTableViewPoint->setItemDelegateForColumn(1, new NumberDataDelegate(mTableViewPoint));
    mTableViewPoint->setItemDelegateForColumn(2, new NumberDataDelegate(mTableViewPoint));

    mBtnOk = new QPushButton(QObject::tr("Ok"), this);
    mBtnOk->setObjectName(QStringLiteral("mBtnOk"));
    mBtnCancel = new QPushButton(QObject::tr("Cancel"), this);
    mBtnCancel->setObjectName(QStringLiteral("mBtnCancel"));

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(mBtnOk);
    buttons->addWidget(mBtnCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(mTableViewPath);
    layout->addWidget(mTableViewPoint, 1);
    layout->addLayout(buttons);
}

void TMEditPointWidget::clearBand() {
    delete mBand;
    mBand = nullptr;
}

bool TMEditPointWidget::needsProjection() const {
    if (!mMapView || !mMapView->GetMap() || !mLayer) return false;
    TLRefPtr<TLCoordinateSystem> mapReference = mMapView->GetMap()->GetSpatialReference();
    TLRefPtr<TLCoordinateSystem> layerReference = mLayer->GetSpatialReference();
    return mapReference && layerReference && !mapReference->IsSame(layerReference.get());
}

void TMEditPointWidget::setEditFeature(TLMapView* view, TLFeatureLayer* layer, int featureId) {
    mMapView = view;
    mLayer = layer;
    mFeatureId = featureId;
    mGeometry = nullptr;
    mCurrentPath = -1;
    clearBand();
    TLRefPtr<TLFeature> feature = layer && featureId >= 0 ? layer->GetFeature(featureId) : nullptr;
    // A copy of its own: the table's edits must not reach the layer before Ok.
    if (feature && feature->GetGeometry()) mGeometry = feature->GetGeometry()->Clone();
    if (mGeometry && needsProjection()) {
        TLGeometryProject project;
        if (!project.SetPrj(layer->GetSpatialReference().get(),
                            view->GetMap()->GetSpatialReference().get(), nullptr) ||
            !project.ProjTmGeometry(mGeometry.get()))
            mGeometry = nullptr;
    }
    fillTables();
}

QString TMEditPointWidget::formatted(double value) const {
    return QString::asprintf(mNumberFormat.toLatin1().constData(), value);
}

bool TMEditPointWidget::geometryHasZ() const {
    bool hasZ = false;
    if (!mGeometry) return false;
    switch (mGeometry->GetType()) {
        case TLGeometry::GeoPoint:
            static_cast<TLGeoPoint*>(mGeometry.get())->get_HasZ(&hasZ);
            break;
        case TLGeometry::GeoPolyline:
            static_cast<TLGeoPolyline*>(mGeometry.get())->get_HasZ(&hasZ);
            break;
        case TLGeometry::GeoPolygon:
            static_cast<TLGeoPolygon*>(mGeometry.get())->get_HasZ(&hasZ);
            break;
        default:
            break;
    }
    return hasZ;
}

void TMEditPointWidget::showZColumn() {
    mTableViewPoint->setColumnHidden(kZColumn, !geometryHasZ());
}

void TMEditPointWidget::fillTables() {
    mPathModel.removeRows(0, mPathModel.rowCount());
    mPointModel.removeRows(0, mPointModel.rowCount());
    TLRefPtr<TLCoordinateSystem> reference = mLayer ? mLayer->GetSpatialReference() : nullptr;
    const int precision = reference && reference->IsGeographic() ? 10 : 6;
    char format[16];
    std::snprintf(format, sizeof format, "%%0.%df", precision);
    mNumberFormat = QString::fromLatin1(format);
    showZColumn();
    if (!mGeometry) return;

    if (mGeometry->GetType() == TLGeometry::GeoPoint) {
        auto* point = static_cast<TLGeoPoint*>(mGeometry.get());
        double x = 0.0, y = 0.0, z = 0.0;
        point->QueryCoordsXYZ(&x, &y, &z);
        addPointRow(0, x, y, geometryHasZ() ? &z : nullptr);
        return;
    }
    if (!isLineOrPolygon(mGeometry.get())) return;
    const int parts = partCount(mGeometry.get());
    for (int i = 0; i < parts; ++i) {
        auto* item = new QStandardItem(QString::asprintf("path %d", i));
        item->setEditable(false);
        mPathModel.appendRow(item);
    }
    if (parts > 0) mCurrentPath = 0;
    fillPointRows(0);
}

TLRefPtr<TLGeoPath> TMEditPointWidget::pathAt(int index) const {
    TLGeometry* geometry = mGeometry.get();
    if (!geometry || index < 0 || index >= partCount(geometry)) return nullptr;
    if (geometry->GetType() == TLGeometry::GeoPolygon)
        return static_cast<TLGeoPolygon*>(geometry)->GetRing(index);
    return static_cast<TLGeoPolyline*>(geometry)->GetPath(index);
}

void TMEditPointWidget::fillPointRows(int index) {
    TLRefPtr<TLGeoPath> path = pathAt(index);
    double* xy = nullptr;
    int count = 0;
    if (!path || !path->GetRawPoints(&xy, count) || !xy) return;
    double* z = nullptr;
    int zCount = 0;
    if (!path->GetRawPointsZValue(&z, zCount) || zCount < count) z = nullptr;
    for (int i = 0; i < count; ++i) addPointRow(i, xy[2 * i], xy[2 * i + 1], z ? z + i : nullptr);
}

void TMEditPointWidget::addPointRow(int number, double x, double y, const double* z) {
    auto* numberItem = new QStandardItem(QString::asprintf("point %d", number));
    numberItem->setEditable(false);
    QList<QStandardItem*> row;
    row << numberItem << new QStandardItem(formatted(x)) << new QStandardItem(formatted(y))
        << new QStandardItem(z ? formatted(*z) : QString());
    mPointModel.appendRow(row);
}

void TMEditPointWidget::clickPath(const QModelIndex& index) {
    if (mGeometry && mGeometry->GetType() == TLGeometry::GeoPoint) {
        mCurrentPath = -1;
        return;
    }
    mPointModel.removeRows(0, mPointModel.rowCount());
    if (index.row() < 0 || index.column() < 0 || !index.model() || !mGeometry) return;
    mCurrentPath = index.row();
    if (isLineOrPolygon(mGeometry.get()) && index.row() < partCount(mGeometry.get()))
        fillPointRows(index.row());
}

void TMEditPointWidget::clickPoint(const QModelIndex& index) {
    if (!index.isValid() || index.column() != 0 || !mGeometry || !mMapView) return;
    const double x = mPointModel.index(index.row(), 1).data().toDouble();
    const double y = mPointModel.index(index.row(), 2).data().toDouble();
    mMapView->PanToBound(TLRect(x, x, y, y));
    mMapView->UpdateMap();
    TLRefPtr<TLGeoPoint> point(new TLGeoPoint(x, y));
    TLRefPtr<TLStyleSimplePoint> style(new TLStyleSimplePoint);
    style->SetShapeType(1);
    style->SetColor(TLColor(255, 0, 0));
    style->SetWidth(3.0);
    style->SetHeight(3.0);
    mMapView->TwinkleGeometry(point.get(), style.get(), 3);
}

void TMEditPointWidget::editPoint(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                  const QVector<int>&) {
    if (!mGeometry || !topLeft.isValid() || !bottomRight.isValid()) return;
    if (mGeometry->GetType() == TLGeometry::GeoPoint)
        editPointGeometry(topLeft, bottomRight);
    else if (mCurrentPath >= 0)
        editPathGeometry(topLeft, bottomRight);
    if (mMapView) rebuildBand();
}

void TMEditPointWidget::editPointGeometry(const QModelIndex& topLeft,
                                          const QModelIndex& bottomRight) {
    auto* point = static_cast<TLGeoPoint*>(mGeometry.get());
    const bool hasZ = geometryHasZ();
    double x = 0.0, y = 0.0, z = 0.0;
    point->QueryCoordsXYZ(&x, &y, &z);
    for (int column = topLeft.column(); column <= bottomRight.column(); ++column) {
        const double value = mPointModel.index(0, column).data().toDouble();
        if (column == 1) x = value;
        if (column == 2) y = value;
        if (column == kZColumn && hasZ) z = value;
    }
    point->PutCoords(x, y);
    if (hasZ) point->Put_Z(z);
}

void TMEditPointWidget::editPathGeometry(const QModelIndex& topLeft,
                                         const QModelIndex& bottomRight) {
    TLRefPtr<TLGeoPath> path = pathAt(mCurrentPath);
    double* xy = nullptr;
    int count = 0;
    if (!path || !path->GetRawPoints(&xy, count) || !xy) return;
    double* z = nullptr;
    int zCount = 0;
    if (!geometryHasZ() || !path->GetRawPointsZValue(&z, zCount)) z = nullptr;
    for (int row = topLeft.row(); row <= bottomRight.row() && row < count; ++row) {
        for (int column = topLeft.column(); column <= bottomRight.column(); ++column) {
            const double value = mPointModel.index(row, column).data().toDouble();
            if (column == 1) xy[2 * row] = value;
            if (column == 2) xy[2 * row + 1] = value;
            if (column == kZColumn && z && row < zCount) z[row] = value;
        }
    }
}

void TMEditPointWidget::rebuildBand() {
    clearBand();
    TLGeometry* geometry = mGeometry.get();
    if (geometry->GetType() == TLGeometry::GeoPoint) {
        auto* point = static_cast<TLGeoPoint*>(geometry);
        mBand = new TLRubberBand(mMapView, TLRubberBand::PointBand);
        mBand->AddPoint(TLPoint(point->GetX(), point->GetY()), 0);
    } else if (isLineOrPolygon(geometry)) {
        const bool polygon = geometry->GetType() == TLGeometry::GeoPolygon;
        mBand = new TLRubberBand(mMapView,
                                 polygon ? TLRubberBand::PolygonBand : TLRubberBand::LineBand);
        for (int part = 0; part < partCount(geometry); ++part) {
            TLRefPtr<TLGeoPath> path = pathAt(part);
            for (int i = 0; i < path->GetPointCount(); ++i)
                mBand->AddPoint(path->GetPoint(i), part);
        }
    } else {
        return;
    }
    mBand->SetPenStyle(TLPen::SolidLine, 0.2, TLColor::RED_);
    mBand->Update();
}

bool TMEditPointWidget::ringsClosed() {
    if (mGeometry->GetType() != TLGeometry::GeoPolygon) return true;
    const bool hasZ = geometryHasZ();
    for (int ring = 0; ring < partCount(mGeometry.get()); ++ring) {
        TLRefPtr<TLGeoPath> path = pathAt(ring);
        double* xy = nullptr;
        int n = 0;
        if (!path || !path->GetRawPoints(&xy, n) || !xy) continue;
        double* z = nullptr;
        int zCount = 0;
        const bool withZ = hasZ && path->GetRawPointsZValue(&z, zCount) && z && zCount >= n;
        const bool open = std::fabs(xy[0] - xy[2 * (n - 1)]) >= kRingClosure ||
                          std::fabs(xy[1] - xy[2 * (n - 1) + 1]) >= kRingClosure ||
                          (withZ && std::fabs(z[0] - z[n - 1]) >= kRingClosure);
        if (!open) continue;
        QMessageBox::warning(this, QObject::tr("Error"),
                             QObject::tr("The first and the last point  must be same!"),
                             QMessageBox::Ok);
        return false;
    }
    return true;
}

bool TMEditPointWidget::apply() {
    if (!mLayer || mFeatureId < 0 || !mGeometry) return false;
    if (!ringsClosed()) return false;

    TLRefPtr<TLGeometry> clone = mGeometry->Clone();
    // Projected before the step opens, so that a shape the layer's system cannot take writes
    // nothing and leaves no empty step behind.
    if (needsProjection()) {
        TLGeometryProject project;
        if (!project.SetPrj(mMapView->GetMap()->GetSpatialReference().get(),
                            mLayer->GetSpatialReference().get(), nullptr) ||
            !project.ProjTmGeometry(clone.get()))
            return false;
    }
    TLEditor* editor = mMapView && mMapView->GetMap() ? mMapView->GetMap()->editor() : nullptr;
    if (editor) {
        editor->set_edit_layer(mLayer.get());
        editor->StartOperation(toolText("edit point"));
    }
    mLayer->layer_edit_buffer()->changeGeometry(mFeatureId, clone, true);
    clearBand();
    if (mMapView) {
        mMapView->UpdateView(true);
        if (editor) editor->CommitOperation(true);
    }
    updateGeometry();
    return true;
}

void TMEditPointWidget::onOK() {
    apply();
    clearBand();
    close();
}

void TMEditPointWidget::onCancel() {
    close();
}
