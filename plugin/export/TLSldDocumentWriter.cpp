#include "export/TLSldDocumentWriter.h"

#include <QSaveFile>

#include "TLToolText.h"
#include "export/TLSldRasterWriter.h"
#include "export/TLSldRuleWriter.h"
#include "export/TLSldXmlText.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLRasterLayer.h"

namespace TMObjects {

const char* const TLSldDocumentWriter::SldNamespace = "http://www.opengis.net/sld";
const char* const TLSldDocumentWriter::GmlNamespace = "http://www.opengis.net/gml";
const char* const TLSldDocumentWriter::OgcNamespace = "http://www.opengis.net/ogc";
const char* const TLSldDocumentWriter::XlinkNamespace = "http://www.w3.org/1999/xlink";

QString TLSldDocumentWriter::styleName(const QString& layerName) {
    return layerName.section('.', 0, 0);
}

bool TLSldDocumentWriter::writeLayer(const TLLayer* layer, const QString& path) const {
    if (!layer) return false;
    QDomDocument document;
    buildDocument(document, *layer);
    // The old file stays as it was until the new one is complete.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text)) return false;
    const QByteArray text = TLSldXmlText::toBytes(document);
    if (file.write(text) != text.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

void TLSldDocumentWriter::buildDocument(QDomDocument& document, const TLLayer& layer) const {
    document.appendChild(
        document.createProcessingInstruction("xml", "version=\"1.0\" encoding=\"UTF-8\""));
    QDomElement root = document.createElementNS(SldNamespace, "sld:StyledLayerDescriptor");
    root.setAttribute("version", "1.0.0");
    root.setAttribute("xmlns", SldNamespace);
    root.setAttribute("xmlns:gml", GmlNamespace);
    root.setAttribute("xmlns:ogc", OgcNamespace);
    root.setAttribute("xmlns:xlink", XlinkNamespace);
    document.appendChild(root);

    QDomElement userLayer = document.createElement("sld:UserLayer");
    QDomElement constraints = document.createElement("sld:LayerFeatureConstraints");
    constraints.appendChild(document.createElement("sld:FeatureTypeConstraint"));
    userLayer.appendChild(constraints);
    userLayer.appendChild(userStyle(document, layer));
    root.appendChild(userLayer);
}

QDomElement TLSldDocumentWriter::userStyle(QDomDocument& document, const TLLayer& layer) const {
    QDomElement style = document.createElement("sld:UserStyle");
    TLSldPaintWriter paint(document);
    paint.appendText(style, "sld:Name", styleName(toQString(layer.GetLayerName())));
    if (!layer.IsFeatureLayer() && !layer.IsRasterLayer()) return style;
    QDomElement featureTypeStyle = document.createElement("sld:FeatureTypeStyle");
    paint.appendText(featureTypeStyle, "sld:FeatureTypeName", "Feature");
    if (const auto* features = dynamic_cast<const TLFeatureLayer*>(&layer))
        TLSldRuleWriter(document).appendRules(featureTypeStyle, *features);
    else if (const auto* raster = dynamic_cast<const TLRasterLayer*>(&layer))
        TLSldRasterWriter(document).appendRule(featureTypeStyle, *raster);
    style.appendChild(featureTypeStyle);
    return style;
}

}  // namespace TMObjects
