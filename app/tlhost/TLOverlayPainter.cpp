#include "TLOverlayPainter.h"

#include <QPainter>

#include "TLGeometryPainter.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLRubberBand.h"

namespace TMObjects {

namespace {

QColor colourOf(const TLColor& c) {
    return QColor(c.getR(), c.getG(), c.getB(), c.getA());
}

}  // namespace

TLOverlayPainter::TLOverlayPainter(const TLGeometryPainter& geometry) : mGeometry(geometry) {}

QPen TLOverlayPainter::PenOf(const TLPen& pen) {
    static const Qt::PenStyle styles[] = {Qt::NoPen, Qt::SolidLine, Qt::DashLine, Qt::DotLine,
                                          Qt::DashDotLine};
    const int index = int(pen.style);
    QPen out(colourOf(pen.color), pen.width);
    out.setStyle(index >= 0 && index <= 4 ? styles[index] : Qt::SolidLine);
    out.setCapStyle(Qt::FlatCap);
    out.setJoinStyle(Qt::MiterJoin);
    return out;
}

QBrush TLOverlayPainter::BrushOf(const TLBrush& brush) {
    if (brush.style == TLBrush::NoBrush) return Qt::NoBrush;
    return QBrush(colourOf(brush.color));
}

void TLOverlayPainter::DrawBand(QPainter& painter, const TLRubberBand& band) const {
    painter.save();
    const QPen pen = PenOf(band.Pen());
    // A hairline band is drawn without smoothing, so that it shows in exactly its colour and
    // stays crisp over a busy map; wider pens look better smoothed.
    painter.setRenderHint(QPainter::Antialiasing, pen.widthF() > 1.0);
    painter.setPen(pen);
    switch (band.GetType()) {
        case TLRubberBand::LineBand:
            painter.setBrush(Qt::NoBrush);
            for (const auto& part : band.Parts())
                if (part.size() >= 2) painter.drawPolyline(mGeometry.ToDevice(part));
            break;
        case TLRubberBand::PolygonBand:
            painter.setBrush(BrushOf(band.Brush()));
            for (const auto& part : band.Parts()) {
                // A ring being started has no area yet: its first edge is shown as a line.
                if (part.size() >= 3)
                    painter.drawPolygon(mGeometry.ToDevice(part));
                else if (part.size() == 2)
                    painter.drawPolyline(mGeometry.ToDevice(part));
            }
            break;
        default:
            drawMarkers(painter, band);
    }
    painter.restore();
}

void TLOverlayPainter::drawMarkers(QPainter& painter, const TLRubberBand& band) const {
    painter.setBrush(BrushOf(band.Brush()));
    const double half = kMarkerSize / 2;
    for (const auto& part : band.Parts())
        for (const TLPoint& p : part) {
            const QPointF at = mGeometry.ToDevice(p);
            painter.drawRect(QRectF(at.x() - half, at.y() - half, kMarkerSize, kMarkerSize));
        }
}

void TLOverlayPainter::DrawSnapMarker(QPainter& painter, const TLPoint& at) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    const QPointF c = mGeometry.ToDevice(at);
    const double half = kMarkerSize / 2 + 1;
    painter.setPen(QPen(QColor(255, 0, 255), 2.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(c.x() - half, c.y() - half, 2 * half, 2 * half));
    painter.drawLine(QPointF(c.x() - half - 3, c.y()), QPointF(c.x() + half + 3, c.y()));
    painter.drawLine(QPointF(c.x(), c.y() - half - 3), QPointF(c.x(), c.y() + half + 3));
    painter.restore();
}

void TLOverlayPainter::DrawClipOutline(QPainter& painter, TLGeoPolygon* clip) const {
    if (!clip) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(QColor(60, 60, 60), 1.5, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(mGeometry.RingsPath(clip));
    painter.restore();
}

}  // namespace TMObjects
