#include "ShellFixture.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QSettings>
#include <QTest>
#include <QTreeWidget>

#include "ShellTestData.h"
#include "TLCommandWindow.h"
#include "TLDemoData.h"
#include "TLLayerPanel.h"
#include "TLMapCanvas.h"
#include "TLShellDocument.h"
#include "TLShellText.h"
#include "TLShellToolTable.h"
#include "TLToolPalette.h"
#include "tlmap/TLFeatureLayer.h"

namespace TMObjects {

std::map<QString, ShellTestRegistry::Factory>& ShellTestRegistry::Classes() {
    static std::map<QString, Factory> classes;
    return classes;
}

ShellTestRegistry::Add::Add(const char* name, Factory factory) {
    Classes()[QString::fromLatin1(name)] = std::move(factory);
}

void ShellFixture::openShell() {
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
    dataPath = ShellTestData::WriteGeoPackage(folder->path());
    QVERIFY(!dataPath.isEmpty());
    showWindowOnData();
}

void ShellFixture::openDemoShell() {
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
    dataPath = folder->filePath("demo.gpkg");
    std::string error;
    QVERIFY2(TLDemoData::Write(dataPath.toStdString(), error), error.c_str());
    showWindowOnData();
}

void ShellFixture::showWindowOnData() {
    QSettings().clear();
    window = std::make_unique<TLShellWindow>();
    window->resize(1100, 760);
    window->show();
    QCoreApplication::processEvents();
    QVERIFY(window->OpenData(dataPath));
    QCoreApplication::processEvents();
}

void ShellFixture::closeShell() {
    // Deleting the window closes no dialog: edits left by a test are dropped with it.
    window.reset();
    folder.reset();
}

TLFeatureLayer* ShellFixture::layer(const char* name) const {
    return dynamic_cast<TLFeatureLayer*>(
        window->Document()->Map()->GetLayerByName(TLString(name)).get());
}

QPoint ShellFixture::deviceOf(double x, double y) const {
    return window->Canvas()->ToDevice(TLPoint(x, y)).toPoint();
}

QPointF ShellFixture::exactDeviceOf(double x, double y) const {
    return window->Canvas()->ToDevice(TLPoint(x, y));
}

QPointF ShellFixture::mapOf(const QPoint& device) const {
    const TLPoint p = window->Canvas()->ToMap(device);
    return QPointF(p.x, p.y);
}

void ShellFixture::pickFromPalette(const char* className) {
    TLToolPalette* palette = window->Palette();
    QTreeWidgetItem* item = palette->ItemOf(TLShellToolTable::IndexOf(className));
    QVERIFY2(item, className);
    palette->scrollToItem(item);
    QTest::mouseClick(palette->viewport(), Qt::LeftButton, {},
                      palette->visualItemRect(item).center());
}

void ShellFixture::clickCanvas(const QPoint& at, Qt::MouseButton button) {
    moveCanvas(at);
    QTest::mousePress(window->Canvas(), button, {}, at);
    QTest::mouseRelease(window->Canvas(), button, {}, at);
}

void ShellFixture::moveCanvas(const QPoint& to, Qt::MouseButtons held) {
    // A move event sent straight to the canvas: the test's pointer need not be a real one.
    QMouseEvent move(QEvent::MouseMove, to, window->Canvas()->mapToGlobal(to), Qt::NoButton, held,
                     Qt::NoModifier);
    QApplication::sendEvent(window->Canvas(), &move);
}

void ShellFixture::typeLine(const QString& text) {
    QLineEdit* input = window->Commands()->Input();
    QTest::keyClicks(input, text);
    QTest::keyClick(input, Qt::Key_Return);
}

void ShellFixture::tickLayerBox(const char* layerName, int column, bool checked) {
    TLLayerPanel* panel = window->Layers();
    QTreeWidgetItem* item = panel->ItemOf(layer(layerName));
    QVERIFY2(item, layerName);
    item->setCheckState(column, checked ? Qt::Checked : Qt::Unchecked);
}

QAction* ShellFixture::menuAction(const QString& menu, const QString& item) const {
    for (QAction* top : window->menuBar()->actions())
        if (top->text() == menu && top->menu())
            for (QAction* action : top->menu()->actions())
                if (action->text() == item) return action;
    return nullptr;
}

QStringList ShellFixture::history() const {
    return window->Commands()->History();
}

QString ShellFixture::prompt() const {
    return window->Commands()->PromptLabel()->text();
}

QImage ShellFixture::canvasImage() const {
    return window->Canvas()->grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

bool ShellFixture::sameColour(QRgb pixel, const QColor& colour, int tolerance) {
    return std::abs(qRed(pixel) - colour.red()) <= tolerance &&
           std::abs(qGreen(pixel) - colour.green()) <= tolerance &&
           std::abs(qBlue(pixel) - colour.blue()) <= tolerance;
}

bool ShellFixture::tintedNear(const QImage& image, const QPoint& at, int radius,
                              const QColor& colour) {
    const auto distance = [](QRgb p, const QColor& c) {
        return std::abs(qRed(p) - c.red()) + std::abs(qGreen(p) - c.green()) +
               std::abs(qBlue(p) - c.blue());
    };
    for (int y = at.y() - radius; y <= at.y() + radius; ++y)
        for (int x = at.x() - radius; x <= at.x() + radius; ++x)
            if (image.rect().contains(x, y) &&
                distance(image.pixel(x, y), colour) < distance(image.pixel(x, y), Qt::white))
                return true;
    return false;
}

bool ShellFixture::colourNear(const QImage& image, const QPoint& at, int radius,
                              const QColor& colour, int tolerance) {
    for (int y = at.y() - radius; y <= at.y() + radius; ++y)
        for (int x = at.x() - radius; x <= at.x() + radius; ++x)
            if (image.rect().contains(x, y) && sameColour(image.pixel(x, y), colour, tolerance))
                return true;
    return false;
}

}  // namespace TMObjects
