#include "IdentifySession.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QStandardItemModel>
#include <QTableView>
#include <QTextEdit>
#include <QTreeView>

#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlsparef/TLCoordinateSystem.h"

namespace TMObjects {

namespace {

TLField::FieldType typeOf(const QString& word) {
    if (word == "double") return TLField::FieldDouble;
    if (word == "float") return TLField::FieldFloat;
    if (word == "int") return TLField::FieldInt;
    if (word == "geometry") return TLField::FieldGeometry;
    return TLField::FieldString;
}

}  // namespace

void IdentifySession::SetUp() {
    CommandSession::SetUp();
    mainWindow = std::make_unique<QWidget>();
    mainWindow->resize(1000, 800);
    mainWindow->show();
    buddy->SetMainWindowId(std::uintptr_t(mainWindow->winId()));
    view->SetListener(&flashes);
    TLSelectionEnvironment::Instance()->SetMode(TLSelectionEnvironment::SelectNew);
    TLSelectionEnvironment::Instance()->SetTolerance(5);
    pick("TLToolIdentifyFeature");
}

void IdentifySession::TearDown() {
    dispatcher->Deactivate();
    view->SetListener(nullptr);
    CommandSession::TearDown();
    mainWindow.reset();
}

TLFeatureLayer* IdentifySession::addTable(const char* name, TLLayer::LayerType type,
                                          const QStringList& fields, const char* crs,
                                          int position) {
    TLFields table;
    for (const QString& field : fields) {
        const QStringList parts = field.split(':');
        table.AddField(TLString(parts[0].toStdWString()), typeOf(parts.value(1)), 0,
                       parts.value(2).toInt());
    }
    TLRefPtr<TLCoordinateSystem> reference;
    if (crs) reference = TLSpatialObjectFactory::LoadCoordinateSystem(crs);
    TLFeatureLayer* layer = TLFeatureLayer::CreateMemoryLayer(name, type, table, reference);
    map->InsertLayer(position, layer, true);
    return layer;
}

void IdentifySession::setValues(TLFeatureLayer* layer, int id, const QStringList& values) {
    const TLFields& fields = layer->GetDatasource()->GetFields();
    for (const QString& pair : values) {
        const QString field = pair.section('=', 0, 0), text = pair.section('=', 1);
        const int index = fields.FindField(TLString(field.toStdWString()));
        const bool number = index >= 0 && fields.GetField(index)->GetFieldType() != 4;
        const TLVariant value =
            number ? TLVariant(text.toDouble()) : TLVariant(TLString(text.toStdWString()));
        layer->GetDatasource()->SetValue(id, TLString(field.toStdWString()), value);
    }
}

int IdentifySession::addPoint(TLFeatureLayer* layer, double x, double y,
                              const QStringList& values) {
    TLFeature feature;
    feature.SetGeometry(TLRefPtr<TLGeometry>(new TLGeoPoint(x, y)));
    const int id = layer->GetDatasource()->Insert(feature);
    setValues(layer, id, values);
    return id;
}

int IdentifySession::addSquare(TLFeatureLayer* layer, double x, double y, double side,
                               const QStringList& values) {
    TLRefPtr<TLGeoPolygon> polygon(new TLGeoPolygon);
    polygon->BeginPath();
    polygon->BeginSegment(1);
    const double ring[5][2] = {{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}, {x, y}};
    for (const auto& p : ring) polygon->AddXY(p[0], p[1]);
    polygon->EndEntity();
    TLFeature feature;
    feature.SetGeometry(polygon);
    const int id = layer->GetDatasource()->Insert(feature);
    setValues(layer, id, values);
    return id;
}

void IdentifySession::clickAt(double x, double y) {
    press(x, y);
}

void IdentifySession::dragFromTo(double x0, double y0, double x1, double y1) {
    dispatcher->MouseDown(TLLeftButton, int(x0), int(600 - y0));
    dispatcher->MouseMove(TLLeftButton, int(x1), int(600 - y1));
    dispatcher->MouseUp(TLLeftButton, int(x1), int(600 - y1));
}

QWidget* IdentifySession::shown(const char* objectName) const {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible()) continue;
        for (QWidget* child : window->findChildren<QWidget*>(objectName))
            if (child->isVisible()) return child;
    }
    return nullptr;
}

QString IdentifySession::textOf(const char* objectName) const {
    QWidget* widget = shown(objectName);
    if (auto* edit = qobject_cast<QLineEdit*>(widget)) return edit->text();
    if (auto* label = qobject_cast<QLabel*>(widget)) return label->text();
    if (auto* combo = qobject_cast<QComboBox*>(widget)) return combo->currentText();
    return widget ? widget->windowTitle() : QString("(not shown)");
}

QStringList IdentifySession::comboRows() const {
    QStringList rows;
    auto* combo = qobject_cast<QComboBox*>(shown("mComboBoxLayers"));
    for (int i = 0; combo && i < combo->count(); ++i) rows << combo->itemText(i);
    return rows;
}

QStringList IdentifySession::treeRows() const {
    QStringList rows;
    auto* tree = qobject_cast<QTreeView*>(shown("mTreeViewLayer"));
    const QAbstractItemModel* model = tree ? tree->model() : nullptr;
    for (int r = 0; model && r < model->rowCount(); ++r) {
        const QModelIndex root = model->index(r, 0);
        rows << root.data().toString();
        for (int c = 0; c < model->rowCount(root); ++c)
            rows << "  " + model->index(c, 0, root).data().toString();
    }
    return rows;
}

QStringList IdentifySession::tableRows() const {
    QStringList rows;
    auto* table = qobject_cast<QTableView*>(shown("mTableViewAttribute"));
    const QAbstractItemModel* model = table ? table->model() : nullptr;
    for (int r = 0; model && r < model->rowCount(); ++r)
        rows << QStringList{model->index(r, 0).data().toString(),
                            model->index(r, 1).data().toString(),
                            model->index(r, 2).data().toString()}
                    .join('|');
    return rows;
}

QString IdentifySession::placeholder() const {
    auto* info = qobject_cast<QTextEdit*>(shown("textEdit_info"));
    return info ? info->placeholderText() : QString("(not shown)");
}

void IdentifySession::chooseLayer(int row) {
    auto* combo = qobject_cast<QComboBox*>(shown("mComboBoxLayers"));
    ASSERT_NE(combo, nullptr);
    combo->setCurrentIndex(row);
}

void IdentifySession::clickFeatureRow(int row) {
    auto* tree = qobject_cast<QTreeView*>(shown("mTreeViewLayer"));
    ASSERT_NE(tree, nullptr);
    const QModelIndex root = tree->model()->index(0, 0);
    const QModelIndex index = row < 0 ? root : tree->model()->index(row, 0, root);
    ASSERT_TRUE(index.isValid());
    Q_EMIT tree->clicked(index);
}

void IdentifySession::expectNothingChanged(const std::vector<TLFeatureLayer*>& layers,
                                           int features) const {
    int count = 0;
    for (TLFeatureLayer* layer : layers) count += int(layer->GetDatasource()->GetIds().size());
    EXPECT_EQ(count, features) << "features in the layers";
    EXPECT_EQ(map->editor()->UndoCount(), 0) << "undo steps";
    EXPECT_FALSE(map->editor()->IsOperationOpen());
}

}  // namespace TMObjects
