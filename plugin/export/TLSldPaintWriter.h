#pragma once

#include <QColor>
#include <QDomDocument>
#include <QDomElement>
#include <QString>
#include <QVector>

#include "TLPluginExport.h"

namespace TMObjects {

// The strokes, fills and marks of a style document, from Qt's pen and brush terms: pen styles
// 0 none, 1 solid, 2 dash, 3 dot, 4 dash dot, 5 dash dot dot, 6 custom; brush styles 0 none,
// 1 solid, 2 to 8 dense, 9 to 14 hatches. Joins and caps take Qt's values, -1 for none.
class TL_ACTIONEX_EXPORT TLSldPaintWriter {
public:
    static constexpr int NoJoin = -1;
    static constexpr int NoCap = -1;

    explicit TLSldPaintWriter(QDomDocument& document) : mDocument(document) {}

    void writeStroke(QDomElement& stroke, int penStyle, const QColor& color, double width, int join,
                     int cap, const QVector<double>& dashes, double dashOffset,
                     double opacity) const;
    void writeFill(QDomElement& fill, int brushStyle, const QColor& color, double opacity) const;
    void writeMark(QDomElement& graphic, const QString& name, const QColor& fillColor,
                   const QColor& strokeColor, int penStyle, double strokeWidth, double size,
                   double opacity) const;

    // One "sld:CssParameter" with its name and text, appended to `parent`.
    void appendParameter(QDomElement& parent, const QString& name, const QString& value) const;
    // One "sld:VendorOption" with its name and text, appended to `parent`.
    void appendVendorOption(QDomElement& parent, const QString& name, const QString& value) const;
    // An element of that name with `text` as its only child, appended to `parent`.
    QDomElement appendText(QDomElement& parent, const QString& name, const QString& text) const;

private:
    bool dashesOfPen(QDomElement& stroke, int penStyle, QVector<double>& dashes) const;
    void writeGraphicFill(QDomElement& fill, int brushStyle, const QColor& color,
                          double opacity) const;

    QDomDocument& mDocument;
};

}  // namespace TMObjects
