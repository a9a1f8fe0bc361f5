#include "VertexEditSession.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QStandardItemModel>
#include <QTableView>

#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"

namespace TMObjects {

void TwinkleRecorder::OnTwinkle(TLGeometry* geometry, int count) {
    if (auto* point = dynamic_cast<TLGeoPoint*>(geometry))
        points.push_back({point->GetX(), point->GetY()});
    times = count;
}

void VertexEditSession::SetUp() {
    CommandSession::SetUp();
    mainWindow = std::make_unique<QWidget>();
    mainWindow->resize(1000, 800);
    mainWindow->show();
    buddy->SetMainWindowId(std::uintptr_t(mainWindow->winId()));
    view->SetListener(&twinkles);
    answerer.Start();
}

void VertexEditSession::TearDown() {
    answerer.Stop();
    view->SetListener(nullptr);
    CommandSession::TearDown();
    mainWindow.reset();
}

QWidget* VertexEditSession::shown(const char* objectName) const {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible()) continue;
        if (window->objectName() == objectName) return window;
        for (QWidget* child : window->findChildren<QWidget*>(objectName))
            if (child->isVisible()) return child;
    }
    return nullptr;
}

QString VertexEditSession::textOf(const char* objectName) const {
    QWidget* widget = shown(objectName);
    if (auto* edit = qobject_cast<QLineEdit*>(widget)) return edit->text();
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) return button->text();
    return widget ? widget->windowTitle() : QString("(not shown)");
}

QTableView* VertexEditSession::table(const char* objectName) const {
    return qobject_cast<QTableView*>(shown(objectName));
}

QStandardItemModel* VertexEditSession::model(const char* objectName) const {
    QTableView* view = table(objectName);
    return view ? qobject_cast<QStandardItemModel*>(view->model()) : nullptr;
}

std::vector<std::string> VertexEditSession::column(const char* objectName, int col) const {
    std::vector<std::string> texts;
    QStandardItemModel* m = model(objectName);
    for (int row = 0; m && row < m->rowCount(); ++row)
        texts.push_back(m->index(row, col).data().toString().toStdString());
    return texts;
}

void VertexEditSession::clickCell(const char* objectName, int row, int col) {
    QTableView* view = table(objectName);
    ASSERT_NE(view, nullptr) << objectName;
    Q_EMIT view->clicked(view->model()->index(row, col));
}

void VertexEditSession::typeCell(int row, int col, const char* text) {
    QStandardItemModel* m = model("mTableViewPoint");
    ASSERT_NE(m, nullptr);
    m->setData(m->index(row, col), QString(text), Qt::EditRole);
}

void VertexEditSession::clickButton(const char* objectName) {
    auto* button = qobject_cast<QAbstractButton*>(shown(objectName));
    ASSERT_NE(button, nullptr) << objectName;
    button->click();
}

int VertexEditSession::addPolygon(TLFeatureLayer* layer, const Rings& rings) {
    TLRefPtr<TLGeoPolygon> polygon(new TLGeoPolygon);
    for (const Ring& ring : rings) {
        polygon->BeginPath();
        for (const XY& p : ring) polygon->AddXY(p.first, p.second);
    }
    polygon->EndEntity();
    TLFeature feature;
    feature.SetGeometry(polygon);
    return layer->GetDatasource()->Insert(feature);
}

int VertexEditSession::addPoint(TLFeatureLayer* layer, double x, double y) {
    TLFeature feature;
    feature.SetGeometry(TLRefPtr<TLGeometry>(new TLGeoPoint(x, y)));
    return layer->GetDatasource()->Insert(feature);
}

int VertexEditSession::addLineParts(TLFeatureLayer* layer, const Paths& parts) {
    TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline);
    for (const Path& part : parts) {
        line->BeginPath();
        for (const XY& p : part) line->AddXY(p.first, p.second);
    }
    line->EndEntity();
    TLFeature feature;
    feature.SetGeometry(line);
    return layer->GetDatasource()->Insert(feature);
}

}  // namespace TMObjects
