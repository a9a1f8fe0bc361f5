#pragma once

#include <QDomDocument>
#include <QDomElement>
#include <QList>

#include "export/TLSldPaintWriter.h"
#include "tlsymbol/TLStyle.h"

namespace TMObjects {

class TLStyleSimplePoint;
class TLStyleCharacterPoint;
class TLStyleBitmapPoint;
class TLStyleSVGPoint;
class TLStylePoint;

// The "sld:Graphic" of point symbols and the point symbolizers made of them.
class TLSldPointWriter {
public:
    explicit TLSldPointWriter(QDomDocument& document) : mDocument(document), mPaint(document) {}

    // One "sld:PointSymbolizer" per layer of the style, the bottom layer first.
    QList<QDomElement> pointSymbolizers(const TLRefPtr<TLStyle>& style, double opacity) const;
    // The graphic of one point layer; empty for a layer that is no point symbol. Without
    // `rotated` a simple point leaves out its rotation, as fills of points draw it upright.
    QDomElement graphic(const TLStyle& layer, double opacity, bool rotated) const;

private:
    void writeSimple(QDomElement& graphic, const TLStyleSimplePoint& point, double opacity,
                     bool rotated) const;
    void writeCharacter(QDomElement& graphic, const TLStyleCharacterPoint& point,
                        double opacity) const;
    void writeBitmap(QDomElement& graphic, const TLStyleBitmapPoint& point, double opacity) const;
    void writeSvg(QDomElement& graphic, const TLStyleSVGPoint& point, double opacity) const;
    void writeExternal(QDomElement& graphic, const TLStylePoint& point, const QString& file,
                       const QString& format, double opacity) const;
    void writeRotation(QDomElement& graphic, double degree) const;

    QDomDocument& mDocument;
    TLSldPaintWriter mPaint;
};

}  // namespace TMObjects
