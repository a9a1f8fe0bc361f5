#pragma once

#include <QAction>
#include <QColor>
#include <QImage>
#include <QObject>
#include <QPoint>
#include <QStringList>
#include <QTemporaryDir>
#include <cmath>
#include <functional>
#include <map>
#include <memory>

#include "TLCommandWindow.h"
#include "TLMapCanvas.h"
#include "TLShellDocument.h"
#include "TLShellWindow.h"

namespace TMObjects {

class TLFeatureLayer;

// A shell window on its own data, written fresh for each test into a temporary folder, with
// helpers that act as the user does: clicks on the palette and the canvas, lines typed into the
// command window, and the pixels the canvas shows.
class ShellFixture : public QObject {
    Q_OBJECT

protected:
    // A shown window on a new GeoPackage (see ShellTestData), tool-less.
    void openShell();
    // The same on a new copy of the demo GeoPackage that the programs start on (see TLDemoData).
    void openDemoShell();
    void closeShell();
    void showWindowOnData();

    TLFeatureLayer* layer(const char* name) const;
    // The canvas pixel of a map point.
    QPoint deviceOf(double x, double y) const;
    QPointF exactDeviceOf(double x, double y) const;
    static bool samePlace(const QPointF& a, const QPointF& b) {
        return std::abs(a.x() - b.x()) < 1e-6 && std::abs(a.y() - b.y()) < 1e-6;
    }
    QPointF mapOf(const QPoint& device) const;

    void pickFromPalette(const char* className);
    void clickCanvas(const QPoint& at, Qt::MouseButton button = Qt::LeftButton);
    void moveCanvas(const QPoint& to, Qt::MouseButtons held = Qt::NoButton);
    void typeLine(const QString& text);
    // Ticks or unticks a box of the layer panel as a click on it would.
    void tickLayerBox(const char* layerName, int column, bool checked);

    // The action of a menu of the menu bar, by the texts a user reads ("&Edit", "&Undo").
    QAction* menuAction(const QString& menu, const QString& item) const;

    QStringList history() const;
    QString prompt() const;
    QImage canvasImage() const;
    // Whether a pixel of the colour lies within `radius` pixels of `at`.
    static bool colourNear(const QImage& image, const QPoint& at, int radius, const QColor& colour,
                           int tolerance = 0);
    static bool sameColour(QRgb pixel, const QColor& colour, int tolerance = 0);
    // Whether a pixel within `radius` of `at` is nearer to the colour than to white: a smoothed
    // hairline has no pixel of exactly its colour.
    static bool tintedNear(const QImage& image, const QPoint& at, int radius, const QColor& colour);

    std::unique_ptr<QTemporaryDir> folder;
    QString dataPath;
    std::unique_ptr<TLShellWindow> window;
};

// The test classes of the shell, by name; the test program runs one of them or all.
class ShellTestRegistry {
public:
    using Factory = std::function<std::unique_ptr<QObject>()>;
    static std::map<QString, Factory>& Classes();
    struct Add {
        Add(const char* name, Factory factory);
    };
};

#define SHELL_TEST_CLASS(Class)                                         \
    static const ::TMObjects::ShellTestRegistry::Add registered##Class( \
        #Class, [] { return std::unique_ptr<QObject>(new Class); })

}  // namespace TMObjects
