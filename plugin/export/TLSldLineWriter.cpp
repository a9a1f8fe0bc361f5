#include "export/TLSldLineWriter.h"

#include <QStringList>
#include <algorithm>

#include "export/TLSldNumber.h"
#include "export/TLSldStyleReader.h"
#include "tlsymbol/TLStyleLineDecorateLine.h"
#include "tlsymbol/TLStylePatternLine.h"
#include "tlsymbol/TLStylePointDecorateLine.h"

namespace TMObjects {

namespace {

// Shorter dashes than this are lost in the readers' rendering, so they are lengthened.
constexpr double kShortestStep = 5.0;

bool isDecorated(int typeId) {
    return typeId == TLStyle::PointDecorateLineType || typeId == TLStyle::LineDecorateLineType;
}

bool isPlain(int typeId) {
    return typeId == TLStyle::SimpleLineType || typeId == TLStyle::BrinkLineType ||
           typeId == TLStyle::PatternLineType;
}

// The decoration and steps of either decorated line kind.
TLRefPtr<TLStyle> decorationOf(const TLStyleLine& line, int& placement,
                               std::vector<double>& steps) {
    if (const auto* points = dynamic_cast<const TLStylePointDecorateLine*>(&line)) {
        placement = points->GetPlacementType();
        steps = points->GetSteps();
        return points->GetDecorateStyle();
    }
    if (const auto* lines = dynamic_cast<const TLStyleLineDecorateLine*>(&line)) {
        placement = lines->GetPlacementType();
        steps = lines->GetSteps();
        return lines->GetDecorateStyle();
    }
    return TLRefPtr<TLStyle>();
}

}  // namespace

int TLSldLineWriter::qtJoin(int join) {
    switch (join) {
        case TLStyleLine::JoinBevel:
            return 64;
        case TLStyleLine::JoinMitre:
            return 0;
        case TLStyleLine::JoinRound:
            return 128;
        default:
            return TLSldPaintWriter::NoJoin;
    }
}

int TLSldLineWriter::qtCap(int cap) {
    switch (cap) {
        case TLStyleLine::CapRound:
            return 32;
        case TLStyleLine::CapSquare:
            return 16;
        case TLStyleLine::CapButt:
            return 0;
        default:
            return TLSldPaintWriter::NoCap;
    }
}

QList<QDomElement> TLSldLineWriter::lineSymbolizers(const TLRefPtr<TLStyle>& style,
                                                    double opacity) const {
    QList<QDomElement> symbolizers;
    for (const TLRefPtr<TLStyle>& layer : TLSldStyleReader::bottomFirst(style)) {
        auto* line = dynamic_cast<TLStyleLine*>(layer.get());
        if (!line) continue;
        if (isPlain(line->GetTypeID()))
            appendPlainLine(symbolizers, *line);
        else if (isDecorated(line->GetTypeID()))
            appendDecoratedLine(symbolizers, *line, opacity);
    }
    return symbolizers;
}

void TLSldLineWriter::appendPlainLine(QList<QDomElement>& symbolizers, TLStyleLine& line) const {
    QDomElement symbolizer = mDocument.createElement("sld:LineSymbolizer");
    symbolizer.appendChild(stroke(line));
    const double offset = TLSldStyleReader::pixels(line, line.GetOffset());
    if (offset > 0)
        mPaint.appendText(symbolizer, "sld:PerpendicularOffset", TLSldNumber::number2(offset));
    symbolizers.append(symbolizer);
}

QDomElement TLSldLineWriter::stroke(TLStyleLine& line) const {
    if (!isPlain(line.GetTypeID())) return QDomElement();
    QDomElement element = mDocument.createElement("sld:Stroke");
    const double shift = TLSldStyleReader::pixels(line, line.GetShift());
    if (shift > 0)
        mPaint.appendParameter(element, "stroke-dashoffset", TLSldNumber::number2(shift));
    // A simple line's own dash style is not looked at: it is written solid.
    int penStyle = 1;
    QVector<double> dashes;
    if (auto* pattern = dynamic_cast<TLStylePatternLine*>(&line)) {
        penStyle = 6;
        // The lengthened steps stay in the style, as its drawing uses them too.
        for (double& step : pattern->GetSteps()) {
            step = std::max(step, kShortestStep);
            dashes.append(TLSldStyleReader::pixels(line, step));
        }
    }
    mPaint.writeStroke(element, penStyle, TLSldNumber::color(line.GetColor()),
                       TLSldStyleReader::pixels(line, line.GetWidth()), qtJoin(line.GetJoin()),
                       qtCap(line.GetCap()), dashes, 0, 1);
    return element;
}

void TLSldLineWriter::appendDecoratedLine(QList<QDomElement>& symbolizers, const TLStyleLine& line,
                                          double opacity) const {
    int placement = 0;
    std::vector<double> steps;
    const TLRefPtr<TLStyle> decoration = decorationOf(line, placement, steps);
    for (const TLRefPtr<TLStyle>& layer : TLSldStyleReader::topFirst(decoration))
        symbolizers.append(decoratedSymbolizer(line, *layer, opacity));
}

QDomElement TLSldLineWriter::decoratedSymbolizer(const TLStyleLine& line, const TLStyle& decoration,
                                                 double opacity) const {
    int placement = 0;
    std::vector<double> steps;
    decorationOf(line, placement, steps);
    QDomElement symbolizer = mDocument.createElement("sld:LineSymbolizer");
    QDomElement element = mDocument.createElement("sld:Stroke");
    QDomElement graphicStroke = mDocument.createElement("sld:GraphicStroke");
    graphicStroke.appendChild(mPoints.graphic(decoration, opacity, true));
    element.appendChild(graphicStroke);
    if (placement == 0 && !steps.empty()) {
        QStringList dashes;
        for (double step : steps)
            dashes << TLSldNumber::g6(
                TLSldStyleReader::pixels(line, std::max(step, kShortestStep)));
        mPaint.appendParameter(element, "stroke-dasharray", dashes.join(' '));
    }
    const double shift = TLSldStyleReader::pixels(line, line.GetShift());
    if (shift > 0)
        mPaint.appendParameter(element, "stroke-dashoffset", TLSldNumber::number2(shift));
    symbolizer.appendChild(element);
    return symbolizer;
}

}  // namespace TMObjects
