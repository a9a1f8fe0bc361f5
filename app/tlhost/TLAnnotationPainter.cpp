#include "TLAnnotationPainter.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

#include "TLGeometryPainter.h"
#include "TLLayerPainter.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLAnnoMgrTool.h"
#include "tlmap/TLAnnotationLayer.h"
#include "tlsymbol/TLDisplayTransform.h"

namespace TMObjects {

namespace {

constexpr double kPi = 3.141592653589793;

QColor colourOf(unsigned stored) {
    return QColor::fromRgba(stored);
}

// The font the text was measured with (see TLFont), at its stored pixel height.
QFont fontOf(const TLAnnotation& record) {
    QFont font(QString::fromStdWString(record.get_FontName().toStdWString()));
    font.setPixelSize(std::max(1, int(record.get_FontHeight(TLTextElement::Pixels))));
    font.setWeight(record.get_FontWeight() >= 700 ? QFont::Bold : QFont::Normal);
    font.setItalic(record.get_FontItalic() != 0);
    font.setUnderline(record.get_FontUnderline());
    font.setStrikeOut(record.get_FontStrikeThrough());
    font.setLetterSpacing(QFont::AbsoluteSpacing, record.get_WordSpace());
    return font;
}

void drawBox(QPainter& painter, const TLAnnotation& record, const QSizeF& size) {
    const int style = record.get_BackgroundStyle();
    if (style <= BackgroundNone || style > BackgroundRoundedRectangleFrame) return;
    const bool filled = style == BackgroundRectangle || style == BackgroundRoundedRectangle;
    const bool rounded =
        style == BackgroundRoundedRectangle || style == BackgroundRoundedRectangleFrame;
    painter.setPen(record.get_BoundWidth() > 0
                       ? QPen(colourOf(record.get_BoundColor()), record.get_BoundWidth())
                       : QPen(Qt::NoPen));
    painter.setBrush(filled ? QBrush(colourOf(record.get_BackColor())) : QBrush(Qt::NoBrush));
    const QRectF rect(QPointF(0, 0), size);
    const double radius = std::min(size.width(), size.height()) / 4;
    if (rounded)
        painter.drawRoundedRect(rect, radius, radius);
    else
        painter.drawRect(rect);
}

}  // namespace

TLAnnotationPainter::TLAnnotationPainter(const TLLayerPainter& features,
                                         const TLGeometryPainter& geometry,
                                         const TLDisplayTransform& transform)
    : mFeatures(features), mGeometry(geometry), mTransform(transform) {}

int TLAnnotationPainter::Draw(QPainter& painter, TLAnnotationLayer* layer,
                              const TLRect& area) const {
    const bool project = mFeatures.needsProjection(layer);
    // At the reference scale a text has its stored size; at any other the map's zoom applies.
    const double scale = layer->GetReferenceScale() / mTransform.GetScaleRatio();
    int drawn = 0;
    for (int id : mFeatures.candidates(layer, area)) {
        TLRefPtr<TLGeometry> geometry = mFeatures.mapGeometry(layer, id, project);
        TLAnnotation record;
        if (!geometry || !layer->ReadTextElement(id, record)) continue;
        const TLSize size = TLAnnoMgrTool::CalcAnnotationSize(record, nullptr);
        const QSizeF measured(size.GetWidth(), size.GetHeight());
        Frame frame;
        if (measured.isEmpty() || !frameOf(geometry.get(), record, measured, scale, frame))
            continue;
        drawText(painter, record, measured, frame);
        ++drawn;
    }
    return drawn;
}

bool TLAnnotationPainter::frameOf(TLGeometry* geometry, const TLAnnotation& record,
                                  const QSizeF& measured, double scale, Frame& frame) const {
    double* xy = nullptr;
    int count = 0;
    geometry->GetRawPoints(&xy, count);
    if (!xy || count < 1) return false;
    const QPointF first = mGeometry.ToDevice(xy[0], xy[1]);
    if (geometry->GetType() == TLGeometry::GeoPolygon && count >= 4) {
        // The stored box: (left, top), (right, top), (right, bottom), (left, bottom).
        const QPointF across = mGeometry.ToDevice(xy[2], xy[3]) - first;
        const QPointF down = mGeometry.ToDevice(xy[6], xy[7]) - first;
        frame.origin = first;
        frame.size = QSizeF(std::hypot(across.x(), across.y()), std::hypot(down.x(), down.y()));
        frame.degrees = std::atan2(across.y(), across.x()) * 180 / kPi;
        return frame.size.width() > 0 && frame.size.height() > 0;
    }
    frame.size = measured * scale;
    frame.degrees = -record.get_FontAngle();
    if (geometry->GetType() == TLGeometry::GeoPolyline) {
        frame.origin = first;
        return true;
    }
    // A point: the anchor names the side of the point on which the text lies.
    const double w = frame.size.width(), h = frame.size.height();
    static const double sides[9][2] = {{-1, -1},  {0, -1},   {0, 0},     {-1, 0},     {-0.5, -1},
                                       {0, -0.5}, {-0.5, 0}, {-1, -0.5}, {-0.5, -0.5}};
    const int anchor = std::clamp(record.get_AnchorPoint(), 0, 8);
    frame.origin = first;
    const double turn = frame.degrees * kPi / 180;
    const double dx = sides[anchor][0] * w, dy = sides[anchor][1] * h;
    frame.origin += QPointF(dx * std::cos(turn) - dy * std::sin(turn),
                            dx * std::sin(turn) + dy * std::cos(turn));
    return true;
}

void TLAnnotationPainter::drawText(QPainter& painter, const TLAnnotation& record,
                                   const QSizeF& measured, const Frame& frame) const {
    painter.save();
    painter.translate(frame.origin);
    painter.rotate(frame.degrees);
    drawBox(painter, record, frame.size);
    // The text is laid out at its measured size and stretched to the frame.
    painter.scale(frame.size.width() / measured.width(), frame.size.height() / measured.height());
    const QFont font = fontOf(record);
    const QFontMetricsF metrics(font);
    const std::vector<TLString> rows = TLAnnoMgrTool::TextRows(record);
    const bool vertical = record.get_WordOrientation() == OrientationVertical;
    QPainterPath path;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const QString row = QString::fromStdWString(rows[i].toStdWString());
        if (vertical) {
            // Each row is a column, its letters stacked.
            const double x = i * (metrics.maxWidth() + record.get_LineSpace());
            for (int k = 0; k < row.size(); ++k)
                path.addText(x, metrics.ascent() + k * metrics.height(), font, row.mid(k, 1));
            continue;
        }
        const double width = metrics.horizontalAdvance(row);
        const int align = record.get_TextHorizAlign();
        const double x = record.get_TextType() == TextFraction || align == 2
                             ? (measured.width() - width) / 2
                         : align == 3 ? measured.width() - width
                                      : 0.0;
        const double y = metrics.ascent() + i * (metrics.height() + record.get_LineSpace());
        path.addText(x, y, font, row);
    }
    painter.setRenderHint(QPainter::Antialiasing, true);
    if (record.get_FontPathWidth() > 0)
        painter.strokePath(
            path, QPen(colourOf(record.get_FontPathColor()), 2 * record.get_FontPathWidth(),
                       Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(path, colourOf(record.get_FontColor()));
    if (record.get_TextType() == TextFraction && rows.size() > 1) {
        const double y = metrics.height() + record.get_LineSpace() / 2;
        painter.setPen(QPen(colourOf(record.get_FontColor()), 1));
        painter.drawLine(QPointF(0, y), QPointF(measured.width(), y));
    }
    painter.restore();
}

}  // namespace TMObjects
