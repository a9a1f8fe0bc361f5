#pragma once

#include <QDomDocument>
#include <QDomElement>
#include <QString>

#include "TLPluginExport.h"

namespace TMObjects {

class TLLayer;

// Writes the symbology of one map layer as a Styled Layer Descriptor 1.0.0 document. Feature
// layers give one rule per symbol class of their render, raster layers one raster symbolizer;
// any other layer gives a style with its name only.
class TL_ACTIONEX_EXPORT TLSldDocumentWriter {
public:
    static const char* const SldNamespace;
    static const char* const GmlNamespace;
    static const char* const OgcNamespace;
    static const char* const XlinkNamespace;

    // Builds the document and writes it to `path`, replacing the file only once the whole text
    // is written. False when the file could not be written; a null layer writes nothing.
    bool writeLayer(const TLLayer* layer, const QString& path) const;
    // Builds the document of the layer into the empty `document`.
    void buildDocument(QDomDocument& document, const TLLayer& layer) const;

    // The style's name: the layer's name up to its first ".", so that a file layer is named
    // without its extension.
    static QString styleName(const QString& layerName);

private:
    QDomElement userStyle(QDomDocument& document, const TLLayer& layer) const;
};

}  // namespace TMObjects
