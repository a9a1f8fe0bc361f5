#pragma once

#include <QDomDocument>
#include <QDomElement>
#include <QString>
#include <QStringList>

#include "TLPluginExport.h"

namespace TMObjects {

// The "ogc:Filter" comparisons of the rules, read from a category's value or a rule's
// expression. The reading is a plain text scan, not a parser, and its known slips (an AND that
// is lost, a NOT that is lost, "<=" read as "<") are what the documents in use carry.
class TL_ACTIONEX_EXPORT TLSldFilterWriter {
public:
    explicit TLSldFilterWriter(QDomDocument& document) : mDocument(document) {}

    // Adds one comparison of `field` and `value` to `filter`. With `parseExpression` the value
    // is an expression whose left side names the field.
    void writeFilter(QDomElement& filter, QString value, QString field, bool parseExpression) const;

    // The comparison element that the text calls for.
    static QString comparisonElement(const QString& text);
    // Appends left side, right side and operator to `items`; nothing when the text holds no
    // operator.
    static void splitExpression(QString text, QStringList& items);

private:
    void writeAndParts(const QString& value) const;
    void appendComparison(QDomElement& filter, const QString& name, const QString& field,
                          const QString& value) const;
    void appendText(QDomElement& parent, const QString& name, const QString& text) const;
    static int removeNegations(QString& text);

    QDomDocument& mDocument;
};

}  // namespace TMObjects
