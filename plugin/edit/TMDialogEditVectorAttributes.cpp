#include "edit/TMDialogEditVectorAttributes.h"

#include <QCloseEvent>
#include <QCursor>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableView>
#include <QTreeView>
#include <QVBoxLayout>
#include <map>

#include "TLToolText.h"
#include "edit/TLToolEditAttributes.h"
#include "edit/TMEditAttributeDelegate.h"
#include "tlgeo/TLGeometry.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLTool.h"
#include "tlsde/TLFeature.h"
#include "tlsparef/TLGeometryProject.h"

using namespace TMObjects;

namespace {

const int kLayerRole = Qt::UserRole + 1;
const int kFeatureRole = Qt::UserRole + 2;
const int kValueColumn = 2;

QStandardItem* fixedItem(const QString& text) {
    auto* item = new QStandardItem(text);
    item->setEditable(false);
    return item;
}

}  // namespace

TMDialogEditVectorAttributes::TMDialogEditVectorAttributes(QWidget* parent)
    : QDialog(parent, Qt::WindowFlags(0x8000003)) {
    buildWidgets();
}

TMDialogEditVectorAttributes::~TMDialogEditVectorAttributes() = default;

void TMDialogEditVectorAttributes::buildWidgets() {
    setObjectName(QStringLiteral("TMDialogEditVectorAttributes"));
    setWindowTitle(tr("Attributes Editor"));
    resize(640, 480);
    treeView_editfeatures = new QTreeView(this);
    treeView_editfeatures->setObjectName(QStringLiteral("treeView_editfeatures"));
    treeView_editfeatures->setModel(&mTreeModel);
    treeView_editfeatures->setHeaderHidden(true);
    treeView_editfeatures->setEditTriggers(QAbstractItemView::NoEditTriggers);
    treeView_editfeatures->setContextMenuPolicy(Qt::CustomContextMenu);
    treeView_editfeatures->setMaximumWidth(200);
    tableView_attributes = new QTableView(this);
    tableView_attributes->setObjectName(QStringLiteral("tableView_attributes"));
    tableView_attributes->setModel(&mAttributeModel);
    tableView_attributes->horizontalHeader()->setFixedHeight(25);
    tableView_attributes->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    tableView_attributes->horizontalHeader()->setStretchLastSection(true);
    tableView_attributes->setSelectionBehavior(QAbstractItemView::SelectRows);
    tableView_attributes->setAlternatingRowColors(true);
    pushbtn_commit = new QPushButton(tr("Commit"), this);
    pushbtn_commit->setObjectName(QStringLiteral("pushbtn_commit"));
    pushbtn_discard = new QPushButton(tr("Cancel"), this);
    pushbtn_discard->setObjectName(QStringLiteral("pushbtn_discard"));
    for (QPushButton* button : {pushbtn_commit, pushbtn_discard}) button->setAutoDefault(false);
    auto* body = new QHBoxLayout;
    body->addWidget(treeView_editfeatures);
    body->addWidget(tableView_attributes, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(pushbtn_commit);
    buttons->addWidget(pushbtn_discard);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body, 1);
    layout->addLayout(buttons);

    connect(treeView_editfeatures, &QTreeView::clicked, this,
            [this](const QModelIndex& index) { on_treeView_editfeatures_clicked(index); });
    connect(treeView_editfeatures, &QTreeView::customContextMenuRequested, this,
            [this](const QPoint& pos) { slotFeaturesViewMenu(pos); });
    connect(
        &mAttributeModel, &QStandardItemModel::dataChanged, this,
        [this](const QModelIndex& a, const QModelIndex& b) { onAttributesModelDataChanged(a, b); });
    connect(pushbtn_commit, &QPushButton::clicked, this, [this] { on_pushbtn_commit_clicked(); });
    connect(pushbtn_discard, &QPushButton::clicked, this, [this] { on_pushbtn_discard_clicked(); });
}

void TMDialogEditVectorAttributes::setTool(TLTool* tool) {
    mTool = dynamic_cast<TLToolEditAttributes*>(tool);
}

TLMapView* TMDialogEditVectorAttributes::mapView() const {
    return mTool ? mTool->mapView() : nullptr;
}

TLFeatureLayer* TMDialogEditVectorAttributes::featureLayer(int layerId) const {
    if (!mMap) return nullptr;
    return dynamic_cast<TLFeatureLayer*>(mMap->GetLayerByID(layerId).get());
}

