#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

#include <QWidget>

#include "CommandSession.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLSelection.h"

// Readable failures for the dialog's texts.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QStringList& texts, std::ostream* out) {
    *out << '{' << texts.join(", ").toStdString() << '}';
}

namespace TMObjects {

// The flashes the view was asked for, as the bound of each geometry.
class FlashRecorder : public TLMapViewListener {
public:
    void OnTwinkle(TLGeometry* geometry, int) override { bounds.push_back(geometry->GetBound()); }
    std::vector<TLRect> bounds;
};

// The identify tool picked in the fixture's view, under a main window its dialog takes as
// parent. Points are map points; the view shows one map unit a pixel.
class IdentifySession : public CommandSession {
protected:
    void SetUp() override;
    void TearDown() override;

    // A memory layer with the given fields ("NAME:string", "AREA:double:4", ...) inserted into
    // the map at `position` (-1: last).
    TLFeatureLayer* addTable(const char* name, TLLayer::LayerType type, const QStringList& fields,
                             const char* crs = nullptr, int position = -1);
    int addPoint(TLFeatureLayer* layer, double x, double y, const QStringList& values = {});
    int addSquare(TLFeatureLayer* layer, double x, double y, double side,
                  const QStringList& values = {});
    void setValues(TLFeatureLayer* layer, int id, const QStringList& values);

    void clickAt(double x, double y);
    // A press at the first point, a move with the left button to the second, a release there.
    void dragFromTo(double x0, double y0, double x1, double y1);

    QWidget* shown(const char* objectName) const;
    QString textOf(const char* objectName) const;
    QStringList comboRows() const;
    // The root row, then each feature row indented by two blanks.
    QStringList treeRows() const;
    // "field|alias|value" for each row of the attribute table.
    QStringList tableRows() const;
    QString placeholder() const;
    void chooseLayer(int row);
    // A click on the n-th feature row of the tree.
    void clickFeatureRow(int row);

    void expectNothingChanged(const std::vector<TLFeatureLayer*>& layers, int features) const;

    std::unique_ptr<QWidget> mainWindow;
    FlashRecorder flashes;
};

}  // namespace TMObjects
