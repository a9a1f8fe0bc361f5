#pragma once

#include <QBrush>
#include <QColor>
#include <QPen>

namespace TMObjects {

class TLLayer;

// The simple style every feature layer is drawn with: one colour of its own, used whole for
// points and lines and as a light fill for polygons. The colour follows from the layer's id, so
// that a layer keeps its colour across redraws and sessions that open the same data in the same
// order, and neighbouring layers differ.
class TLLayerStyle {
public:
    static TLLayerStyle ForLayer(const TLLayer* layer);
    explicit TLLayerStyle(const QColor& colour);

    QColor Colour() const { return mColour; }
    // Symbol sizes in pixels. The margin is how far a symbol reaches beyond its geometry, which a
    // partial redraw must cover as well.
    static constexpr double kPointDiameter = 7.0;
    // One pixel: the toolkit draws such lines on its fast path, smoothed or not, where wider ones
    // go through the general stroker at several times the cost.
    static constexpr double kLineWidth = 1.0;
    static constexpr int kMargin = 6;

    QPen PointPen() const;
    QBrush PointBrush() const;
    QPen LinePen() const;
    QPen OutlinePen() const;
    QBrush FillBrush() const;

private:
    QColor mColour;
};

}  // namespace TMObjects
