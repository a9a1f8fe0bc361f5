#include "export/TLSldPaintWriter.h"

#include <QStringList>

#include "export/TLSldNumber.h"

namespace TMObjects {

namespace {

QString joinName(int join) {
    switch (join) {
        case 0:
            return "mitre";
        case 64:
            return "bevel";
        case 128:
            return "round";
        default:
            return QString();
    }
}

QString capName(int cap) {
    switch (cap) {
        case 0:
            return "butt";
        case 16:
            return "square";
        case 32:
            return "round";
        default:
            return QString();
    }
}

QString dashText(const QVector<double>& dashes) {
    QStringList parts;
    for (double dash : dashes) parts << TLSldNumber::g6(dash);
    return parts.join(' ');
}

// The mark names of the pattern brushes: the dense ones are filled, the hatches stroked.
QString brushMarkName(int brushStyle) {
    static const char* const hatches[] = {"horline", "line", "cross", "slash", "backslash", "x"};
    if (brushStyle <= 8) return QString("brush://dense%1").arg(brushStyle - 1);
    return hatches[brushStyle - 9];
}

}  // namespace

// False when nothing at all may be written for this pen.
bool TLSldPaintWriter::dashesOfPen(QDomElement& stroke, int penStyle,
                                   QVector<double>& dashes) const {
    switch (penStyle) {
        case 0:
            return false;
        case 1:
            dashes.clear();
            return true;
        case 2:
            dashes = {4, 2};
            return true;
        case 3:
            dashes = {1, 2};
            return true;
        case 4:
            dashes = {4, 2, 1, 2};
            return true;
        case 5:
            dashes = {4, 2, 1, 2, 1, 2};
            return true;
        case 6:
            if (dashes.isEmpty()) {
                stroke.appendChild(mDocument.createComment(
                    "WARNING: Custom dash pattern required but not provided. Using default "
                    "dash pattern."));
                dashes = {4, 2};
            }
            return true;
        default:
            stroke.appendChild(mDocument.createComment(
                QString("Qt::BrushStyle '%1'' not supported yet").arg(penStyle)));
            return false;
    }
}

void TLSldPaintWriter::writeStroke(QDomElement& stroke, int penStyle, const QColor& color,
                                   double width, int join, int cap, const QVector<double>& dashes,
                                   double dashOffset, double opacity) const {
    QVector<double> dashList = dashes;
    if (!dashesOfPen(stroke, penStyle, dashList)) return;
    if (color.isValid()) {
        if (width > 0) appendParameter(stroke, "stroke", color.name());
        if (opacity < 1) appendParameter(stroke, "stroke-opacity", QString::number(int(opacity)));
    }
    if (width > 0) appendParameter(stroke, "stroke-width", TLSldNumber::number2(width));
    if (join != NoJoin) appendParameter(stroke, "stroke-linejoin", joinName(join));
    if (cap != NoCap) appendParameter(stroke, "stroke-linecap", capName(cap));
    if (dashList.isEmpty()) return;
    appendParameter(stroke, "stroke-dasharray", dashText(dashList));
    if (dashOffset > 0 && !TLSldNumber::nearZero(dashOffset))
        appendParameter(stroke, "stroke-dashoffset", TLSldNumber::number0(dashOffset));
}

void TLSldPaintWriter::writeFill(QDomElement& fill, int brushStyle, const QColor& color,
                                 double opacity) const {
    if (brushStyle == 0) return;
    if (brushStyle == 1) {
        if (color.isValid()) appendParameter(fill, "fill", color.name());
        if (opacity < 1.0) appendParameter(fill, "fill-opacity", TLSldNumber::plain(opacity));
        return;
    }
    if (brushStyle <= 14) {
        writeGraphicFill(fill, brushStyle, color, opacity);
        return;
    }
    fill.appendChild(
        mDocument.createComment(QString("Qt::BrushStyle '%1'' not supported yet").arg(brushStyle)));
}

void TLSldPaintWriter::writeGraphicFill(QDomElement& fill, int brushStyle, const QColor& color,
                                        double opacity) const {
    QDomElement graphicFill = mDocument.createElement("sld:GraphicFill");
    QDomElement graphic = mDocument.createElement("sld:Graphic");
    const QString name = brushMarkName(brushStyle);
    if (name.startsWith("brush://"))
        writeMark(graphic, name, color, QColor(), 0, 0, 0, opacity);
    else
        writeMark(graphic, name, QColor(), color, 1, -1, -1, opacity);
    graphicFill.appendChild(graphic);
    fill.appendChild(graphicFill);
}

void TLSldPaintWriter::writeMark(QDomElement& graphic, const QString& name, const QColor& fillColor,
                                 const QColor& strokeColor, int penStyle, double strokeWidth,
                                 double size, double opacity) const {
    QDomElement mark = mDocument.createElement("sld:Mark");
    appendText(mark, "sld:WellKnownName", name);
    if (fillColor.isValid()) {
        QDomElement fill = mDocument.createElement("sld:Fill");
        writeFill(fill, 1, fillColor, opacity);
        mark.appendChild(fill);
    }
    if (strokeWidth > 0 && strokeColor.isValid()) {
        QDomElement stroke = mDocument.createElement("sld:Stroke");
        writeStroke(stroke, penStyle, strokeColor, strokeWidth, NoJoin, NoCap, {}, 0, 1);
        mark.appendChild(stroke);
    }
    graphic.appendChild(mark);
    if (size > 0 && !TLSldNumber::nearZero(size))
        appendText(graphic, "sld:Size", TLSldNumber::number0(size));
}

void TLSldPaintWriter::appendParameter(QDomElement& parent, const QString& name,
                                       const QString& value) const {
    QDomElement parameter = mDocument.createElement("sld:CssParameter");
    parameter.setAttribute("name", name);
    parameter.appendChild(mDocument.createTextNode(value));
    parent.appendChild(parameter);
}

void TLSldPaintWriter::appendVendorOption(QDomElement& parent, const QString& name,
                                          const QString& value) const {
    QDomElement option = mDocument.createElement("sld:VendorOption");
    option.setAttribute("name", name);
    option.appendChild(mDocument.createTextNode(value));
    parent.appendChild(option);
}

QDomElement TLSldPaintWriter::appendText(QDomElement& parent, const QString& name,
                                         const QString& text) const {
    QDomElement element = mDocument.createElement(name);
    element.appendChild(mDocument.createTextNode(text));
    parent.appendChild(element);
    return element;
}

}  // namespace TMObjects