bool TMDialogEditVectorAttributes::loadSelection(const std::vector<TLIdentifyLayerPick>& records) {
    TLMapView* view = mapView();
    if (records.empty() || !view) return false;
    mEditCount = 0;
    mEdits.clear();
    mShownLayer = nullptr;
    mLayerId = mFeatureId = -1;
    mReady = false;
    mMarked = false;
    mMarkItem = nullptr;
    mMap = view->GetMap();
    mTreeModel.clear();
    mAttributeModel.clear();
    mAttributeModel.setHorizontalHeaderLabels({tr("Field"), tr("Alias"), tr("Value")});
    TLFeatureLayer* first = nullptr;
    int firstId = -1;
    for (const TLIdentifyLayerPick& record : records) {
        TLFeatureLayer* layer = featureLayer(record.layerId);
        if (!layer || !layer->IsValid() || record.featureIds.empty()) continue;
        QStandardItem* root = fixedItem(toQString(layer->GetLayerName()));
        root->setData(layer->GetLayerId(), kLayerRole);
        for (int id : record.featureIds) {
            QStandardItem* child = fixedItem(QString::number(id));
            child->setData(id, kFeatureRole);
            root->appendRow(child);
        }
        mTreeModel.appendRow(root);
        if (!first) {
            first = layer;
            firstId = record.featureIds.front();
        }
    }
    if (!first) return false;
    mLayerId = first->GetLayerId();
    TLRefPtr<TLFeature> feature = first->GetFeature(firstId);
    if (feature) mFeatureId = feature->GetId();
    showAttributes(first, feature.get());
    treeView_editfeatures->expandAll();
    if (!mDelegate)
        mDelegate = new TMEditAttributeDelegate(&mAttributeModel, &mFieldMap, this);
    else
        mDelegate->setSources(&mAttributeModel, &mFieldMap);
    tableView_attributes->setItemDelegateForColumn(kValueColumn, mDelegate);
    mReady = true;
    return true;
}

void TMDialogEditVectorAttributes::loadFields(TLFeatureLayer* layer) {
    mFieldNames.clear();
    mFieldAliases.clear();
    mFieldMap.clear();
    const TLFields& fields = layer->GetDatasource()->GetFields();
    for (int i = 0; i < fields.GetFieldCount(); ++i) {
        TLField* field = fields.GetField(i);
        if (!field->GetEditable() || field->IsSystemField() || field->IsGeoField() ||
            toQString(field->GetName()).startsWith(QLatin1String("LOOMDB_")))
            continue;
        mFieldNames.push_back(field->GetName());
        mFieldAliases.push_back(field->GetAliasName());
        mFieldMap.insert(toQString(field->GetName()), field);
    }
}

// Numbers are printed at the field's precision and lose trailing zeros and point; the pattern
// also takes the zeros of a whole number printed at precision 0 (100 shows as 1).
QString TMDialogEditVectorAttributes::valueText(TLField* field, const TLFeature& feature) const {
    static const QRegularExpression trailing(QStringLiteral("\\.?0+$"));
    const TLVariant value = feature.GetValue(field->GetName());
    if (value.IsNull()) return QString();
    switch (field->GetFieldType()) {
        case TLField::FieldDouble:
            return QString::number(value.GetDouble(), 'f', field->GetPrecision()).remove(trailing);
        case TLField::FieldFloat:
            return QString::number(value.GetFloat(), 'f', field->GetPrecision()).remove(trailing);
        case TLField::FieldShort:
            return QString::number(value.GetShort());
        case TLField::FieldInt:
            return QString::number(value.GetInt32());
        case TLField::FieldInt64:
            return QString::number(qlonglong(value.GetInt64()));
        default:
            return toQString(value.ToString());
    }
}

