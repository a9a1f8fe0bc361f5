#pragma once

#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "CommandSession.h"
#include "RasterFiles.h"
#include "hostkit/TLModalAnswerer.h"
#include "tlmap/TLRasterLayer.h"
#include "tmgis/TMWorkspace.h"

class QTableWidget;
class QWidget;

namespace TMObjects {

// A raster tool at work on the fixture's view (map x 0..800, y 0..600, one unit a pixel) under a
// main window, with modal dialogs answered. Rasters are GeoTIFFs written for the test, in
// EPSG:32633 but placed in the view's coordinates; the map has no system of its own.
class RasterToolSession : public CommandSession {
protected:
    void SetUp() override;
    void TearDown() override;

    // The raster written from `spec` (placed at its left and top) and put on the map.
    TLRasterLayer* addRaster(const std::string& name, RasterSpec spec);
    std::string scratch(const std::string& name) const { return mDir + "/" + name; }

    // A widget of a dialog on screen by its object name; null when none is shown.
    QWidget* shown(const char* objectName) const;
    QString textOf(const char* objectName) const;
    QTableWidget* table(const char* objectName) const;
    // The text of a table cell; "-" for a cell without an item.
    static QString cell(QTableWidget* table, int row, int column);
    void setText(const char* objectName, const QString& text);
    void clickButton(const char* objectName);
    // Runs what waits for the event loop: deferred deletes above all.
    static void settle();

    std::unique_ptr<QWidget> mainWindow;
    TLModalAnswerer answerer;

private:
    std::string mDir;
    std::vector<std::unique_ptr<TMWorkspace>> mWorkspaces;
};

}  // namespace TMObjects
