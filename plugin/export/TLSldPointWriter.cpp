#include "export/TLSldPointWriter.h"

#include <QFileInfo>
#include <algorithm>

#include "TLToolText.h"
#include "export/TLSldNumber.h"
#include "export/TLSldStyleReader.h"
#include "tlsymbol/TLStyleBitmapPoint.h"
#include "tlsymbol/TLStyleCharacterPoint.h"
#include "tlsymbol/TLStyleSVGPoint.h"
#include "tlsymbol/TLStyleSimplePoint.h"

namespace TMObjects {

namespace {

QString shapeName(int shape) {
    switch (shape) {
        case TLStyleSimplePoint::Circle:
            return "circle";
        case TLStyleSimplePoint::Diamond:
            return "diamond";
        case TLStyleSimplePoint::Triangle:
            return "triangle";
        default:
            return "square";
    }
}

// Only the file's own name goes into the document: the picture is expected beside it. Paths
// written on Windows separate with backslashes, which count as well.
QString fileNameOf(const QString& path) {
    const int slash = std::max(path.lastIndexOf('/'), path.lastIndexOf('\\'));
    return path.mid(slash + 1);
}

QString bitmapFormat(const QString& path) {
    QString extension = QFileInfo(fileNameOf(path)).suffix().toLower();
    if (extension == "jpg") extension = "jpeg";
    return "image/" + extension;
}

}  // namespace

QList<QDomElement> TLSldPointWriter::pointSymbolizers(const TLRefPtr<TLStyle>& style,
                                                      double opacity) const {
    QList<QDomElement> symbolizers;
    for (const TLRefPtr<TLStyle>& layer : TLSldStyleReader::bottomFirst(style)) {
        QDomElement symbolizer = mDocument.createElement("sld:PointSymbolizer");
        symbolizer.appendChild(graphic(*layer, opacity, true));
        symbolizers.append(symbolizer);
    }
    return symbolizers;
}

QDomElement TLSldPointWriter::graphic(const TLStyle& layer, double opacity, bool rotated) const {
    QDomElement element = mDocument.createElement("sld:Graphic");
    if (const auto* simple = dynamic_cast<const TLStyleSimplePoint*>(&layer))
        writeSimple(element, *simple, opacity, rotated);
    else if (const auto* character = dynamic_cast<const TLStyleCharacterPoint*>(&layer))
        writeCharacter(element, *character, opacity);
    else if (const auto* bitmap = dynamic_cast<const TLStyleBitmapPoint*>(&layer))
        writeBitmap(element, *bitmap, opacity);
    else if (const auto* svg = dynamic_cast<const TLStyleSVGPoint*>(&layer))
        writeSvg(element, *svg, opacity);
    return element;
}

void TLSldPointWriter::writeSimple(QDomElement& graphic, const TLStyleSimplePoint& point,
                                   double opacity, bool rotated) const {
    mPaint.writeMark(graphic, shapeName(point.GetShapeType()), TLSldNumber::color(point.GetColor()),
                     TLSldNumber::color(point.GetOutlineColor()), 1,
                     TLSldStyleReader::pixels(point, point.GetOutlineWidth()),
                     TLSldStyleReader::pointSize(point), opacity);
    if (rotated) writeRotation(graphic, point.GetDegree());
}

void TLSldPointWriter::writeCharacter(QDomElement& graphic, const TLStyleCharacterPoint& point,
                                      double opacity) const {
    const QString name =
        "ttf://" + toQString(point.GetFontName()) + "#" + QString::number(point.GetCharIndex());
    mPaint.writeMark(graphic, name, TLSldNumber::color(point.GetColor()), QColor(), 1, 0,
                     TLSldStyleReader::pointSize(point), opacity);
    writeRotation(graphic, point.GetDegree());
}

void TLSldPointWriter::writeBitmap(QDomElement& graphic, const TLStyleBitmapPoint& point,
                                   double opacity) const {
    const QString path = toQString(point.GetFileName());
    writeExternal(graphic, point, path, bitmapFormat(path), opacity);
}

void TLSldPointWriter::writeSvg(QDomElement& graphic, const TLStyleSVGPoint& point,
                                double opacity) const {
    int kind = 0;
    TLString file;
    TLString content;
    point.GetSvgSrc(kind, file, content);
    // The library keeps the picture's parameters behind a "?"; the file ends there.
    const QString path = toQString(file).section('?', 0, 0);
    writeExternal(graphic, point, path, "image/svg+xml", opacity);
}

void TLSldPointWriter::writeExternal(QDomElement& graphic, const TLStylePoint& shape,
                                     const QString& file, const QString& format,
                                     double opacity) const {
    if (opacity < 1.0) {
        // A picture has no opacity of its own in the document; readers take it from a mark.
        QDomElement mark = mDocument.createElement("sld:Mark");
        QDomElement fill = mDocument.createElement("sld:Fill");
        mPaint.appendParameter(fill, "fill-opacity", TLSldNumber::number2(opacity));
        mark.appendChild(fill);
        graphic.appendChild(mark);
    }
    QDomElement external = mDocument.createElement("sld:ExternalGraphic");
    QDomElement resource = mDocument.createElement("sld:OnlineResource");
    resource.setAttribute("xlink:type", "simple");
    resource.setAttribute("xlink:href", fileNameOf(file));
    external.appendChild(resource);
    mPaint.appendText(external, "sld:Format", format);
    graphic.appendChild(external);
    mPaint.appendText(graphic, "sld:Size",
                      TLSldNumber::number0(TLSldStyleReader::pointSize(shape)));
    writeRotation(graphic, shape.GetDegree());
}

void TLSldPointWriter::writeRotation(QDomElement& graphic, double degree) const {
    QDomElement rotation = mDocument.createElement("sld:Rotation");
    mPaint.appendText(rotation, "ogc:Literal", TLSldNumber::fixed4(degree));
    graphic.appendChild(rotation);
}

}  // namespace TMObjects