void TMDialogEditVectorAttributes::showAttributes(TLFeatureLayer* layer, TLFeature* feature) {
    bool fresh = false;
    if (layer != mShownLayer) {
        loadFields(layer);
        mAttributeModel.removeRows(0, mAttributeModel.rowCount());
        for (std::size_t i = 0; i < mFieldNames.size(); ++i)
            mAttributeModel.appendRow(
                {fixedItem(toQString(mFieldNames[i])), fixedItem(toQString(mFieldAliases[i]))});
        fresh = true;
    }
    mShownLayer = layer;
    if (!feature) {
        if (!fresh)
            for (int row = 0; row < mAttributeModel.rowCount(); ++row)
                mAttributeModel.setData(mAttributeModel.index(row, kValueColumn), QString());
        return;
    }
    for (std::size_t i = 0; i < mFieldNames.size(); ++i) {
        const QString name = toQString(mFieldNames[i]);
        TLField* field = mFieldMap.value(name);
        QString text;
        if (!pendingValue(layer->GetLayerId(), feature->GetId(), name, text)) {
            text = valueText(field, *feature);
            domainCodeToName(field, feature->GetValue(field->GetName()), text);
        }
        const int row = int(i);
        if (fresh || !mAttributeModel.item(row, kValueColumn))
            mAttributeModel.setItem(row, kValueColumn, new QStandardItem(text));
        else
            mAttributeModel.setData(mAttributeModel.index(row, kValueColumn), text);
    }
}

bool TMDialogEditVectorAttributes::pendingValue(int layerId, int featureId,
                                                const QString& fieldName, QString& text) const {
    auto layer = mEdits.constFind(layerId);
    if (layer == mEdits.constEnd()) return false;
    auto feature = layer->constFind(featureId);
    if (feature == layer->constEnd()) return false;
    auto value = feature->constFind(fieldName);
    if (value == feature->constEnd()) return false;
    text = *value;
    return true;
}

// Counts edited features, though the question calls them attributes.
void TMDialogEditVectorAttributes::onAttributesModelDataChanged(const QModelIndex& topLeft,
                                                                const QModelIndex& bottomRight) {
    if (!mReady || mFeatureId == -1 || topLeft != bottomRight) return;
    const QString text = topLeft.data().toString();
    const QString field = topLeft.sibling(topLeft.row(), topLeft.column() - 2).data().toString();
    auto layer = mEdits.find(mLayerId);
    if (layer != mEdits.end() && layer->contains(mFeatureId)) {
        (*layer)[mFeatureId][field] = text;
        return;
    }
    mEdits[mLayerId][mFeatureId][field] = text;
    ++mEditCount;
}

void TMDialogEditVectorAttributes::on_treeView_editfeatures_clicked(const QModelIndex& index) {
    clearSelection();
    mReady = false;
    QStandardItem* item = mTreeModel.itemFromIndex(index);
    if (!item) return;
    if (!item->parent()) {
        mLayerId = item->data(kLayerRole).toInt();
        mFeatureId = -1;
        // For looking only: with no feature id, edits are not taken.
        TLFeatureLayer* layer = featureLayer(mLayerId);
        QStandardItem* child = item->child(0);
        if (layer && child) {
            TLRefPtr<TLFeature> feature = layer->GetFeature(child->data(kFeatureRole).toInt());
            showAttributes(layer, feature.get());
        }
    } else {
        showFeature(featureLayer(item->parent()->data(kLayerRole).toInt()),
                    item->data(kFeatureRole).toInt());
    }
    mReady = true;
}

void TMDialogEditVectorAttributes::showFeature(TLFeatureLayer* layer, int featureId) {
    TLMapView* view = mapView();
    TLRefPtr<TLFeature> feature = layer ? layer->GetFeature(featureId) : nullptr;
    if (!feature || !view) return;
    mLayerId = layer->GetLayerId();
    mFeatureId = featureId;
    layer->ClearSelect(true);
    layer->AddSelect(feature.get(), false);
    TLRefPtr<TLGeometry> geometry = feature->GetGeometry();
    if (geometry && geometry->GetType() == TLGeometry::GeoPoint)
        view->PanToSelection(layer);
    else
        view->ZoomToSelection(layer);
    view->UpdateMap();
    if (geometry) {
        TLRefPtr<TLGeometry> shown = geometry->Clone();
        TLRefPtr<TLCoordinateSystem> mapReference = mMap->GetSpatialReference();
        TLRefPtr<TLCoordinateSystem> layerReference = layer->GetSpatialReference();
        if (mapReference && layerReference && !layerReference->IsSame(mapReference.get())) {
            TLGeometryProject project;
            project.SetPrj(layerReference.get(), mapReference.get(), nullptr);
            project.ProjTmGeometry(shown.get());
        }
        view->TwinkleGeometry(shown.get(), nullptr, 3);
    }
    showAttributes(layer, feature.get());
}

