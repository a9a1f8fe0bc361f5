#pragma once

#include <QImage>
#include <QPainterPath>
#include <QPointF>
#include <QPolygonF>
#include <vector>

#include "tlbase/TLPoint.h"
#include "tlsymbol/TLDisplayTransform.h"

class QPainter;

namespace TMObjects {

class TLGeometry;
class TLPartList;

// Draws geometries in map coordinates with the pen and brush a painter holds, through the
// image conversion of a display transform. Parts smaller than a pixel are drawn as one point:
// at small scales that is what they look like anyway, and it keeps a layer of many thousands of
// features quick to draw.
class TLGeometryPainter {
public:
    explicit TLGeometryPainter(const TLDisplayTransform& transform);

    QPointF ToDevice(double x, double y) const {
        return QPointF((x - mLeft) * mScale + mDeviceLeft, (mTop - y) * mScale + mDeviceTop);
    }
    QPointF ToDevice(const TLPoint& p) const { return ToDevice(p.x, p.y); }

    // Points as circles of `diameter` pixels (or the sprite, when one is set); lines as paths;
    // polygons filled, holes left open.
    void Draw(QPainter& painter, TLGeometry* geometry, double diameter) const;
    // A point symbol drawn once and stamped at every point: blitting a small image is many
    // times cheaper than filling a smoothed circle, which is what a layer of a hundred thousand
    // points spends its time on. Null draws circles again. The image must outlive its use.
    void SetPointSprite(const QImage* sprite) { mSprite = sprite; }
    // A circle of `diameter` pixels in the painter's present pen and brush, smoothed, on a
    // transparent square.
    static QImage MakeSprite(const QPen& pen, const QBrush& brush, double diameter);
    void DrawPointSymbol(QPainter& painter, const QPointF& at, double diameter) const;
    // Map points as a device polyline (the parts of rubber bands).
    QPolygonF ToDevice(const std::vector<TLPoint>& points) const;
    // A polygon's rings as one path, filled odd-even so that inner rings are holes.
    QPainterPath RingsPath(TLGeometry* geometry) const;

private:
    QPolygonF part(const TLPartList& parts, int index) const;
    void drawPoints(QPainter& painter, const TLPartList& parts, double diameter) const;
    void drawLines(QPainter& painter, const TLPartList& parts) const;
    void drawPolygon(QPainter& painter, const TLPartList& parts) const;
    // True when the part's device bound is below a pixel; the part is then drawn as a point.
    static bool tiny(const QPolygonF& polygon);

    double mLeft;
    double mTop;
    double mScale;
    double mDeviceLeft;
    double mDeviceTop;
    const QImage* mSprite = nullptr;
};

}  // namespace TMObjects
