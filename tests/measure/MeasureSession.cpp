#include "MeasureSession.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QTreeWidget>
#include <cmath>

#include "tlgeo/TLGeoPolygon.h"
#include "tlsparef/TLCoordinateSystem.h"

namespace TMObjects {

void MeasureSession::SetUp() {
    CommandSession::SetUp();
    mainWindow = std::make_unique<QWidget>();
    mainWindow->resize(1000, 800);
    mainWindow->show();
    buddy->SetMainWindowId(std::uintptr_t(mainWindow->winId()));
}

void MeasureSession::TearDown() {
    CommandSession::TearDown();
    mainWindow.reset();
}

void MeasureSession::showMap(const char* crs, double xmin, double ymin, double xmax, double ymax) {
    if (crs) map->SetSpatialReference(TLSpatialObjectFactory::LoadCoordinateSystem(crs));
    view->SetVisibleBounds(TLRect(xmin, xmax, ymin, ymax));
}

void MeasureSession::moveTo(double x, double y) {
    const TLPoint d = view->GetDisplayTransform()->ToDevice(TLPoint(x, y));
    dispatcher->MouseMove(TLNoButton, int(std::lround(d.x)), int(std::lround(d.y)));
}

void MeasureSession::clickAt(double x, double y, TLMouseButton button) {
    moveTo(x, y);
    const TLPoint d = view->GetDisplayTransform()->ToDevice(TLPoint(x, y));
    const int px = int(std::lround(d.x)), py = int(std::lround(d.y));
    dispatcher->MouseDown(button, px, py);
    dispatcher->MouseUp(button, px, py);
}

void MeasureSession::dblClickAt(double x, double y) {
    clickAt(x, y);
    const TLPoint d = view->GetDisplayTransform()->ToDevice(TLPoint(x, y));
    dispatcher->DoubleClick(TLLeftButton, int(std::lround(d.x)), int(std::lround(d.y)));
}

QWidget* MeasureSession::shown(const char* objectName) const {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible()) continue;
        for (QWidget* child : window->findChildren<QWidget*>(objectName))
            if (child->isVisible()) return child;
    }
    return nullptr;
}

QString MeasureSession::textOf(const char* objectName) const {
    QWidget* widget = shown(objectName);
    if (auto* edit = qobject_cast<QLineEdit*>(widget)) return edit->text();
    if (auto* label = qobject_cast<QLabel*>(widget)) return label->text();
    if (auto* plain = qobject_cast<QPlainTextEdit*>(widget)) return plain->toPlainText();
    if (auto* combo = qobject_cast<QComboBox*>(widget)) return combo->currentText();
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) return button->text();
    return widget ? widget->windowTitle() : QString("(not shown)");
}

QStringList MeasureSession::segmentRows() const {
    QStringList rows;
    auto* tree = qobject_cast<QTreeWidget*>(shown("mTreeWidget"));
    for (int i = 0; tree && i < tree->topLevelItemCount(); ++i)
        rows << tree->topLevelItem(i)->text(0);
    return rows;
}

double MeasureSession::number(const QString& text) {
    bool ok = false;
    double value = QLocale::system().toDouble(text.trimmed(), &ok);
    if (!ok) value = QLocale().toDouble(text.trimmed(), &ok);
    return ok ? value : NAN;
}

void MeasureSession::chooseUnit(const QString& text) {
    auto* combo = qobject_cast<QComboBox*>(shown("mComboBoxUnits"));
    ASSERT_NE(combo, nullptr);
    const int index = combo->findText(text);
    ASSERT_GE(index, 0) << text.toStdString();
    combo->setCurrentIndex(index);
}

void MeasureSession::clickButton(const char* objectName) {
    auto* button = qobject_cast<QAbstractButton*>(shown(objectName));
    ASSERT_NE(button, nullptr) << objectName;
    button->click();
}

int MeasureSession::addPolygon(TLFeatureLayer* layer, const Path& ring) {
    TLRefPtr<TLGeoPolygon> polygon(new TLGeoPolygon);
    polygon->BeginPath();
    polygon->BeginSegment(1);
    for (const XY& p : ring) polygon->AddXY(p.first, p.second);
    polygon->EndEntity();
    TLFeature feature;
    feature.SetGeometry(polygon);
    return layer->GetDatasource()->Insert(feature);
}

void MeasureSession::expectNoEdits(const std::vector<TLFeatureLayer*>& layers, int features) const {
    int count = 0;
    for (TLFeatureLayer* layer : layers) count += int(layer->GetDatasource()->GetIds().size());
    EXPECT_EQ(count, features) << "features in the layers";
    EXPECT_EQ(map->editor()->UndoCount(), 0) << "undo steps";
    EXPECT_FALSE(map->editor()->IsOperationOpen());
}

}  // namespace TMObjects
