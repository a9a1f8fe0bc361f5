#pragma once

#include <QString>
#include <QWidget>
#include <memory>

#include "CommandSession.h"
#include "hostkit/TLModalAnswerer.h"

class QStandardItemModel;
class QTableView;

namespace TMObjects {

// What the view was asked to flash.
class TwinkleRecorder : public TLMapViewListener {
public:
    void OnTwinkle(TLGeometry* geometry, int times) override;
    std::vector<XY> points;
    int times = 0;
};

// A vertex editing tool at work under a main window that its dialogs take as parent, with the
// modal boxes answered and the view's flashes recorded.
class VertexEditSession : public CommandSession {
protected:
    void SetUp() override;
    void TearDown() override;

    // A widget of a window on screen by its object name; null when none is shown.
    QWidget* shown(const char* objectName) const;
    QString textOf(const char* objectName) const;
    QTableView* table(const char* objectName) const;
    QStandardItemModel* model(const char* objectName) const;
    // The texts of one column of a table on screen, row by row.
    std::vector<std::string> column(const char* objectName, int column) const;
    void clickCell(const char* objectName, int row, int column);
    // Types a value into a cell of the point table, as the cell's editor hands it over.
    void typeCell(int row, int column, const char* text);
    void clickButton(const char* objectName);

    int addPolygon(TLFeatureLayer* layer, const Rings& rings);
    int addPoint(TLFeatureLayer* layer, double x, double y);
    int addLineParts(TLFeatureLayer* layer, const Paths& parts);

    std::unique_ptr<QWidget> mainWindow;
    TLModalAnswerer answerer;
    TwinkleRecorder twinkles;
};

}  // namespace TMObjects
