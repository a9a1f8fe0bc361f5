#pragma once

#include <QPointF>
#include <QSizeF>

#include "tlbase/TLRect.h"

class QPainter;

namespace TMObjects {

class TLAnnotation;
class TLAnnotationLayer;
class TLDisplayTransform;
class TLGeometry;
class TLGeometryPainter;
class TLLayerPainter;

// Draws the features of an annotation layer as their text: font, size at the layer's reference
// scale (so the text grows and shrinks with the map), rotation, colour, outline and background
// box, read afresh from each feature's fields. A box geometry (polygon) places and sizes the text
// exactly as stored; a line starts it at its first point, and a point places it by its anchor.
class TLAnnotationPainter {
public:
    TLAnnotationPainter(const TLLayerPainter& features, const TLGeometryPainter& geometry,
                        const TLDisplayTransform& transform);

    // The annotations that meet `area` (map coordinates); returns how many were drawn.
    int Draw(QPainter& painter, TLAnnotationLayer* layer, const TLRect& area) const;

private:
    // The text's frame on the device: its top-left corner, its size and its turn in degrees
    // (clockwise on the screen).
    struct Frame {
        QPointF origin;
        QSizeF size;
        double degrees = 0;
    };
    bool frameOf(TLGeometry* geometry, const TLAnnotation& record, const QSizeF& measured,
                 double scale, Frame& frame) const;
    void drawText(QPainter& painter, const TLAnnotation& record, const QSizeF& measured,
                  const Frame& frame) const;

    const TLLayerPainter& mFeatures;
    const TLGeometryPainter& mGeometry;
    const TLDisplayTransform& mTransform;
};

}  // namespace TMObjects
