#include "identify/TMIdentify.h"

#include <QComboBox>
#include <QDebug>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QTableView>
#include <QTextEdit>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "TLToolText.h"
#include "identify/TLIdentifyQuery.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLSelection.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsparef/TLGeometryProject.h"
#include "tlsymbol/TLStyleLength.h"
#include "tlsymbol/TLStyleSimpleLine.h"

using namespace TMObjects;

namespace {

// The tree items' own ids: the layer id on the root row, the feature id on each child.
const int kIdRole = Qt::UserRole + 1;
// Polygons of this many rings or more are flashed at the centre of their bound: their centroid
// is costly and often lies in the sea between islands.
const int kManyRings = 20;

bool differ(TLCoordinateSystem* a, TLCoordinateSystem* b) {
    return a && b && a != b && !a->IsSame(b);
}

// Numbers lose their trailing zeros and a trailing point; the expression takes any trailing
// zeros, so a number printed without decimals loses its own (100 reads 1, 0 reads empty).
QString numberText(double value, int precision) {
    static const QRegularExpression trailing(QStringLiteral("\\.?0+$"));
    return QString::number(value, 'f', std::max(0, precision)).remove(trailing);
}

QString valueText(const TLField* field, const TLVariant& value, int precision, bool nullTest) {
    const TLField::FieldType type = field->GetFieldType();
    if (type != TLField::FieldDouble && type != TLField::FieldFloat)
        return toQString(value.ToString());
    if (nullTest && value.IsNull()) return QString();
    return numberText(type == TLField::FieldDouble ? value.GetDouble() : value.GetFloat(),
                      precision);
}

bool systemField(const TLField* field) {
    return toQString(field->GetName()).startsWith(QLatin1String("LOOMDB_"));
}

const TLFields& fieldsOf(TLFeatureLayer* layer, const TLFeature& feature) {
    return feature.GetFields() ? *feature.GetFields() : layer->GetDatasource()->GetFields();
}

}  // namespace

TMIdentify::TMIdentify(QWidget* parent)
    : QDialog(parent, Qt::WindowFlags(0x8000003)), mTwinkleStyle(new TLStyleSimpleLine) {
    // The flash is a plain line of two pixels in the selection's outline colour.
    mTwinkleStyle->SetUnits(TLStyleLength::Pixel);
    mTwinkleStyle->SetColor(TLSelectionEnvironment::Instance()->GetOutLineColor());
    mTwinkleStyle->SetWidth(2.0);
    buildWidgets();
    connectWidgets();
}

TMIdentify::~TMIdentify() = default;

void TMIdentify::buildWidgets() {
    setWindowTitle(QObject::tr("Identify"));
    resize(580, 640);
    mLabelLayers = new QLabel(QObject::tr("Layers"), this);
    mLabelLayers->setObjectName(QStringLiteral("mLabelLayers"));
    mLabelLayers->setMinimumWidth(50);
    mComboBoxLayers = new QComboBox(this);
    mComboBoxLayers->setObjectName(QStringLiteral("mComboBoxLayers"));
    mComboBoxLayers->setMinimumWidth(50);
    mTreeViewLayer = new QTreeView(this);
    mTreeViewLayer->setObjectName(QStringLiteral("mTreeViewLayer"));
    mTreeViewLayer->setMaximumWidth(170);
    mTreeViewLayer->setHeaderHidden(true);
    mTreeViewLayer->setEditTriggers(QAbstractItemView::NoEditTriggers);
    mTreeViewLayer->setAlternatingRowColors(true);
    mTreeViewLayer->setModel(&mTreeModel);
    mLabelLocation = new QLabel(QObject::tr("Location"), this);
    mLabelLocation->setObjectName(QStringLiteral("mLabelLocation"));
    mLabelLocation->setMinimumWidth(50);
    mLineEditLocation = new QLineEdit(this);
    mLineEditLocation->setObjectName(QStringLiteral("mLineEditLocation"));
    mLineEditLocation->setEnabled(false);
    mLabelUnits = new QLabel(this);
    mLabelUnits->setObjectName(QStringLiteral("mLabelUnits"));
    mLabelUnits->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    buildTable();
    buildInfoBox();
    layoutWidgets();
}

