#include <gtest/gtest.h>

#include "SldShape.h"
#include "tlsymbol/TLStyleBitmapPoint.h"
#include "tlsymbol/TLStyleCharacterPoint.h"
#include "tlsymbol/TLStyleLineFill.h"
#include "tlsymbol/TLStyleMultiLayer.h"
#include "tlsymbol/TLStylePatternLine.h"
#include "tlsymbol/TLStylePointDecorateLine.h"
#include "tlsymbol/TLStylePointFill.h"
#include "tlsymbol/TLStyleSVGPoint.h"
#include "tlsymbol/TLStyleScriptFill.h"
#include "tlsymbol/TLStyleScriptLine.h"
#include "tlsymbol/TLStyleSimpleFill.h"
#include "tlsymbol/TLStyleSimpleLine.h"
#include "tlsymbol/TLStyleSimplePoint.h"

namespace TMObjects {
namespace {

QString css(const QString& name, const QString& value) {
    return "sld:CssParameter[name=" + name + "]'" + value + "'";
}

TLRefPtr<TLStyleSimplePoint> redDot(double size) {
    TLRefPtr<TLStyleSimplePoint> point(new TLStyleSimplePoint());
    point->SetUnits(TLStyleLength::Pixel);
    point->SetWidth(size);
    point->SetHeight(size);
    point->SetColor(TLColor(255, 0, 0));
    return point;
}

TLRefPtr<TLStyleCharacterPoint> glyph() {
    TLRefPtr<TLStyleCharacterPoint> point(new TLStyleCharacterPoint());
    point->SetUnits(TLStyleLength::Pixel);
    point->SetFontName("Wingdings");
    point->SetCharIndex(65);
    point->SetWidth(10);
    point->SetHeight(16);
    point->SetColor(TLColor(0, 128, 0));
    return point;
}

const QString kGlyphGraphic =
    "sld:Graphic(sld:Mark(sld:WellKnownName'ttf://Wingdings#65',sld:Fill(" +
    css("fill", "#008000") + ")),sld:Size'16',sld:Rotation(ogc:Literal'0.0000'))";

TLRefPtr<TLStyleSimpleLine> pixelLine(double width, const TLColor& color) {
    TLRefPtr<TLStyleSimpleLine> line(new TLStyleSimpleLine());
    line->SetUnits(TLStyleLength::Pixel);
    line->SetWidth(width);
    line->SetColor(color);
    return line;
}

const QString kBlackOutline = "sld:Stroke(" + css("stroke", "#000000") + "," +
                              css("stroke-width", "1") + "," + css("stroke-linejoin", "round") +
                              "," + css("stroke-linecap", "round") + ")";

TEST(SldPoint, SimplePointIsAMarkSizedInPixelsAndTurned) {
    TLRefPtr<TLStyleSimplePoint> point(new TLStyleSimplePoint());
    point->SetUnits(TLStyleLength::Millimeter);
    point->SetWidth(3.2);
    point->SetHeight(2);
    point->SetShapeType(TLStyleSimplePoint::Triangle);
    point->SetColor(TLColor(255, 0, 0));
    point->SetOutlineColor(TLColor(0, 0, 0));
    point->SetOutlineWidth(0.5);
    point->SetDegree(30);
    const QString mark = "sld:Mark(sld:WellKnownName'triangle',sld:Fill(" + css("fill", "#ff0000");
    const QString rest = "),sld:Stroke(" + css("stroke", "#000000") + "," +
                         css("stroke-width", "1.89") +
                         ")),sld:Size'12',sld:Rotation(ogc:Literal'30.0000')))";
    EXPECT_EQ(symbolizersOf(point, TLLayer::PointLayer),
              QStringList("sld:PointSymbolizer(sld:Graphic(" + mark + rest));
    // A see-through layer makes the mark's fill see-through, never its outline.
    EXPECT_EQ(symbolizersOf(point, TLLayer::PointLayer, 0.5),
              QStringList("sld:PointSymbolizer(sld:Graphic(" + mark + "," +
                          css("fill-opacity", "0.5") + rest));
    point->SetShapeType(7);
    EXPECT_TRUE(symbolizersOf(point, TLLayer::PointLayer)[0].contains("'square'"));
}

TEST(SldPoint, GlyphsAndPicturesAndLayersBottomFirst) {
    TLRefPtr<TLStyleMultiLayer> layers(new TLStyleMultiLayer(TLStyle::PointClass));
    layers->AddLayer(glyph());
    TLRefPtr<TLStyleBitmapPoint> bitmap(new TLStyleBitmapPoint());
    bitmap->SetUnits(TLStyleLength::Pixel);
    bitmap->SetFileName("C:\\symbols\\Tree.JPG");
    bitmap->SetWidth(20);
    bitmap->SetHeight(24);
    layers->AddLayer(bitmap);
    TLRefPtr<TLStyleSVGPoint> svg(new TLStyleSVGPoint());
    svg->SetUnits(TLStyleLength::Pixel);
    svg->SetSvgSrc(0, "/usr/share/icons/star.svg", "");
    svg->SetDegree(12.5);
    layers->AddLayer(svg);
    EXPECT_FALSE(layers->AddLayer(pixelLine(1, TLColor())));

    const QString opacity = "sld:Mark(sld:Fill(" + css("fill-opacity", "0.75") + ")),";
    EXPECT_EQ(symbolizersOf(layers, TLLayer::PointLayer, 0.75),
              (QStringList{
                  "sld:PointSymbolizer(sld:Graphic(" + opacity +
                      "sld:ExternalGraphic(sld:OnlineResource[xlink:href=star.svg;"
                      "xlink:type=simple],sld:Format'image/svg+xml'),sld:Size'2',"
                      "sld:Rotation(ogc:Literal'12.5000')))",
                  "sld:PointSymbolizer(sld:Graphic(" + opacity +
                      "sld:ExternalGraphic(sld:OnlineResource[xlink:href=Tree.JPG;"
                      "xlink:type=simple],sld:Format'image/jpeg'),sld:Size'24',"
                      "sld:Rotation(ogc:Literal'0.0000')))",
                  "sld:PointSymbolizer(" +
                      QString(kGlyphGraphic)
                          .replace("#008000'", "#008000'," + css("fill-opacity", "0.75")) +
                      ")",
              }));
}

TEST(SldLine, PlainLinesWriteOneStrokeWithOffsetShiftJoinAndCap) {
    TLRefPtr<TLStyleSimpleLine> line = pixelLine(3, TLColor(10, 20, 30));
    line->SetOffset(4);
    line->SetShift(2);
    line->SetJoin(TLStyleLine::JoinMitre);
    line->SetCap(TLStyleLine::CapButt);
    line->SetDashStyle(3);
    EXPECT_EQ(symbolizersOf(line, TLLayer::LineLayer),
              QStringList("sld:LineSymbolizer(sld:Stroke(" + css("stroke-dashoffset", "2") + "," +
                          css("stroke", "#0a141e") + "," + css("stroke-width", "3") + "," +
                          css("stroke-linejoin", "mitre") + "," + css("stroke-linecap", "butt") +
                          "),sld:PerpendicularOffset'4')"));
    line->SetUnits(TLStyleLength::Millimeter);
    line->SetShift(0);
    line->SetOffset(0);
    line->SetWidth(0.5);
    line->SetJoin(0x4000);
    EXPECT_EQ(
        symbolizersOf(line, TLLayer::LineLayer),
        QStringList("sld:LineSymbolizer(sld:Stroke(" + css("stroke", "#0a141e") + "," +
                    css("stroke-width", "1.89") + "," + css("stroke-linecap", "butt") + "))"));
}

TEST(SldLine, PatternStepsAreLengthenedInTheStyle) {
    TLRefPtr<TLStylePatternLine> pattern(new TLStylePatternLine());
    pattern->SetUnits(TLStyleLength::Pixel);
    pattern->SetWidth(1);
    pattern->SetJoin(TLStyleLine::JoinBevel);
    pattern->SetCap(TLStyleLine::CapSquare);
    pattern->SetSteps({2, 8});
    const QString head = "sld:LineSymbolizer(sld:Stroke(";
    const QString paint = css("stroke", "#000000") + "," + css("stroke-width", "1") + "," +
                          css("stroke-linejoin", "bevel") + "," + css("stroke-linecap", "square");
    EXPECT_EQ(symbolizersOf(pattern, TLLayer::LineLayer),
              QStringList(head + paint + "," + css("stroke-dasharray", "5 8") + "))"));
    EXPECT_EQ(pattern->GetSteps(), (std::vector<double>{5, 8}));

    pattern->SetSteps({});
    EXPECT_EQ(symbolizersOf(pattern, TLLayer::LineLayer),
              QStringList(head +
                          "<!--WARNING: Custom dash pattern required but not provided. Using "
                          "default dash pattern.-->," +
                          paint + "," + css("stroke-dasharray", "4 2") + "))"));
}

TEST(SldLine, DecoratedLineStrokesWithEachPointLayerFromTheTop) {
    TLRefPtr<TLStyleMultiLayer> points(new TLStyleMultiLayer(TLStyle::PointClass));
    points->AddLayer(glyph());
    points->AddLayer(redDot(4));
    TLRefPtr<TLStylePointDecorateLine> line(new TLStylePointDecorateLine());
    line->SetUnits(TLStyleLength::Pixel);
    line->SetDecorateStyle(points);
    line->SetSteps({3, 10});
    line->SetShift(1.5);
    const QString tail =
        ")," + css("stroke-dasharray", "5 10") + "," + css("stroke-dashoffset", "1.5") + "))";
    EXPECT_EQ(
        symbolizersOf(line, TLLayer::LineLayer),
        (QStringList{
            "sld:LineSymbolizer(sld:Stroke(sld:GraphicStroke(" + kGlyphGraphic + tail,
            "sld:LineSymbolizer(sld:Stroke(sld:GraphicStroke(sld:Graphic(sld:Mark("
            "sld:WellKnownName'circle',sld:Fill(" +
                css("fill", "#ff0000") + ")),sld:Size'4',sld:Rotation(ogc:Literal'0.0000'))" + tail,
        }));
    line->SetPlacementType(1);
    EXPECT_FALSE(symbolizersOf(line, TLLayer::LineLayer)[0].contains("dasharray"));
    EXPECT_TRUE(
        symbolizersOf(TLRefPtr<TLStyle>(new TLStyleScriptLine()), TLLayer::LineLayer).isEmpty());
}

TEST(SldFill, SimpleFillWritesBackgroundWithLayerOpacityAndOutline) {
    TLRefPtr<TLStyleSimpleFill> fill(new TLStyleSimpleFill());
    fill->SetBackgroundColor(TLColor(200, 200, 200));
    fill->SetOutlineStyle(pixelLine(1, TLColor(0, 0, 0)));
    const QString background = "sld:Fill(" + css("fill", "#c8c8c8");
    EXPECT_EQ(symbolizersOf(fill, TLLayer::PolygonLayer, 0.5),
              QStringList("sld:PolygonSymbolizer(" + background + "," + css("fill-opacity", "0.5") +
                          ")," + kBlackOutline + ")"));
    EXPECT_EQ(symbolizersOf(fill, TLLayer::PolygonLayer),
              QStringList("sld:PolygonSymbolizer(" + background + ")," + kBlackOutline + ")"));
    fill->SetFillBackground(false);
    fill->SetGradientFillBackground(true);
    fill->SetOutlineStyle(nullptr);
    EXPECT_EQ(symbolizersOf(fill, TLLayer::PolygonLayer), QStringList("sld:PolygonSymbolizer"));
    EXPECT_TRUE(
        symbolizersOf(TLRefPtr<TLStyle>(new TLStyleScriptFill()), TLLayer::PolygonLayer).isEmpty());
}

TEST(SldFill, LineFillAddsAHatchByItsAngle) {
    TLRefPtr<TLStyleLineFill> fill(new TLStyleLineFill());
    fill->SetUnits(TLStyleLength::Pixel);
    fill->SetFillBackground(false);
    fill->SetDegree(90);
    fill->SetSeperate(8);
    fill->SetDecorateLineStyle(pixelLine(1, TLColor(0, 0, 255)));
    EXPECT_EQ(symbolizersOf(fill, TLLayer::PolygonLayer),
              (QStringList{"sld:PolygonSymbolizer",
                           "sld:PolygonSymbolizer(sld:Fill(sld:GraphicFill(sld:Graphic(sld:Mark("
                           "sld:WellKnownName'shape://vertline',sld:Stroke(" +
                               css("stroke", "#0000ff") + "," + css("stroke-width", "1") +
                               ")),sld:Size'8'))))"}));
    fill->SetDegree(30);
    EXPECT_TRUE(symbolizersOf(fill, TLLayer::PolygonLayer)[1].contains("'shape://slash'"));
    fill->SetDegree(45);
    EXPECT_TRUE(symbolizersOf(fill, TLLayer::PolygonLayer)[1].contains("'shape://backslash'"));
}

QString graphicFill(const QString& graphic, const QString& margin) {
    return "sld:PolygonSymbolizer(sld:Fill(sld:GraphicFill" + graphic +
           "),sld:VendorOption[name=graphic-margin]'" + margin + "')";
}

TEST(SldFill, PointFillSpacesItsPointsByMargins) {
    TLRefPtr<TLStylePointFill> fill(new TLStylePointFill());
    fill->SetUnits(TLStyleLength::Pixel);
    fill->SetFillBackground(false);
    fill->SetSeperateX(10.6);
    fill->SetSeperateY(7);
    fill->SetDecoratePointStyle(redDot(5));
    const QString dot = "(sld:Graphic(sld:Mark(sld:WellKnownName'circle',sld:Fill(" +
                        css("fill", "#ff0000") + ")),sld:Size'5'))";
    EXPECT_EQ(symbolizersOf(fill, TLLayer::PolygonLayer),
              (QStringList{"sld:PolygonSymbolizer", graphicFill(dot, "10 7")}));

    fill->SetFillType(TLStylePointFill::StaggeredFill);
    fill->SetSeperateX(5);
    fill->SetSeperateY(3.4);
    EXPECT_EQ(symbolizersOf(fill, TLLayer::PolygonLayer),
              (QStringList{"sld:PolygonSymbolizer", graphicFill(dot, "0 0 6 10"),
                           graphicFill(dot, "6 8 0 2")}));

    fill->SetFillType(TLStylePointFill::RandomFill);
    EXPECT_EQ(
        symbolizersOf(fill, TLLayer::PolygonLayer),
        (QStringList{"sld:PolygonSymbolizer",
                     "sld:PointSymbolizer" +
                         QString(dot).replace("'5')", "'5',sld:Rotation(ogc:Literal'0.0000'))")}));
    fill->SetFillType(9);
    EXPECT_EQ(symbolizersOf(fill, TLLayer::PolygonLayer), QStringList("sld:PolygonSymbolizer"));

    // White points are the paper: their fill keeps only its margin.
    fill->SetFillType(TLStylePointFill::GridFill);
    TLRefPtr<TLStyleSimplePoint> white = redDot(5);
    white->SetColor(TLColor(255, 255, 255));
    fill->SetDecoratePointStyle(white);
    EXPECT_EQ(symbolizersOf(fill, TLLayer::PolygonLayer)[1], graphicFill("", "5 3"));
}

}  // namespace
}  // namespace TMObjects
