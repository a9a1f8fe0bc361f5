#pragma once

#include <QString>
#include <QStringList>
#include <memory>

#include "CommandSession.h"

class QWidget;

namespace TMObjects {

// A measuring tool at work in a view that may show any map rectangle, under a main window that
// its dialogs take as parent. Points are given in map coordinates and turned into the pixels
// that show them.
class MeasureSession : public CommandSession {
protected:
    void SetUp() override;
    void TearDown() override;

    // The map's system and the rectangle shown on the 800 x 600 view.
    void showMap(const char* crs, double xmin, double ymin, double xmax, double ymax);
    void moveTo(double x, double y);
    // A move to the point, then a press and release there.
    void clickAt(double x, double y, TLMouseButton button = TLLeftButton);
    void dblClickAt(double x, double y);

    // A widget of a dialog on screen by its object name; null when none is shown.
    QWidget* shown(const char* objectName) const;
    // What a line edit, label, combo or window shows.
    QString textOf(const char* objectName) const;
    // The rows of the segment list of the line dialog.
    QStringList segmentRows() const;
    // A number shown in the user's locale.
    static double number(const QString& text);
    // Picks the combo entry with that text, as the user would.
    void chooseUnit(const QString& text);
    void clickButton(const char* objectName);

    int addPolygon(TLFeatureLayer* layer, const Path& ring);
    // Nothing was written and no step was opened.
    void expectNoEdits(const std::vector<TLFeatureLayer*>& layers, int features) const;

    std::unique_ptr<QWidget> mainWindow;
};

}  // namespace TMObjects
