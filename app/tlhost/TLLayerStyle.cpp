#include "TLLayerStyle.h"

#include "tlmap/TLLayer.h"

namespace TMObjects {

namespace {

// Distinct, saturated colours that read well on white and against the red of rubber bands and
// the cyan of the selection outline.
const QRgb kPalette[] = {0x1f77b4, 0x2ca02c, 0x9467bd, 0x8c564b, 0xe377c2,
                         0xbcbd22, 0x17a398, 0xff7f0e, 0x3a5fcd, 0x6b8e23};

}  // namespace

TLLayerStyle TLLayerStyle::ForLayer(const TLLayer* layer) {
    const int count = int(sizeof(kPalette) / sizeof(kPalette[0]));
    const int id = layer ? layer->GetLayerId() : 0;
    return TLLayerStyle(QColor(kPalette[((id % count) + count) % count]));
}

TLLayerStyle::TLLayerStyle(const QColor& colour) : mColour(colour) {}

QPen TLLayerStyle::PointPen() const {
    return QPen(mColour.darker(160), 1.0);
}

QBrush TLLayerStyle::PointBrush() const {
    return QBrush(mColour);
}

QPen TLLayerStyle::LinePen() const {
    QPen pen(mColour, kLineWidth);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    return pen;
}

QPen TLLayerStyle::OutlinePen() const {
    return QPen(mColour.darker(130), 1.0);
}

QBrush TLLayerStyle::FillBrush() const {
    QColor fill = mColour;
    fill.setAlpha(80);
    return QBrush(fill);
}

}  // namespace TMObjects