void TMDialogEditVectorAttributes::textToVariant(const QString& text, int type,
                                                 TLVariant& variant) const {
    switch (type) {
        case 2:
        case 3:
            variant = text.toDouble();
            break;
        case 0:
        case 1:
        case 6:
            variant = (long long)text.toLong(nullptr, 10);
            break;
        case 9:
            variant = (long long)text.toLongLong(nullptr, 10);
            break;
        default:
            variant = toTLString(text);
    }
}

void TMDialogEditVectorAttributes::domainNameToCode(TLField* field, const QString& text,
                                                    TLVariant& variant) const {
    const TLDoMain* domain = field ? field->GetDoMain() : nullptr;
    for (int i = 0; domain && i < domain->GetCount(); ++i)
        if (toQString(domain->GetName(i)) == text) {
            variant = domain->GetCode(i).ToString();
            return;
        }
}

void TMDialogEditVectorAttributes::domainCodeToName(TLField* field, const TLVariant& variant,
                                                    QString& text) const {
    const TLDoMain* domain = field ? field->GetDoMain() : nullptr;
    for (int i = 0; domain && i < domain->GetCount(); ++i)
        if (toQString(domain->GetCode(i).ToString()) == text) {
            text = toQString(domain->GetName(i));
            return;
        }
    (void)variant;
}

// One operation per layer; a layer kept in a store is saved at once.
void TMDialogEditVectorAttributes::saveEdits() {
    TLEditor* editor = mMap ? mMap->editor() : nullptr;
    if (!editor) return;
    for (auto layerEdits = mEdits.constBegin(); layerEdits != mEdits.constEnd(); ++layerEdits) {
        TLFeatureLayer* layer = featureLayer(layerEdits.key());
        if (!layer) continue;
        editor->set_edit_layer(layer);
        editor->StartOperation(TLString("Change Attribute"));
        TLLayerEditBuffer* buffer = layer->layer_edit_buffer();
        const TLFields& fields = layer->GetDatasource()->GetFields();
        for (auto featureEdits = layerEdits->constBegin(); featureEdits != layerEdits->constEnd();
             ++featureEdits) {
            if (!layer->GetFeature(featureEdits.key())) continue;
            for (auto edit = featureEdits->constBegin(); edit != featureEdits->constEnd(); ++edit) {
                const int index = fields.FindField(toTLString(edit.key()));
                if (index < 0) continue;
                TLField* field = fields.GetField(index);
                TLVariant value;
                textToVariant(edit.value(), field->GetFieldType(), value);
                domainNameToCode(field, edit.value(), value);
                buffer->ChangeAttribute(featureEdits.key(), field->GetName(), value, false);
            }
        }
        editor->CommitOperation(true);
        if (!dynamic_cast<TLMemoryFeatureLayer*>(layer)) layer->SaveEdits();
    }
}

void TMDialogEditVectorAttributes::clearSelection() {
    TLTool::selectFeatureNum = 0;
    if (!mMap) return;
    bool any = false;
    for (const TLRefPtr<TLLayer>& each : mMap->GetLayers(true)) {
        auto* layer = dynamic_cast<TLFeatureLayer*>(each.get());
        if (layer && layer->HasSelectedFeatures()) {
            layer->ClearSelect(false);
            any = true;
        }
    }
    if (any && mapView()) mapView()->Refresh(nullptr, TLMapCache::CacheType(2), TLRect());
}

int TMDialogEditVectorAttributes::askEdits(const QString& text) {
    QMessageBox box(QMessageBox::Question, tr("Save Attribute Edits"), text,
                    QMessageBox::Yes | QMessageBox::No, this);
    box.setButtonText(QMessageBox::Yes, tr("Yes"));
    box.setButtonText(QMessageBox::No, tr("No"));
    return box.exec();
}

void TMDialogEditVectorAttributes::on_pushbtn_commit_clicked() {
    const int answer = askEdits(tr("There has %1 edited attributes,\n").arg(mEditCount) +
                                tr("Do you want to save the edits? "));
    const bool save = answer != QMessageBox::No;
    if (save && mMap && mMap->editor()) saveEdits();
    clearSelection();
    mEditCount = 0;
    mEdits.clear();
    mShownLayer = nullptr;
    if (save)
        accept();
    else
        close();
}

void TMDialogEditVectorAttributes::on_pushbtn_discard_clicked() {
    mEditCount = 0;
    mEdits.clear();
    mShownLayer = nullptr;
    clearSelection();
    close();
}

