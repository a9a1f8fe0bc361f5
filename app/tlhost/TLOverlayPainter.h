#pragma once

#include <QBrush>
#include <QPen>

#include "tlbase/TLPoint.h"
#include "tlsymbol/TLPen.h"

class QPainter;

namespace TMObjects {

class TLGeometryPainter;
class TLGeoPolygon;
class TLRubberBand;

// What is drawn over the map on every repaint: the tools' rubber bands in their own pen and
// brush, the snap marker, and the outline of the clip polygon. All of it is cheap, so it is never
// cached: a band follows the pointer without any layer being drawn again.
class TLOverlayPainter {
public:
    explicit TLOverlayPainter(const TLGeometryPainter& geometry);

    void DrawBand(QPainter& painter, const TLRubberBand& band) const;
    void DrawSnapMarker(QPainter& painter, const TLPoint& at) const;
    void DrawClipOutline(QPainter& painter, TLGeoPolygon* clip) const;

    static QPen PenOf(const TLPen& pen);
    static QBrush BrushOf(const TLBrush& brush);
    static constexpr double kMarkerSize = 8.0;

private:
    void drawMarkers(QPainter& painter, const TLRubberBand& band) const;

    const TLGeometryPainter& mGeometry;
};

}  // namespace TMObjects
