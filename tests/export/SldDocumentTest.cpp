#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include "SldShape.h"
#include "export/TLSldDocumentWriter.h"
#include "tlmap/TLCategorizedSymbolRender.h"
#include "tlmap/TLLabelProperty.h"
#include "tlmap/TLRasterLayer.h"
#include "tlmap/TLSingleSymbolRender.h"
#include "tlsde/TLField.h"
#include "tlsymbol/TLStyleLineFill.h"
#include "tlsymbol/TLStylePointFill.h"
#include "tlsymbol/TLStyleSimpleLine.h"

namespace TMObjects {
namespace {

TLRefPtr<TLFeatureLayer> roads() {
    TLRefPtr<TLStyleSimpleLine> line(new TLStyleSimpleLine());
    line->SetUnits(TLStyleLength::Pixel);
    line->SetWidth(2);
    line->SetColor(TLColor(0, 0, 255));
    return layerWith("roads.shp", TLLayer::LineLayer,
                     TLRefPtr<TLFeatureRender>(new TLSingleSymbolRender(line)));
}

const char* const kRoadsStroke =
    "sld:LineSymbolizer(sld:Stroke(sld:CssParameter[name=stroke]'#0000ff',"
    "sld:CssParameter[name=stroke-width]'2',sld:CssParameter[name=stroke-linejoin]'round',"
    "sld:CssParameter[name=stroke-linecap]'round'))";

TEST(SldDocument, FrameHoldsOneUserStyleNamedAfterTheLayerWithoutItsExtension) {
    const QDomDocument document = documentOf(*roads());
    const QDomNode declaration = document.firstChild();
    ASSERT_TRUE(declaration.isProcessingInstruction());
    EXPECT_EQ(declaration.nodeName(), "xml");
    EXPECT_EQ(declaration.toProcessingInstruction().data(), "version=\"1.0\" encoding=\"UTF-8\"");

    const QDomElement root = document.documentElement();
    EXPECT_EQ(root.prefix() + ":" + root.localName(), "sld:StyledLayerDescriptor");
    EXPECT_EQ(root.namespaceURI(), "http://www.opengis.net/sld");
    EXPECT_EQ(root.attribute("version"), "1.0.0");
    EXPECT_EQ(root.attribute("xmlns"), "http://www.opengis.net/sld");
    EXPECT_EQ(root.attribute("xmlns:gml"), "http://www.opengis.net/gml");
    EXPECT_EQ(root.attribute("xmlns:ogc"), "http://www.opengis.net/ogc");
    EXPECT_EQ(root.attribute("xmlns:xlink"), "http://www.w3.org/1999/xlink");

    EXPECT_EQ(shapeOf(root.firstChild()),
              QString("sld:UserLayer(sld:LayerFeatureConstraints(sld:FeatureTypeConstraint),"
                      "sld:UserStyle(sld:Name'roads',sld:FeatureTypeStyle("
                      "sld:FeatureTypeName'Feature',sld:Rule(sld:Name'roads.shp',") +
                  kRoadsStroke + "))))");
    EXPECT_EQ(root.childNodes().count(), 1);
}

TEST(SldDocument, ScaleRangeIsWrittenWithMinimumAndMaximumCrossed) {
    TLRefPtr<TLFeatureLayer> layer = roads();
    layer->SetVisibleScales(1000, 2500000);
    EXPECT_EQ(rulesOf(*layer), QStringList(QString("sld:Rule(sld:Name'roads.shp',"
                                                   "sld:MinScaleDenominator'2.5e+06',"
                                                   "sld:MaxScaleDenominator'1000',") +
                                           kRoadsStroke + ")"));
}

TEST(SldDocument, LayersWithoutFeatureSymbolsKeepAStyleWithoutRules) {
    // A render whose class does not match its kind is not read.
    EXPECT_TRUE(rulesOf(*layerWith("odd", TLLayer::LineLayer,
                                   TLRefPtr<TLFeatureRender>(new TLFeatureRender())))
                    .isEmpty());
    TLRefPtr<TLFeatureLayer> empty = layerWith(
        "empty", TLLayer::LineLayer, TLRefPtr<TLFeatureRender>(new TLSingleSymbolRender(nullptr)));
    EXPECT_TRUE(rulesOf(*empty).isEmpty());

    TLRefPtr<TLRasterLayer> raster(
        new TLRasterLayer("dem.tif", "dem.tif", 2, 2, 1, {0, 1, 0, 2, 0, -1}, nullptr));
    const QDomDocument document = documentOf(*raster);
    EXPECT_EQ(shapeOf(document.documentElement()
                          .firstChildElement("sld:UserLayer")
                          .firstChildElement("sld:UserStyle")),
              "sld:UserStyle(sld:Name'dem',sld:FeatureTypeStyle(sld:FeatureTypeName'Feature'))");
}

TEST(SldDocument, NewLayersExportTheirPlainSymbol) {
    TLRefPtr<TLFeatureLayer> points(
        TLFeatureLayer::CreateMemoryLayer("wells", TLLayer::PointLayer, TLFields(), nullptr));
    const QStringList rules = rulesOf(*points);
    ASSERT_EQ(rules.size(), 1);
    EXPECT_TRUE(
        rules[0].contains("sld:PointSymbolizer(sld:Graphic(sld:Mark("
                          "sld:WellKnownName'circle'"))
        << rules[0].toStdString();
    TLRefPtr<TLFeatureLayer> parcels(
        TLFeatureLayer::CreateMemoryLayer("parcels", TLLayer::PolygonLayer, TLFields(), nullptr));
    EXPECT_TRUE(rulesOf(*parcels).value(0).contains("sld:PolygonSymbolizer(sld:Fill("));
}

class SldFile : public ::testing::Test {
protected:
    QTemporaryDir mDir;
    QString path(const char* name) const { return mDir.filePath(name); }
};

// Categories with markup characters, every fill kind and a label with a background box.
TLRefPtr<TLFeatureLayer> parcels() {
    TLRefPtr<TLCategorizedSymbolRender> render(new TLCategorizedSymbolRender("USE"));
    TLRefPtr<TLStylePointFill> dots(new TLStylePointFill());
    dots->SetFillType(TLStylePointFill::StaggeredFill);
    dots->SetDecoratePointStyle(TLSingleSymbolRender::DefaultStyle(TLLayer::PointLayer));
    render->AddItem(
        TLRefPtr<TLCategoryRenderItem>(new TLCategoryRenderItem("a<b & \"c\"", "", dots)));
    TLRefPtr<TLStyleLineFill> hatch(new TLStyleLineFill());
    hatch->SetDecorateLineStyle(TLSingleSymbolRender::DefaultStyle(TLLayer::LineLayer));
    render->AddItem(TLRefPtr<TLCategoryRenderItem>(new TLCategoryRenderItem("10,20", "", hatch)));
    render->AddItem(TLRefPtr<TLCategoryRenderItem>(new TLCategoryRenderItem(
        "farm and forest", "", TLSingleSymbolRender::DefaultStyle(TLLayer::PolygonLayer))));
    TLRefPtr<TLFeatureLayer> layer = layerWith("parcels.gpkg", TLLayer::PolygonLayer, render);
    TLRefPtr<TLLabelProperty> label(new TLLabelProperty());
    label->SetExpression(0, "OWNER");
    label->put_BackgroundMode(TLLabelProperty::SquareBackground);
    label->put_BackgroundStyle(TLSingleSymbolRender::DefaultStyle(TLLayer::PolygonLayer));
    layer->set_default_property(label);
    layer->set_display_label(true);
    layer->SetVisibleScales(100, 50000);
    layer->SetAlpha(0.6);
    return layer;
}

TEST_F(SldFile, WrittenDocumentIsWellFormedAndReadsBack) {
    const QString target = path("parcels.sld");
    ASSERT_TRUE(TLSldDocumentWriter().writeLayer(parcels().get(), target));
    QProcess lint;
    lint.start("xmllint", {"--noout", target});
    ASSERT_TRUE(lint.waitForFinished(20000));
    EXPECT_EQ(lint.exitCode(), 0) << lint.readAllStandardError().toStdString();

    QFile file(target);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_TRUE(text.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"));
    EXPECT_TRUE(text.contains("<sld:StyledLayerDescriptor "));
    EXPECT_TRUE(text.contains("\n  <sld:UserLayer>")) << "indented by two";
    QDomDocument back;
    ASSERT_TRUE(back.setContent(text, true));
    EXPECT_EQ(back.documentElement().localName(), "StyledLayerDescriptor");
    EXPECT_EQ(back.documentElement().namespaceURI(), "http://www.opengis.net/sld");
    EXPECT_EQ(back.elementsByTagNameNS(TLSldDocumentWriter::SldNamespace, "Rule").count(), 3);
    EXPECT_EQ(back.elementsByTagNameNS(TLSldDocumentWriter::SldNamespace, "TextSymbolizer").count(),
              3);
    EXPECT_EQ(back.elementsByTagNameNS(TLSldDocumentWriter::OgcNamespace, "Literal")
                  .at(0)
                  .toElement()
                  .text(),
              "a<b & \"c\"");
}

TEST_F(SldFile, ReplacesAnOldFileWholeAndLeavesNothingWhenItCannotWrite) {
    const QString target = path("style.sld");
    {
        QFile old(target);
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write(QByteArray(20000, 'x'));
    }
    ASSERT_TRUE(TLSldDocumentWriter().writeLayer(roads().get(), target));
    QFile file(target);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_FALSE(text.contains('x' + QByteArray(10, 'x')));
    EXPECT_TRUE(text.trimmed().endsWith("</sld:StyledLayerDescriptor>"));

    EXPECT_FALSE(TLSldDocumentWriter().writeLayer(roads().get(), path("missing/style.sld")));
    EXPECT_FALSE(QFile::exists(path("missing/style.sld")));
    ASSERT_TRUE(QDir(mDir.path()).mkdir("folder"));
    EXPECT_FALSE(TLSldDocumentWriter().writeLayer(roads().get(), path("folder")));
    EXPECT_TRUE(QFileInfo(path("folder")).isDir());
    EXPECT_FALSE(TLSldDocumentWriter().writeLayer(nullptr, path("none.sld")));
    EXPECT_EQ(QDir(mDir.path()).entryList(QDir::Files), QStringList{"style.sld"});
}

TEST_F(SldFile, TwoWritesAreTheSameBytesWithAttributesInAFixedOrder) {
    ASSERT_TRUE(TLSldDocumentWriter().writeLayer(parcels().get(), path("a.sld")));
    ASSERT_TRUE(TLSldDocumentWriter().writeLayer(parcels().get(), path("b.sld")));
    QFile a(path("a.sld")), b(path("b.sld"));
    ASSERT_TRUE(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
    const QByteArray text = a.readAll();
    EXPECT_EQ(text, b.readAll());
    // The order does not hang on the toolkit's hashing, which changes from one run to the next.
    EXPECT_TRUE(
        text.contains("\n<sld:StyledLayerDescriptor xmlns:sld=\"http://www.opengis.net/sld\" "
                      "version=\"1.0.0\" xmlns=\"http://www.opengis.net/sld\" "
                      "xmlns:gml=\"http://www.opengis.net/gml\" "
                      "xmlns:ogc=\"http://www.opengis.net/ogc\" "
                      "xmlns:xlink=\"http://www.w3.org/1999/xlink\">\n"))
        << text.left(400).toStdString();
    EXPECT_TRUE(text.endsWith("</sld:StyledLayerDescriptor>\n"));
}

}  // namespace
}  // namespace TMObjects
