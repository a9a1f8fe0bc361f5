#include "export/TLSldLabelWriter.h"

#include <QObject>
#include <algorithm>

#include "TLToolText.h"
#include "export/TLSldNumber.h"
#include "export/TLSldStyleReader.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLabelProperty.h"
#include "tlsymbol/TLStyleFill.h"
#include "tlsymbol/TLStyleLine.h"

namespace TMObjects {

namespace {

// Where on the label box its point lies, by the text element's anchor.
void anchorOf(int anchor, double& x, double& y) {
    static const double points[8][2] = {{0, 1},   {1, 1},   {1, 0},   {0, 0},
                                        {0.5, 1}, {1, 0.5}, {0.5, 0}, {0, 0.5}};
    x = 0.5;
    y = 0.5;
    if (anchor < 0 || anchor > 7) return;
    x = points[anchor][0];
    y = points[anchor][1];
}

QString backgroundMarkName(int mode) {
    switch (mode) {
        case TLLabelProperty::CircleBackground:
            return "circle";
        case TLLabelProperty::DiamondBackground:
            return "diamond";
        case TLLabelProperty::TriangleBackground:
            return "triangle";
        default:
            return "square";
    }
}

bool isFillWithBackground(int typeId) {
    return typeId >= TLStyle::SimpleFillType && typeId <= TLStyle::ScriptFillType;
}

}  // namespace

QString TLSldLabelWriter::weightName(int weight) {
    if (weight < 101) return QObject::tr("Thin");
    if (weight < 201) return QObject::tr("ExtraLight");
    if (weight < 301) return QObject::tr("Light");
    if (weight < 401) return QObject::tr("Normal");
    if (weight < 501) return QObject::tr("Medium");
    if (weight < 601) return QObject::tr("DemiBold");
    if (weight < 701) return QObject::tr("Bold");
    if (weight <= 800) return QObject::tr("ExtraBold");
    // The black weight has always carried its number and a full-width colon.
    if (weight <= 900)
        return QObject::tr(
            "900\xEF\xBC\x9A"
            "Black");
    return QString();
}

QString TLSldLabelWriter::fontColor(unsigned color) {
    const int value = int(color);
    const QString text = "#" + (value < 1 ? QString() : QString::number(value, 16).toUpper());
    return text.size() < 7 ? QString("#000000") : text;
}

void TLSldLabelWriter::appendLabel(QDomElement& rule, const TLFeatureLayer& layer) const {
    const TLRefPtr<TLLabelProperty> property = layer.default_property();
    if (!layer.display_label() || !property) return;
    const TLTextElement& text = property->get_TextElement();
    QDomElement symbolizer = mDocument.createElement("sld:TextSymbolizer");
    appendHalo(symbolizer, text);
    QDomElement label = mDocument.createElement("sld:Label");
    mPaint.appendText(label, "ogc:PropertyName", toQString(property->GetExpression(0)));
    symbolizer.appendChild(label);
    appendFont(symbolizer, text);
    appendPlacement(symbolizer, text);
    QDomElement fill = mDocument.createElement("sld:Fill");
    mPaint.appendParameter(fill, "fill", fontColor(text.get_FontColor()));
    symbolizer.appendChild(fill);
    if (property->get_BackgroundMode() != TLLabelProperty::NoBackground)
        appendBackground(symbolizer, *property);
    appendVendorOptions(symbolizer, *property);
    rule.appendChild(symbolizer);
}

void TLSldLabelWriter::appendHalo(QDomElement& symbolizer, const TLTextElement& text) const {
    if (!(text.get_FontPathWidth() > 0)) return;
    QDomElement halo = mDocument.createElement("sld:Halo");
    mPaint.appendText(halo, "sld:Radius", QString("%1").arg(text.get_FontPathWidth()));
    QDomElement fill = mDocument.createElement("sld:Fill");
    mPaint.appendParameter(
        fill, "fill",
        "#" + QString("%1").arg(text.get_FontPathColor() & 0xFFFFFFu, 6, 16, QChar('0')));
    halo.appendChild(fill);
    symbolizer.appendChild(halo);
}

void TLSldLabelWriter::appendFont(QDomElement& symbolizer, const TLTextElement& text) const {
    QDomElement font = mDocument.createElement("sld:Font");
    // Font names travel through the system's own 8-bit encoding, as the font list gives them.
    mPaint.appendParameter(font, "font-family",
                           QString::fromLocal8Bit(toQString(text.get_FontName()).toLocal8Bit()));
    mPaint.appendParameter(font, "font-size",
                           TLSldNumber::number0(text.get_FontHeight(TLTextElement::Pixels)));
    mPaint.appendParameter(font, "font-style", text.get_FontItalic() != 0 ? "italic" : "normal");
    mPaint.appendParameter(font, "font-weight", weightName(text.get_FontWeight()));
    symbolizer.appendChild(font);
}

void TLSldLabelWriter::appendPlacement(QDomElement& symbolizer, const TLTextElement& text) const {
    QDomElement placement = mDocument.createElement("sld:LabelPlacement");
    QDomElement point = mDocument.createElement("sld:PointPlacement");
    double x = 0.5;
    double y = 0.5;
    anchorOf(text.get_AnchorPoint(), x, y);
    QDomElement anchor = mDocument.createElement("sld:AnchorPoint");
    mPaint.appendText(anchor, "sld:AnchorPointX", QString::number(x));
    mPaint.appendText(anchor, "sld:AnchorPointY", QString::number(y));
    point.appendChild(anchor);
    QDomElement displacement = mDocument.createElement("sld:Displacement");
    mPaint.appendText(displacement, "sld:DisplacementX", TLSldNumber::number0(text.get_xOff()));
    mPaint.appendText(displacement, "sld:DisplacementY", TLSldNumber::number0(text.get_yOff()));
    point.appendChild(displacement);
    if (text.get_FontAngle() != 0)
        mPaint.appendText(point, "sld:Rotation", TLSldNumber::number0(text.get_FontAngle()));
    placement.appendChild(point);
    symbolizer.appendChild(placement);
}

void TLSldLabelWriter::appendBackground(QDomElement& symbolizer,
                                        const TLLabelProperty& property) const {
    QDomElement graphic = mDocument.createElement("sld:Graphic");
    const TLRefPtr<TLStyle> style = property.get_BackgroundStyle();
    const auto* fill = dynamic_cast<const TLStyleFill*>(style.get());
    if (fill && isFillWithBackground(fill->GetTypeID())) {
        const TLRefPtr<TLStyle> outline = fill->GetOutlineStyle();
        const auto* line = dynamic_cast<const TLStyleLine*>(outline.get());
        mPaint.writeMark(graphic, backgroundMarkName(property.get_BackgroundMode()),
                         TLSldNumber::color(fill->GetBackgroundColor()),
                         line ? TLSldNumber::color(line->GetColor()) : QColor(), 1,
                         line ? TLSldStyleReader::pixels(*line, line->GetWidth()) : 0.0,
                         property.get_TextElement().get_FontHeight(TLTextElement::Pixels), 1.0);
    }
    symbolizer.appendChild(graphic);
    // The box hugs the text; readers that pad it by default are told not to.
    mPaint.appendVendorOption(symbolizer, "graphic-margin", "0");
}

void TLSldLabelWriter::appendVendorOptions(QDomElement& symbolizer,
                                           const TLLabelProperty& property) const {
    const TLTextElement& text = property.get_TextElement();
    if (property.get_LineDrawMode() == TLLabelProperty::FollowLine)
        mPaint.appendVendorOption(symbolizer, "followLine", "true");
    else if (property.get_LineDrawMode() == TLLabelProperty::LeftToRight)
        mPaint.appendVendorOption(symbolizer, "forceLeftToRight", "true");
    if (property.IsRepeat())
        mPaint.appendVendorOption(symbolizer, "repeat",
                                  TLSldNumber::number2(property.GetRepeatDistance()));
    if (text.get_FontUnderline()) mPaint.appendVendorOption(symbolizer, "underlineText", "true");
    if (text.get_FontStrikeThrough())
        mPaint.appendVendorOption(symbolizer, "strikethroughText", "true");
    const int space =
        std::max(property.GetHorizontalAvoidDistance(), property.GetVecticalAvoidDistance());
    if (space != 0) mPaint.appendVendorOption(symbolizer, "spaceAround", QString::number(space));
    if (property.GetHandlingConflict() != 0)
        mPaint.appendVendorOption(symbolizer, "conflictResolution", "true");
    if (property.isMergeConnectdLines()) mPaint.appendVendorOption(symbolizer, "group", "true");
    mPaint.appendVendorOption(symbolizer, "graphic-resize", "stretch");
}

}  // namespace TMObjects
