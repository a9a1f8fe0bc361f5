#include "export/TLSldXmlText.h"

#include <QDomNamedNodeMap>
#include <QStringList>
#include <QXmlStreamWriter>
#include <algorithm>

namespace TMObjects {

namespace {

int rank(const QString& name) {
    static const QStringList order = {"version",     "xmlns",    "xmlns:gml", "xmlns:ogc",
                                      "xmlns:xlink", "quantity", "color",     "xlink:type",
                                      "xlink:href",  "name"};
    const int index = order.indexOf(name);
    return index < 0 ? order.size() : index;
}

void writeAttributes(QXmlStreamWriter& writer, const QDomElement& element) {
    // An element made in a namespace declares its prefix first, as the toolkit's writer does.
    if (!element.namespaceURI().isEmpty())
        writer.writeAttribute(element.prefix().isEmpty() ? "xmlns" : "xmlns:" + element.prefix(),
                              element.namespaceURI());
    const QDomNamedNodeMap attributes = element.attributes();
    QList<QDomAttr> sorted;
    for (int i = 0; i < attributes.count(); ++i) sorted << attributes.item(i).toAttr();
    std::sort(sorted.begin(), sorted.end(), [](const QDomAttr& a, const QDomAttr& b) {
        const int ra = rank(a.name()), rb = rank(b.name());
        return ra != rb ? ra < rb : a.name() < b.name();
    });
    for (const QDomAttr& attribute : sorted)
        writer.writeAttribute(attribute.name(), attribute.value());
}

void writeNode(QXmlStreamWriter& writer, const QDomNode& node) {
    if (node.isProcessingInstruction()) {
        const QDomProcessingInstruction instruction = node.toProcessingInstruction();
        // The declaration "version 1.0, UTF-8" is the writer's own start of a document.
        if (instruction.target() == "xml")
            writer.writeStartDocument();
        else
            writer.writeProcessingInstruction(instruction.target(), instruction.data());
    } else if (node.isComment()) {
        writer.writeComment(node.toComment().data());
    } else if (node.isText()) {
        writer.writeCharacters(node.toText().data());
    } else if (node.isElement()) {
        const QDomElement element = node.toElement();
        if (!element.hasChildNodes()) {
            writer.writeEmptyElement(element.nodeName());
            writeAttributes(writer, element);
            return;
        }
        writer.writeStartElement(element.nodeName());
        writeAttributes(writer, element);
        for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling())
            writeNode(writer, child);
        writer.writeEndElement();
    }
}

}  // namespace

QByteArray TLSldXmlText::toBytes(const QDomDocument& document) {
    QByteArray bytes;
    QXmlStreamWriter writer(&bytes);
    writer.setCodec("UTF-8");
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(2);
    for (QDomNode node = document.firstChild(); !node.isNull(); node = node.nextSibling())
        writeNode(writer, node);
    writer.writeEndDocument();
    return bytes;
}

}  // namespace TMObjects
