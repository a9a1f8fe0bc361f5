#pragma once

#include <QDomDocument>
#include <QDomNode>
#include <QString>
#include <QStringList>

#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLFeatureRender.h"
#include "tlsymbol/TLStyle.h"

#include <ostream>

// Failures print the texts rather than their bytes.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace TMObjects {

// A compact text of a document branch that the tests compare whole: name[attributes](children),
// a lone text child as 'text', comments as <!--text-->. Attributes are sorted, as the document
// keeps them in no order.
QString shapeOf(const QDomNode& node);

// A memory layer of that kind drawn with `render`.
TLRefPtr<TLFeatureLayer> layerWith(const char* name, TLLayer::LayerType type,
                                   TLRefPtr<TLFeatureRender> render);

// The document of the layer.
QDomDocument documentOf(const TLLayer& layer);

// The shapes of the rules of the layer's document, in order.
QStringList rulesOf(const TLLayer& layer);

// The shapes of the symbolizers of a single symbol render with that style.
QStringList symbolizersOf(TLRefPtr<TLStyle> style, TLLayer::LayerType type, double alpha = 1.0);

}  // namespace TMObjects
