#include "RasterToolSession.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QTableWidget>
#include <QWidget>

#include "hostkit/TLDialogDriver.h"

namespace TMObjects {

void RasterToolSession::SetUp() {
    CommandSession::SetUp();
    mainWindow = std::make_unique<QWidget>();
    mainWindow->resize(1000, 800);
    mainWindow->show();
    buddy->SetMainWindowId(std::uintptr_t(mainWindow->winId()));
    answerer.Start();
    mDir = ScratchFolder(::testing::UnitTest::GetInstance()->current_test_info()->name());
}

void RasterToolSession::TearDown() {
    dispatcher->Deactivate();
    settle();
    answerer.Stop();
    CommandSession::TearDown();
    mainWindow.reset();
    settle();
    mWorkspaces.clear();
}

TLRasterLayer* RasterToolSession::addRaster(const std::string& name, RasterSpec spec) {
    TLString error;
    mWorkspaces.push_back(
        TMWorkspace::Open(WriteRaster(scratch(name + ".tif"), spec), false, error));
    EXPECT_TRUE(mWorkspaces.back()) << error.toStdString();
    if (!mWorkspaces.back()) return nullptr;
    TLRefPtr<TLLayer> layer = mWorkspaces.back()->GetLayers().at(0);
    map->InsertLayer(-1, layer.get(), true);
    return dynamic_cast<TLRasterLayer*>(layer.get());
}

QWidget* RasterToolSession::shown(const char* objectName) const {
    std::string why;
    return TLDialogDriver::Find(objectName, why);
}

QString RasterToolSession::textOf(const char* objectName) const {
    QWidget* widget = shown(objectName);
    return widget ? QString::fromStdString(TLDialogDriver::Text(widget)) : QString("(none)");
}

QTableWidget* RasterToolSession::table(const char* objectName) const {
    for (QWidget* top : QApplication::topLevelWidgets())
        if (auto* found = top->findChild<QTableWidget*>(QString::fromLatin1(objectName)))
            return found;
    return nullptr;
}

QString RasterToolSession::cell(QTableWidget* table, int row, int column) {
    QTableWidgetItem* item = table ? table->item(row, column) : nullptr;
    return item ? item->text() : QString("-");
}

void RasterToolSession::setText(const char* objectName, const QString& text) {
    std::string why;
    QWidget* widget = shown(objectName);
    ASSERT_NE(widget, nullptr) << objectName;
    ASSERT_TRUE(TLDialogDriver::Set(widget, text.toStdString(), why)) << why;
}

void RasterToolSession::clickButton(const char* objectName) {
    std::string why;
    QWidget* widget = shown(objectName);
    ASSERT_NE(widget, nullptr) << objectName;
    ASSERT_TRUE(TLDialogDriver::Click(widget, why)) << why;
}

void RasterToolSession::settle() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

}  // namespace TMObjects
