#include "SldShape.h"

#include <QDomNamedNodeMap>

#include "export/TLSldDocumentWriter.h"
#include "tlmap/TLSingleSymbolRender.h"
#include "tlsde/TLField.h"

namespace TMObjects {

namespace {

QString attributesOf(const QDomElement& element) {
    const QDomNamedNodeMap attributes = element.attributes();
    QStringList pairs;
    for (int i = 0; i < attributes.count(); ++i) {
        const QDomAttr attribute = attributes.item(i).toAttr();
        pairs << attribute.name() + "=" + attribute.value();
    }
    pairs.sort();
    return pairs.isEmpty() ? QString() : "[" + pairs.join(";") + "]";
}

QString elementShape(const QDomElement& element) {
    QString text = element.tagName() + attributesOf(element);
    const QDomNodeList children = element.childNodes();
    if (children.count() == 1 && children.at(0).isText()) return text + shapeOf(children.at(0));
    QStringList parts;
    for (int i = 0; i < children.count(); ++i) parts << shapeOf(children.at(i));
    return parts.isEmpty() ? text : text + "(" + parts.join(",") + ")";
}

}  // namespace

QString shapeOf(const QDomNode& node) {
    if (node.isElement()) return elementShape(node.toElement());
    if (node.isComment()) return "<!--" + node.toComment().data() + "-->";
    if (node.isText()) return "'" + node.toText().data() + "'";
    return "?";
}

TLRefPtr<TLFeatureLayer> layerWith(const char* name, TLLayer::LayerType type,
                                   TLRefPtr<TLFeatureRender> render) {
    TLRefPtr<TLFeatureLayer> layer(
        TLFeatureLayer::CreateMemoryLayer(name, type, TLFields(), nullptr));
    layer->SetSymbolRender(render);
    return layer;
}

QDomDocument documentOf(const TLLayer& layer) {
    QDomDocument document;
    TLSldDocumentWriter().buildDocument(document, layer);
    return document;
}

QStringList rulesOf(const TLLayer& layer) {
    const QDomDocument document = documentOf(layer);
    const QDomElement style = document.documentElement()
                                  .firstChildElement("sld:UserLayer")
                                  .firstChildElement("sld:UserStyle")
                                  .firstChildElement("sld:FeatureTypeStyle");
    QStringList rules;
    for (QDomElement rule = style.firstChildElement("sld:Rule"); !rule.isNull();
         rule = rule.nextSiblingElement("sld:Rule"))
        rules << shapeOf(rule);
    return rules;
}

QStringList symbolizersOf(TLRefPtr<TLStyle> style, TLLayer::LayerType type, double alpha) {
    TLRefPtr<TLFeatureLayer> layer =
        layerWith("layer", type, TLRefPtr<TLFeatureRender>(new TLSingleSymbolRender(style)));
    layer->SetAlpha(alpha);
    const QDomDocument document = documentOf(*layer);
    const QDomElement rule = document.documentElement()
                                 .firstChildElement("sld:UserLayer")
                                 .firstChildElement("sld:UserStyle")
                                 .firstChildElement("sld:FeatureTypeStyle")
                                 .firstChildElement("sld:Rule");
    QStringList symbolizers;
    for (QDomElement child = rule.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        if (child.tagName().endsWith("Symbolizer")) symbolizers << shapeOf(child);
    return symbolizers;
}

}  // namespace TMObjects
