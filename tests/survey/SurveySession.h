#pragma once

#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "CommandSession.h"
#include "hostkit/TLModalAnswerer.h"

class QDialog;
class QWidget;

namespace TMObjects {

// A survey tool at work on the fixture's view, under a main window that its dialog takes as
// parent, with the warnings of the dialog answered and recorded.
class SurveySession : public CommandSession {
protected:
    void SetUp() override;
    void TearDown() override;

    // The tool's dialog, shown or hidden; null when there is none (any more).
    QDialog* form(const char* title) const;
    // A widget of that dialog by its object name, shown or not.
    QWidget* widget(const char* title, const char* objectName) const;
    // Typed, picked or clicked as the user would; the widget must be on screen.
    void set(const char* objectName, const std::string& value);
    void clickButton(const char* objectName);
    // What a widget on screen shows.
    std::string textOf(const char* objectName) const;
    // The texts of the warnings shown since the test began.
    std::vector<std::string> warnings() const;

    // The layer of that name in the map, or null.
    TLFeatureLayer* layerNamed(const char* name) const;
    int featureCount(TLFeatureLayer* layer) const;
    // x, y of each point feature, by ascending id.
    std::vector<XY> pointsOf(TLFeatureLayer* layer) const;

    std::unique_ptr<QWidget> mainWindow;
    std::unique_ptr<TLModalAnswerer> answerer;
};

}  // namespace TMObjects
