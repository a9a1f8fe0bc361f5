#include "export/TLSldPolygonWriter.h"

#include <QStringList>

#include "export/TLSldNumber.h"
#include "export/TLSldStyleReader.h"
#include "tlsymbol/TLStyleLine.h"
#include "tlsymbol/TLStyleLineFill.h"
#include "tlsymbol/TLStylePointFill.h"
#include "tlsymbol/TLStyleSimplePoint.h"

namespace TMObjects {

namespace {

QString hatchName(double degree) {
    if (degree == 90) return "shape://vertline";
    if (degree == 0) return "shape://horline";
    if (degree == 135) return "shape://slash";
    if (degree == 45) return "shape://backslash";
    return "shape://slash";
}

// Grid steps of a staggered fill are kept even, so that the offset row lies half way.
int evenUp(int value) {
    return value % 2 != 0 ? value + 1 : value;
}

bool isWhite(const TLColor& color) {
    return color.getR() == 255 && color.getG() == 255 && color.getB() == 255;
}

}  // namespace

QList<QDomElement> TLSldPolygonWriter::polygonSymbolizers(const TLRefPtr<TLStyle>& style,
                                                          double opacity) const {
    QList<QDomElement> symbolizers;
    for (const TLRefPtr<TLStyle>& layer : TLSldStyleReader::bottomFirst(style)) {
        const auto* fill = dynamic_cast<const TLStyleFill*>(layer.get());
        if (!fill) continue;
        switch (fill->GetTypeID()) {
            case TLStyle::SimpleFillType:
                symbolizers.append(simpleFill(*fill, opacity));
                break;
            case TLStyle::PointFillType:
                symbolizers.append(simpleFill(*fill, opacity));
                appendPointFill(symbolizers, static_cast<const TLStylePointFill&>(*fill), opacity);
                break;
            case TLStyle::LineFillType:
                symbolizers.append(simpleFill(*fill, opacity));
                appendLineFill(symbolizers, static_cast<const TLStyleLineFill&>(*fill));
                break;
            default:
                break;
        }
    }
    return symbolizers;
}

QDomElement TLSldPolygonWriter::simpleFill(const TLStyleFill& fill, double opacity) const {
    QDomElement symbolizer = mDocument.createElement("sld:PolygonSymbolizer");
    // Gradient backgrounds have no counterpart in the document and are left out.
    if (fill.GetFillBackground()) {
        QDomElement element = mDocument.createElement("sld:Fill");
        mPaint.writeFill(element, 1, TLSldNumber::color(fill.GetBackgroundColor()), opacity);
        symbolizer.appendChild(element);
    }
    const TLRefPtr<TLStyle> outline = fill.GetOutlineStyle();
    if (auto* line = dynamic_cast<TLStyleLine*>(outline.get())) {
        const QDomElement stroke = mLines.stroke(*line);
        if (!stroke.isNull()) symbolizer.appendChild(stroke);
    }
    return symbolizer;
}

void TLSldPolygonWriter::appendLineFill(QList<QDomElement>& symbolizers,
                                        const TLStyleLineFill& fill) const {
    QDomElement graphicFill = mDocument.createElement("sld:GraphicFill");
    QDomElement graphic = mDocument.createElement("sld:Graphic");
    const TLRefPtr<TLStyle> decoration = fill.GetDecorateLineStyle();
    const auto* line = dynamic_cast<const TLStyleLine*>(decoration.get());
    const QColor color = line ? TLSldNumber::color(line->GetColor()) : QColor();
    const double width = line ? TLSldStyleReader::pixels(*line, line->GetWidth()) : 0.0;
    mPaint.writeMark(graphic, hatchName(fill.GetDegree()), QColor(), color, 1, width,
                     TLSldStyleReader::pixels(fill, fill.GetSeperate()), 1);
    graphicFill.appendChild(graphic);
    symbolizers.append(graphicFillSymbolizer(graphicFill));
}

void TLSldPolygonWriter::appendPointFill(QList<QDomElement>& symbolizers,
                                         const TLStylePointFill& fill, double opacity) const {
    const double x = TLSldStyleReader::pixels(fill, fill.GetSeperateX());
    const double y = TLSldStyleReader::pixels(fill, fill.GetSeperateY());
    switch (fill.GetFillType()) {
        case TLStylePointFill::GridFill:
            appendGraphicFills(symbolizers, fill, QString("%1 %2").arg(int(x)).arg(int(y)),
                               opacity);
            break;
        case TLStylePointFill::StaggeredFill: {
            const int x2 = evenUp(int(2 * x));
            const int y2 = evenUp(int(2 * y));
            appendGraphicFills(symbolizers, fill, QString("0 0 %1 %2").arg(y2).arg(x2), opacity);
            appendGraphicFills(symbolizers, fill, QString("%1#%2").arg(x2).arg(y2), opacity);
            break;
        }
        case TLStylePointFill::RandomFill:
            symbolizers.append(mPoints.pointSymbolizers(fill.GetDecoratePointStyle(), opacity));
            break;
        default:
            break;
    }
}

void TLSldPolygonWriter::appendGraphicFills(QList<QDomElement>& symbolizers,
                                            const TLStylePointFill& fill, const QString& margin,
                                            double opacity) const {
    for (const TLRefPtr<TLStyle>& layer :
         TLSldStyleReader::bottomFirst(fill.GetDecoratePointStyle())) {
        QDomElement graphicFill = mDocument.createElement("sld:GraphicFill");
        // A white point is the paper showing through: it is left to the background.
        if (!isWhite(layer->GetColor())) {
            const bool rotated = layer->GetTypeID() != TLStyle::SimplePointType;
            graphicFill.appendChild(mPoints.graphic(*layer, opacity, rotated));
        }
        QDomElement symbolizer = graphicFillSymbolizer(graphicFill);
        mPaint.appendVendorOption(symbolizer, "graphic-margin",
                                  marginValue(margin, TLSldStyleReader::pointSize(*layer)));
        symbolizers.append(symbolizer);
    }
}

QDomElement TLSldPolygonWriter::graphicFillSymbolizer(QDomElement& graphicFill) const {
    QDomElement symbolizer = mDocument.createElement("sld:PolygonSymbolizer");
    QDomElement fill = mDocument.createElement("sld:Fill");
    fill.appendChild(graphicFill);
    symbolizer.appendChild(fill);
    return symbolizer;
}

// A margin "a#b" is the offset grid of a staggered fill: the margins around a graphic of size
// s that put its copies a apart across and b apart down, shifted by half a step.
QString TLSldPolygonWriter::marginValue(const QString& margin, double size) {
    if (!margin.contains('#')) return margin;
    const int a = margin.section('#', 0, 0).toInt();
    const int b = margin.section('#', 1, 1).toInt();
    const int s = evenUp(int(size));
    return QString("%1 %2 %3 %4")
        .arg((b + s) / 2)
        .arg((a + s) / 2)
        .arg((b - s) / 2)
        .arg((a - s) / 2);
}

}  // namespace TMObjects
