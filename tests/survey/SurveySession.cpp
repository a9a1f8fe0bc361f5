#include "SurveySession.h"

#include <QApplication>
#include <QDialog>
#include <QWidget>

#include "hostkit/TLDialogDriver.h"

namespace TMObjects {

void SurveySession::SetUp() {
    CommandSession::SetUp();
    mainWindow = std::make_unique<QWidget>();
    mainWindow->resize(1000, 800);
    mainWindow->show();
    buddy->SetMainWindowId(std::uintptr_t(mainWindow->winId()));
    answerer = std::make_unique<TLModalAnswerer>();
    answerer->Start();
}

void SurveySession::TearDown() {
    CommandSession::TearDown();
    answerer.reset();
    mainWindow.reset();
}

QDialog* SurveySession::form(const char* title) const {
    // A dialog that went with its tool is deleted once events run again.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (QDialog* dialog : mainWindow->findChildren<QDialog*>())
        if (dialog->windowTitle() == title) return dialog;
    return nullptr;
}

QWidget* SurveySession::widget(const char* title, const char* objectName) const {
    QDialog* dialog = form(title);
    return dialog ? dialog->findChild<QWidget*>(objectName) : nullptr;
}

void SurveySession::set(const char* objectName, const std::string& value) {
    std::string error;
    QWidget* target = TLDialogDriver::Find(objectName, error);
    ASSERT_NE(target, nullptr) << error;
    ASSERT_TRUE(TLDialogDriver::Set(target, value, error)) << error;
}

void SurveySession::clickButton(const char* objectName) {
    std::string error;
    QWidget* target = TLDialogDriver::Find(objectName, error);
    ASSERT_NE(target, nullptr) << error;
    ASSERT_TRUE(TLDialogDriver::Click(target, error)) << error;
}

std::string SurveySession::textOf(const char* objectName) const {
    std::string error;
    QWidget* target = TLDialogDriver::Find(objectName, error);
    return target ? TLDialogDriver::Text(target) : "(not shown)";
}

std::vector<std::string> SurveySession::warnings() const {
    std::vector<std::string> texts;
    for (const auto& record : answerer->Records()) {
        EXPECT_EQ(record.title, "Warning");
        texts.push_back(record.text);
    }
    return texts;
}

TLFeatureLayer* SurveySession::layerNamed(const char* name) const {
    return dynamic_cast<TLFeatureLayer*>(map->GetLayerByName(name).get());
}

int SurveySession::featureCount(TLFeatureLayer* layer) const {
    return layer ? layer->GetDatasource()->GetFeatureCount() : -1;
}

std::vector<XY> SurveySession::pointsOf(TLFeatureLayer* layer) const {
    std::vector<XY> points;
    for (int id : layer->GetDatasource()->GetIds()) points.push_back(pointOf(layer, id));
    return points;
}

}  // namespace TMObjects
