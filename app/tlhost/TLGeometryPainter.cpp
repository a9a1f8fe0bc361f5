#include "TLGeometryPainter.h"

#include <QPainter>
#include <cmath>

#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoMultiPoint.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"

namespace TMObjects {

TLGeometryPainter::TLGeometryPainter(const TLDisplayTransform& transform)
    : mLeft(transform.mVisibleBounds.XMinimum()),
      mTop(transform.mVisibleBounds.YMaximum()),
      mScale(transform.mResolution > 0 ? 1.0 / transform.mResolution : 1.0),
      mDeviceLeft(transform.mDeviceFrame.XMinimum()),
      mDeviceTop(transform.mDeviceFrame.YMinimum()) {}

void TLGeometryPainter::Draw(QPainter& painter, TLGeometry* geometry, double diameter) const {
    if (!geometry || geometry->IsEmpty()) return;
    switch (geometry->GetType()) {
        case TLGeometry::GeoPoint: {
            auto* point = static_cast<TLGeoPoint*>(geometry);
            DrawPointSymbol(painter, ToDevice(point->GetX(), point->GetY()), diameter);
            return;
        }
        case TLGeometry::GeoMultipoint:
            return drawPoints(painter, static_cast<TLGeoMultiPoint*>(geometry)->Parts(), diameter);
        case TLGeometry::GeoPolyline:
            return drawLines(painter, static_cast<TLGeoPolyline*>(geometry)->Parts());
        case TLGeometry::GeoPolygon:
            return drawPolygon(painter, static_cast<TLGeoPolygon*>(geometry)->Parts());
        case TLGeometry::GeoEnvelope: {
            const TLRect r = geometry->GetBound();
            painter.drawPolygon(QPolygonF(
                {ToDevice(r.XMinimum(), r.YMinimum()), ToDevice(r.XMaximum(), r.YMinimum()),
                 ToDevice(r.XMaximum(), r.YMaximum()), ToDevice(r.XMinimum(), r.YMaximum())}));
            return;
        }
        default:
            return;
    }
}

QImage TLGeometryPainter::MakeSprite(const QPen& pen, const QBrush& brush, double diameter) {
    const int side = int(std::ceil(diameter + pen.widthF())) + 2;
    QImage sprite(side, side, QImage::Format_ARGB32_Premultiplied);
    sprite.fill(Qt::transparent);
    QPainter painter(&sprite);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(pen);
    painter.setBrush(brush);
    const double centre = side / 2.0;
    painter.drawEllipse(QRectF(centre - diameter / 2, centre - diameter / 2, diameter, diameter));
    return sprite;
}

void TLGeometryPainter::DrawPointSymbol(QPainter& painter, const QPointF& at,
                                        double diameter) const {
    if (mSprite) {
        // Whole pixels: the sprite is already smoothed, and an unscaled blit is the fast one.
        painter.drawImage(QPoint(int(std::lround(at.x() - mSprite->width() / 2.0)),
                                 int(std::lround(at.y() - mSprite->height() / 2.0))),
                          *mSprite);
        return;
    }
    const double r = diameter / 2;
    painter.drawEllipse(QRectF(at.x() - r, at.y() - r, diameter, diameter));
}

QPolygonF TLGeometryPainter::ToDevice(const std::vector<TLPoint>& points) const {
    QPolygonF polygon;
    polygon.reserve(int(points.size()));
    for (const TLPoint& p : points) polygon << ToDevice(p);
    return polygon;
}

QPolygonF TLGeometryPainter::part(const TLPartList& parts, int index) const {
    const int start = parts.PartStart(index);
    const int size = parts.PartSize(index);
    const double* xy = parts.Raw() + 2 * start;
    QPolygonF polygon(size);
    for (int i = 0; i < size; ++i) polygon[i] = ToDevice(xy[2 * i], xy[2 * i + 1]);
    return polygon;
}

bool TLGeometryPainter::tiny(const QPolygonF& polygon) {
    const QRectF bound = polygon.boundingRect();
    return bound.width() < 1.0 && bound.height() < 1.0;
}

void TLGeometryPainter::drawPoints(QPainter& painter, const TLPartList& parts,
                                   double diameter) const {
    const double* xy = parts.Raw();
    for (int i = 0; i < parts.PointCount(); ++i)
        DrawPointSymbol(painter, ToDevice(xy[2 * i], xy[2 * i + 1]), diameter);
}

void TLGeometryPainter::drawLines(QPainter& painter, const TLPartList& parts) const {
    for (int i = 0; i < parts.PartCount(); ++i) {
        if (parts.PartSize(i) == 0) continue;
        const QPolygonF line = part(parts, i);
        if (tiny(line))
            painter.drawPoint(line.first());
        else
            painter.drawPolyline(line);
    }
}

void TLGeometryPainter::drawPolygon(QPainter& painter, const TLPartList& parts) const {
    if (parts.PartCount() == 1) {
        const QPolygonF ring = part(parts, 0);
        if (tiny(ring))
            painter.drawPoint(ring.first());
        else
            painter.drawPolygon(ring);
        return;
    }
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    for (int i = 0; i < parts.PartCount(); ++i)
        if (parts.PartSize(i) > 0) path.addPolygon(part(parts, i));
    painter.drawPath(path);
}

QPainterPath TLGeometryPainter::RingsPath(TLGeometry* geometry) const {
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry);
    if (!polygon) return path;
    const TLPartList& parts = polygon->Parts();
    for (int i = 0; i < parts.PartCount(); ++i) {
        if (parts.PartSize(i) == 0) continue;
        QPolygonF ring = part(parts, i);
        if (!ring.isClosed()) ring << ring.first();
        path.addPolygon(ring);
    }
    return path;
}

}  // namespace TMObjects