// The question is the other way round: No keeps the edits and saves them.
void TMDialogEditVectorAttributes::askSaveEdits() {
    if (mEditCount > 0) {
        const int answer = askEdits(tr("There has %1 edited attributes, \n").arg(mEditCount) +
                                    tr("Do you want to give up the modification? "));
        if (answer == QMessageBox::No) saveEdits();
    }
    forgetEdits();
}

void TMDialogEditVectorAttributes::forgetEdits() {
    mEditCount = 0;
    mShownLayer = nullptr;
    mFieldNames.clear();
    mFieldAliases.clear();
    mFieldMap.clear();
    mEdits.clear();
    mMarked = false;
    if (mMarkItem) mMarkItem->setForeground(QColor(0, 0, 0, 255));
    mMarkItem = nullptr;
}

// Pending edits are lost without a question.
void TMDialogEditVectorAttributes::closeEvent(QCloseEvent* event) {
    clearSelection();
    forgetEdits();
    QDialog::closeEvent(event);
}

void TMDialogEditVectorAttributes::slotFeaturesViewMenu(const QPoint& pos) {
    QStandardItem* item = mTreeModel.itemFromIndex(treeView_editfeatures->indexAt(pos));
    if (!item || !item->parent() || !item->parent()->data(kLayerRole).isValid()) return;
    QMenu menu(this);
    connect(menu.addAction(tr("Copy mark")), &QAction::triggered, this,
            [this] { slotCopyFeature(); });
    connect(menu.addAction(tr("Cancel copy cark")), &QAction::triggered, this,
            [this] { slotCacelCopyFeature(); });
    connect(menu.addAction(tr("Paste")), &QAction::triggered, this, [this] { slotPastFeature(); });
    menu.exec(QCursor::pos());
}

void TMDialogEditVectorAttributes::slotCopyFeature() {
    QStandardItem* item = mTreeModel.itemFromIndex(treeView_editfeatures->currentIndex());
    if (!item) return;
    if (mMarkItem) mMarkItem->setForeground(mMarkBrush);
    mMarkBrush = item->foreground();
    item->setForeground(QColor(255, 0, 0));
    mMarkItem = item;
    mMarked = true;
}

void TMDialogEditVectorAttributes::slotCacelCopyFeature() {
    if (mMarkItem) mMarkItem->setForeground(mMarkBrush);
    mMarked = false;
    mMarkItem = nullptr;
}

// Written at once, every field the layer has but system and geometry fields, null values too.
void TMDialogEditVectorAttributes::slotPastFeature() {
    if (!mMarked || !mMarkItem) {
        QMessageBox::warning(this, tr("Warning"),
                             tr("Please mark the feature which you want to copy!"));
        return;
    }
    QStandardItem* item = mTreeModel.itemFromIndex(treeView_editfeatures->currentIndex());
    if (!item || !item->parent()) return;
    if (mMarkItem->parent() != item->parent()) {
        QMessageBox::warning(this, tr("Warning"),
                             tr("Please select a feature under the same layer!"));
        return;
    }
    const int source = mMarkItem->data(kFeatureRole).toInt();
    const int target = item->data(kFeatureRole).toInt();
    TLFeatureLayer* layer = featureLayer(item->parent()->data(kLayerRole).toInt());
    if (source < 0 || target < 0 || source == target || !layer || !mMap) return;
    TLEditor* editor = mMap->editor();
    editor->set_edit_layer(layer);
    editor->StartOperation(TLString("Change Attribute"));
    TLRefPtr<TLFeature> marked = layer->GetFeature(source);
    std::map<TLString, TLVariant> values;
    const TLFields& fields = layer->GetDatasource()->GetFields();
    for (int i = 0; marked && i < fields.GetFieldCount(); ++i) {
        TLField* field = fields.GetField(i);
        if (field->IsSystemField() || field->IsGeoField()) continue;
        values[field->GetName()] = marked->GetValue(field->GetName());
    }
    layer->layer_edit_buffer()->ChangeAttributes(target, values, false);
    editor->CommitOperation(true);
    if (target == mFeatureId && layer->GetLayerId() == mLayerId) {
        // The values shown afresh are the layer's, not edits of the user.
        TLRefPtr<TLFeature> shown = layer->GetFeature(target);
        const bool ready = mReady;
        mReady = false;
        showAttributes(layer, shown.get());
        mReady = ready;
    }
}