void TMIdentify::layoutWidgets() {
    auto* layersRow = new QHBoxLayout;
    layersRow->setObjectName(QStringLiteral("horizontalLayout_3"));
    layersRow->addWidget(mLabelLayers);
    layersRow->addWidget(mComboBoxLayers, 1);
    auto* locationRow = new QHBoxLayout;
    locationRow->setObjectName(QStringLiteral("horizontalLayout"));
    locationRow->addWidget(mLabelLocation);
    locationRow->addWidget(mLineEditLocation, 1);
    locationRow->addWidget(mLabelUnits);
    auto* rightColumn = new QVBoxLayout;
    rightColumn->setObjectName(QStringLiteral("verticalLayout"));
    rightColumn->addLayout(locationRow);
    rightColumn->addWidget(mTableViewAttribute, 1);
    rightColumn->addWidget(textEdit_info);
    auto* body = new QHBoxLayout;
    body->setObjectName(QStringLiteral("horizontalLayout_2"));
    body->addWidget(mTreeViewLayer);
    body->addLayout(rightColumn, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setObjectName(QStringLiteral("verticalLayout_2"));
    layout->setSpacing(3);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addLayout(layersRow);
    layout->addLayout(body, 1);
}

// The box shows its two messages as placeholder text only, in red.
void TMIdentify::buildInfoBox() {
    textEdit_info = new QTextEdit(this);
    textEdit_info->setObjectName(QStringLiteral("textEdit_info"));
    textEdit_info->setEnabled(false);
    textEdit_info->setMaximumHeight(40);
    QFont font = textEdit_info->font();
    font.setPointSize(10);
    font.setWeight(75);
    textEdit_info->setFont(font);
    textEdit_info->setStyleSheet(QStringLiteral("color:#FF0000"));
    // The style sheet colours typed text only; the messages are placeholders.
    QPalette palette = textEdit_info->palette();
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        palette.setColor(group, QPalette::PlaceholderText, QColor(255, 0, 0));
    textEdit_info->setPalette(palette);
    textEdit_info->setPlaceholderText(QObject::tr("No elements are selected on this layer"));
}

void TMIdentify::buildTable() {
    mTableViewAttribute = new QTableView(this);
    mTableViewAttribute->setObjectName(QStringLiteral("mTableViewAttribute"));
    mTableViewAttribute->setModel(&mTableModel);
    mTableViewAttribute->setEditTriggers(QAbstractItemView::NoEditTriggers);
    mTableViewAttribute->horizontalHeader()->setStretchLastSection(true);
    mTableViewAttribute->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    mTableViewAttribute->setShowGrid(true);
    mTableViewAttribute->setGridStyle(Qt::SolidLine);
    mTableViewAttribute->setSelectionBehavior(QAbstractItemView::SelectRows);
    mTableViewAttribute->setAlternatingRowColors(true);
}

// clearSelectedFeature stays unconnected: the picks are cleared as they are read, and a button
// wired to it would clear selections the user made by other means.
void TMIdentify::connectWidgets() {
    connect(mComboBoxLayers, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &TMIdentify::showLayerInfo);
    connect(mTreeViewLayer, &QTreeView::clicked, this, &TMIdentify::onClickedFeature);
}

void TMIdentify::setTool(TLToolIdentifyFeature* tool) {
    mTool = tool;
}

void TMIdentify::setBuddy(TLToolBuddy* buddy) {
    mMapView = buddy ? buddy->GetMapView() : nullptr;
    if (mMapView) setUnits(mMapView->GetMapUnit());
}

// Units without a word of their own leave the label as it was.
void TMIdentify::setUnits(int unit) {
    const char* text = nullptr;
    switch (unit) {
        case TLUnitMeter:
            text = "Meters";
            break;
        case TLUnitFeet:
            text = "Feet";
            break;
        case TLUnitDegree:
            text = "Degrees";
            break;
        case TLUnitUnknown:
            text = "UnknownUnit";
            break;
        case TLUnitNauticalMiles:
            text = "NauticalMiles";
            break;
        case TLUnitKilometer:
            text = "Kilometers";
            break;
        case TLUnitYards:
            text = "Yards";
            break;
        case TLUnitMiles:
            text = "Miles";
            break;
        default:
            return;
    }
    mLabelUnits->setText(QObject::tr(text));
}

void TMIdentify::setLocation(const TLPoint& point) {
    mLineEditLocation->setText(
        QStringLiteral("%1,%2").arg(point.x, 0, 'f', 6).arg(point.y, 0, 'f', 6));
}

void TMIdentify::setPickEnvelope(double xmin, double xmax, double ymin, double ymax) {
    mPickXMin = xmin;
    mPickXMax = xmax;
    mPickYMin = ymin;
    mPickYMax = ymax;
}

void TMIdentify::clearLayerPicks() {
    mLayerPicks.clear();
    mCurrentLayerIndex = -1;
}

TLFeatureLayer* TMIdentify::featureLayer(int layerId) const {
    TLMap* map = mMapView ? mMapView->GetMap() : nullptr;
    return map ? dynamic_cast<TLFeatureLayer*>(map->GetLayerByID(layerId).get()) : nullptr;
}

// Layers that are gone get no combo row but keep their record. Records are asked lazily until
// one has something to show, so that the first row shown is not empty for no reason.
void TMIdentify::setSelectedLayerInfo(const std::vector<TLIdentifyLayerPick>& picks) {
    mLayerPicks = picks;
    {
        const QSignalBlocker blocker(mComboBoxLayers);
        mComboBoxLayers->clear();
        bool usable = false;
        for (TLIdentifyLayerPick& pick : mLayerPicks) {
            TLFeatureLayer* layer = featureLayer(pick.layerId);
            if (!layer) continue;
            if (!usable && !pick.featureIds.empty()) {
                qDebug() << "setSelectedLayerInfo-current can use";
                usable = true;
            } else if (!usable) {
                usable = SelectFeature(layer, pick.featureIds) > 0;
            }
            mComboBoxLayers->insertItem(mComboBoxLayers->count(), QIcon(),
                                        toQString(layer->GetLayerName()), pick.layerId);
        }
    }
    if (mMapView) mMapView->Refresh(nullptr, TLMapCache::SelectionCache, TLRect());
    mCurrentLayerIndex = -1;
    showLayerInfo(0);
}

int TMIdentify::SelectFeature(TLFeatureLayer* layer, std::vector<int>& ids) {
    if (!layer || !layer->IsValid() || !layer->Selectable()) return 0;
    if (!mMapView || !mMapView->GetDisplay() || !mMapView->GetDisplayTransform()) return 0;
    const double tolerance = TLSelectionEnvironment::Instance()->GetTolerance() *
                             mMapView->GetDisplayTransform()->mResolution;
    const TLIdentifyQuery query(mPickXMin, mPickXMax, mPickYMin, mPickYMax, tolerance);
    const std::vector<int> found =
        query.pick(layer, mMapView->GetMap()->GetSpatialReference().get(), 0);
    qDebug() << "SelectFeature-selected cnt:" << found.size();
    ids.insert(ids.end(), found.begin(), found.end());
    return int(found.size());
}

// `index` is a row of the layer combo; its record is found through the layer id the row holds.
void TMIdentify::showLayerInfo(int index) {
    mTreeModel.clear();
    mTableModel.clear();
    textEdit_info->setPlaceholderText(QObject::tr("No elements are selected on this layer"));
    if (mLayerPicks.empty() || index < 0 || index >= mComboBoxLayers->count()) return;
    if (mCurrentLayerIndex >= 0 && mCurrentLayerIndex == index) return;
    const int layerId = mComboBoxLayers->itemData(index).toInt();
    auto pick = std::find_if(mLayerPicks.begin(), mLayerPicks.end(),
                             [layerId](const auto& p) { return p.layerId == layerId; });
    TLFeatureLayer* layer = featureLayer(layerId);
    if (pick == mLayerPicks.end() || !layer || !layer->IsValid()) return;
    if (pick->featureIds.empty()) {
        qDebug() << "showLayerInfo-index:" << index;
        if (SelectFeature(layer, pick->featureIds) == 0) return;
    }
    textEdit_info->setPlaceholderText(
        QObject::tr("This layer has %1 features selected!").arg(pick->featureIds.size()));
    qDebug() << "showLayerInfo: start show layer info:" << toQString(layer->GetLayerName());
    buildTree(layer, pick->featureIds);
    mCurrentFeatureId = -1;
    showAttributes(layer, pick->featureIds.front());
    mCurrentLayerIndex = index;
}

// Features that can no longer be read are left out without a word.
void TMIdentify::buildTree(TLFeatureLayer* layer, const std::vector<int>& ids) {
    const TLString displayField = layer->display_field();
    auto* root = new QStandardItem(
        QStringLiteral("%1:%2").arg(toQString(layer->GetLayerName()), toQString(displayField)));
    root->setData(layer->GetLayerId(), kIdRole);
    for (int id : ids) {
        TLRefPtr<TLFeature> feature = layer->GetFeature(id);
        if (!feature) continue;
        const int field = fieldsOf(layer, *feature).FindField(displayField);
        const TLVariant value = field >= 0 ? feature->GetValue(field) : TLVariant();
        auto* child = new QStandardItem(toQString(value.ToString()));
        child->setData(id, kIdRole);
        root->appendRow(child);
    }
    mTreeModel.setItem(0, 0, root);
    mTreeViewLayer->expand(root->index());
}

int TMIdentify::precisionOf(TLFeatureLayer* layer, int fieldPrecision) const {
    return layer->GetDatasource()->GetWorkspaceType() == TLString("Access") ? 6 : fieldPrecision;
}

// Geometry fields and the system's own LOOMDB_ fields are not shown.
void TMIdentify::showAttributes(TLFeatureLayer* layer, int featureId) {
    mTableModel.clear();
    mTableModel.setHorizontalHeaderLabels(
        {QObject::tr("Field"), QObject::tr("Alias"), QObject::tr("Value")});
    TLRefPtr<TLFeature> feature = layer->GetFeature(featureId);
    if (!feature) return;
    const TLFields& fields = fieldsOf(layer, *feature);
    int row = 0;
    for (int i = 0; i < fields.GetFieldCount(); ++i) {
        const TLField* field = fields.GetField(i);
        if (field->IsGeoField() || systemField(field)) continue;
        const int precision = precisionOf(layer, field->GetPrecision());
        mTableModel.setItem(row, 0, new QStandardItem(toQString(field->GetName())));
        mTableModel.setItem(row, 1, new QStandardItem(toQString(field->GetAliasName())));
        mTableModel.setItem(
            row, 2, new QStandardItem(valueText(field, feature->GetValue(i), precision, true)));
        ++row;
    }
    mCurrentFeatureId = featureId;
}

// The rows count the LOOMDB_ fields that the table leaves out, so values after such a field
// land one row further down; the table has always read that way after a click.
void TMIdentify::refreshValues(TLFeatureLayer* layer, const TLFeature& feature) {
    const TLFields& fields = fieldsOf(layer, feature);
    int row = 0;
    for (int i = 0; i < fields.GetFieldCount(); ++i) {
        const TLField* field = fields.GetField(i);
        if (field->IsGeoField()) continue;
        const QString text =
            valueText(field, feature.GetValue(i), precisionOf(layer, field->GetPrecision()), false);
        if (QStandardItem* item = mTableModel.item(row, 2))
            item->setText(text);
        else
            mTableModel.setItem(row, 2, new QStandardItem(text));
        ++row;
    }
}

void TMIdentify::onClickedFeature(const QModelIndex& index) {
    QStandardItem* item = mTreeModel.itemFromIndex(index);
    if (!item || !item->parent()) return;
    bool ok = false;
    const int layerId = item->parent()->data(kIdRole).toInt(&ok);
    if (!ok || layerId < 0) return;
    const int featureId = item->data(kIdRole).toInt(&ok);
    if (!ok) return;
    TLFeatureLayer* layer = featureLayer(layerId);
    if (!layer || layer->GetDatasource()->GetFields().GetFieldCount() < 1) return;
    TLRefPtr<TLFeature> feature = layer->GetFeature(featureId);
    if (!feature || !feature->GetGeometry()) return;
    // A copy: the flash projects it, and the layer's own geometry must stay as it is.
    TLRefPtr<TLGeometry> geometry = feature->GetGeometry()->Clone();
    TLPoint point;
    if (!featurePoint(geometry.get(), point)) return;
    const TLPoint layerPoint = point;
    TLCoordinateSystem* mapReference = mMapView->GetMap()->GetSpatialReference().get();
    TLCoordinateSystem* layerReference = layer->GetSpatialReference().get();
    if (differ(mapReference, layerReference)) {
        TLGeometryProject project;
        if (project.SetPrj(layerReference, mapReference, nullptr)) {
            project.ProjKqGeometry(geometry.get());
            project.ProjPoint(point);
        }
    }
    flash(geometry.get(), point);
    if (mCurrentFeatureId >= 1 && mCurrentFeatureId == featureId) return;
    setLocation(layerPoint);
    refreshValues(layer, *feature);
    mCurrentFeatureId = featureId;
}

bool TMIdentify::featurePoint(TLGeometry* geometry, TLPoint& point) const {
    auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry);
    if (geometry->GetType() == TLGeometry::GeoPolygon && polygon &&
        polygon->GetRingCount() >= kManyRings) {
        point = geometry->GetBound().Center();
        if (std::isfinite(point.x) && std::isfinite(point.y)) return true;
    }
    point = geometry->Centroid();
    return std::isfinite(point.x) && std::isfinite(point.y);
}

