#pragma once

#include <QDomDocument>
#include <QDomElement>
#include <QList>

#include "export/TLSldPaintWriter.h"
#include "export/TLSldPointWriter.h"
#include "tlsymbol/TLStyle.h"

namespace TMObjects {

class TLStyleLine;

// The line symbolizers of line styles, and the stroke of a line style that outlines a fill.
class TLSldLineWriter {
public:
    explicit TLSldLineWriter(QDomDocument& document)
        : mDocument(document), mPaint(document), mPoints(document) {}

    // One "sld:LineSymbolizer" per layer that draws as a stroke, the bottom layer first; for
    // decorated lines one per layer of the decoration, whose graphics take the opacity.
    QList<QDomElement> lineSymbolizers(const TLRefPtr<TLStyle>& style, double opacity) const;
    // The "sld:Stroke" of a plain, border or pattern line; empty for other line kinds.
    QDomElement stroke(TLStyleLine& line) const;

    // The stroke joins and caps of the library's pen values in Qt's terms.
    static int qtJoin(int join);
    static int qtCap(int cap);

private:
    void appendPlainLine(QList<QDomElement>& symbolizers, TLStyleLine& line) const;
    void appendDecoratedLine(QList<QDomElement>& symbolizers, const TLStyleLine& line,
                             double opacity) const;
    QDomElement decoratedSymbolizer(const TLStyleLine& line, const TLStyle& decoration,
                                    double opacity) const;

    QDomDocument& mDocument;
    TLSldPaintWriter mPaint;
    TLSldPointWriter mPoints;
};

}  // namespace TMObjects
