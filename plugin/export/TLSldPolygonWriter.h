#pragma once

#include <QDomDocument>
#include <QDomElement>
#include <QList>
#include <QString>

#include "export/TLSldLineWriter.h"
#include "export/TLSldPaintWriter.h"
#include "export/TLSldPointWriter.h"
#include "tlsymbol/TLStyle.h"

namespace TMObjects {

class TLStyleFill;
class TLStyleLineFill;
class TLStylePointFill;

// The polygon symbolizers of fill styles: the background and outline of every fill, the hatch
// of line fills and the graphic fills of point fills.
class TLSldPolygonWriter {
public:
    explicit TLSldPolygonWriter(QDomDocument& document)
        : mDocument(document), mPaint(document), mPoints(document), mLines(document) {}

    // The symbolizers of every layer of the style, the bottom layer first.
    QList<QDomElement> polygonSymbolizers(const TLRefPtr<TLStyle>& style, double opacity) const;
    // Background and outline of a fill, as one "sld:PolygonSymbolizer".
    QDomElement simpleFill(const TLStyleFill& fill, double opacity) const;

private:
    void appendLineFill(QList<QDomElement>& symbolizers, const TLStyleLineFill& fill) const;
    void appendPointFill(QList<QDomElement>& symbolizers, const TLStylePointFill& fill,
                         double opacity) const;
    void appendGraphicFills(QList<QDomElement>& symbolizers, const TLStylePointFill& fill,
                            const QString& margin, double opacity) const;
    QDomElement graphicFillSymbolizer(QDomElement& graphicFill) const;
    static QString marginValue(const QString& margin, double size);

    QDomDocument& mDocument;
    TLSldPaintWriter mPaint;
    TLSldPointWriter mPoints;
    TLSldLineWriter mLines;
};

}  // namespace TMObjects
