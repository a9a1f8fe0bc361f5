#include <gtest/gtest.h>

#include "SldShape.h"
#include "export/TLSldLabelWriter.h"
#include "tlmap/TLLabelProperty.h"
#include "tlmap/TLSingleSymbolRender.h"
#include "tlsymbol/TLStyleSimpleFill.h"
#include "tlsymbol/TLStyleSimpleLine.h"

namespace TMObjects {
namespace {

QString css(const QString& name, const QString& value) {
    return "sld:CssParameter[name=" + name + "]'" + value + "'";
}

QString option(const QString& name, const QString& value) {
    return "sld:VendorOption[name=" + name + "]'" + value + "'";
}

TLRefPtr<TLFeatureLayer> labelled(TLRefPtr<TLLabelProperty> property) {
    TLRefPtr<TLFeatureLayer> layer = layerWith(
        "towns", TLLayer::PointLayer,
        TLRefPtr<TLFeatureRender>(
            new TLSingleSymbolRender(TLSingleSymbolRender::DefaultStyle(TLLayer::PointLayer))));
    layer->set_default_property(property);
    layer->set_display_label(true);
    return layer;
}

// The last child of the layer's one rule, when it is its label.
QString labelOf(const TLFeatureLayer& layer) {
    const QDomDocument document = documentOf(layer);
    const QDomElement rule = document.documentElement()
                                 .firstChildElement("sld:UserLayer")
                                 .firstChildElement("sld:UserStyle")
                                 .firstChildElement("sld:FeatureTypeStyle")
                                 .firstChildElement("sld:Rule");
    const QDomElement last = rule.lastChildElement();
    return last.tagName() == "sld:TextSymbolizer" ? shapeOf(last) : QString();
}

TEST(SldLabel, PlainLabelNamesItsFieldFontPlacementAndColour) {
    TLRefPtr<TLLabelProperty> property(new TLLabelProperty());
    property->SetExpression(0, "NAME");
    TLTextElement text;
    text.put_FontName("DejaVu Sans");
    text.put_FontHeight(12, TLTextElement::Points);
    text.put_FontWeight(700);
    text.put_FontColor(0x00FF0000u);
    text.put_AnchorPoint(5);
    text.put_Offset(2.6, -3);
    property->put_TextElement(text);
    TLRefPtr<TLFeatureLayer> layer = labelled(property);
    EXPECT_EQ(labelOf(*layer),
              "sld:TextSymbolizer(sld:Label(ogc:PropertyName'NAME'),sld:Font(" +
                  css("font-family", "DejaVu Sans") + "," + css("font-size", "16") + "," +
                  css("font-style", "normal") + "," + css("font-weight", "Bold") +
                  "),sld:LabelPlacement(sld:PointPlacement(sld:AnchorPoint(sld:AnchorPointX'1',"
                  "sld:AnchorPointY'0.5'),sld:Displacement(sld:DisplacementX'3',"
                  "sld:DisplacementY'-3'))),sld:Fill(" +
                  css("fill", "#FF0000") + ")," + option("graphic-resize", "stretch") + ")");
    layer->set_display_label(false);
    EXPECT_EQ(labelOf(*layer), "");
    layer->set_display_label(true);
    layer->set_default_property(nullptr);
    EXPECT_EQ(labelOf(*layer), "");
}

TEST(SldLabel, HaloBackgroundAndPlacementOptionsInOrder) {
    TLRefPtr<TLLabelProperty> property(new TLLabelProperty());
    property->SetExpression(0, "ROAD");
    TLTextElement text;
    text.put_FontHeight(10, TLTextElement::Pixels);
    text.put_FontItalic(2);
    text.put_FontWeight(850);
    text.put_FontAngle(30);
    text.put_FontPathWidth(1.5);
    text.put_FontPathColor(0xFF00FF80u);
    text.put_FontColor(0xFF0000FFu);
    text.put_FontUnderline(true);
    text.put_FontStrikeThrough(true);
    text.put_AnchorPoint(3);
    property->put_TextElement(text);
    TLRefPtr<TLStyleSimpleFill> box(new TLStyleSimpleFill());
    box->SetBackgroundColor(TLColor(255, 255, 0));
    TLRefPtr<TLStyleSimpleLine> edge(new TLStyleSimpleLine());
    edge->SetUnits(TLStyleLength::Pixel);
    edge->SetWidth(1);
    box->SetOutlineStyle(edge);
    property->put_BackgroundStyle(box);
    property->put_BackgroundMode(TLLabelProperty::DiamondBackground);
    property->put_LineDrawMode(TLLabelProperty::LeftToRight);
    property->SetRepeat(true, 150.5);
    property->SetAvoidDistances(3, 7);
    property->SetHandlingConflict(1);
    property->setMergeConnectdLines(true);
    EXPECT_EQ(labelOf(*labelled(property)),
              "sld:TextSymbolizer(sld:Halo(sld:Radius'1.5',sld:Fill(" + css("fill", "#00ff80") +
                  ")),sld:Label(ogc:PropertyName'ROAD'),sld:Font(" + css("font-family", "Arial") +
                  "," + css("font-size", "10") + "," + css("font-style", "italic") + "," +
                  css("font-weight", QString::fromUtf8("900\xEF\xBC\x9A"
                                                       "Black")) +
                  "),sld:LabelPlacement(sld:PointPlacement(sld:AnchorPoint(sld:AnchorPointX'0',"
                  "sld:AnchorPointY'0'),sld:Displacement(sld:DisplacementX'0',"
                  "sld:DisplacementY'0'),sld:Rotation'30')),sld:Fill(" +
                  css("fill", "#000000") +
                  "),sld:Graphic(sld:Mark(sld:WellKnownName'diamond',sld:Fill(" +
                  css("fill", "#ffff00") + "),sld:Stroke(" + css("stroke", "#000000") + "," +
                  css("stroke-width", "1") + ")),sld:Size'10')," + option("graphic-margin", "0") +
                  "," + option("forceLeftToRight", "true") + "," + option("repeat", "150.5") + "," +
                  option("underlineText", "true") + "," + option("strikethroughText", "true") +
                  "," + option("spaceAround", "7") + "," + option("conflictResolution", "true") +
                  "," + option("group", "true") + "," + option("graphic-resize", "stretch") + ")");
}

TEST(SldLabel, WeightsAndColoursByTheirSteps) {
    EXPECT_EQ(TLSldLabelWriter::weightName(100), "Thin");
    EXPECT_EQ(TLSldLabelWriter::weightName(101), "ExtraLight");
    EXPECT_EQ(TLSldLabelWriter::weightName(400), "Normal");
    EXPECT_EQ(TLSldLabelWriter::weightName(800), "ExtraBold");
    EXPECT_EQ(TLSldLabelWriter::weightName(901), "");
    EXPECT_EQ(TLSldLabelWriter::fontColor(0x00123456u), "#123456");
    EXPECT_EQ(TLSldLabelWriter::fontColor(0x0000FF00u), "#000000");
    EXPECT_EQ(TLSldLabelWriter::fontColor(0x7F0000FFu), "#7F0000FF");
    EXPECT_EQ(TLSldLabelWriter::fontColor(0u), "#000000");
}

}  // namespace
}  // namespace TMObjects