// Three crosses shrink from the edges of the view onto the feature, and the feature follows.
void TMIdentify::flash(TLGeometry* geometry, const TLPoint& point) {
    if (!mMapView) return;
    mTwinkleStyle->SetColor(TLSelectionEnvironment::Instance()->GetOutLineColor());
    buildCrosses(point);
    for (int i = 0; i < 3; ++i) mTwinkleGeometry[i] = mCrosses[i].get();
    mTwinkleGeometry[3] = geometry;
    mMapView->TwinkleGeometrysInOrder(mTwinkleGeometry, 4, nullptr, mTwinkleStyle.get(), nullptr,
                                      120);
    mTwinkleGeometry[3] = nullptr;
}

void TMIdentify::buildCrosses(const TLPoint& point) {
    const TLRect rect = mMapView->GetVisibleRect();
    const double left = point.x - rect.XMinimum(), right = rect.XMaximum() - point.x;
    const double up = rect.YMaximum() - point.y, down = point.y - rect.YMinimum();
    const double factors[3] = {1.0, 0.66, 0.33};
    for (int i = 0; i < 3; ++i) {
        const double f = factors[i];
        TLRefPtr<TLGeoPolyline> cross(new TLGeoPolyline);
        cross->BeginPath();
        cross->AddXY(point.x - left * f, point.y);
        cross->AddXY(point.x + right * f, point.y);
        cross->BeginPath();
        cross->AddXY(point.x, point.y + up * f);
        cross->AddXY(point.x, point.y - down * f);
        cross->EndEntity();
        mCrosses[i] = cross;
    }
}

void TMIdentify::clearSelectedFeature() {
    for (const TLIdentifyLayerPick& pick : mLayerPicks)
        if (TLFeatureLayer* layer = featureLayer(pick.layerId)) layer->ClearSelect(true);
}
