#include "export/TLSldFilterWriter.h"

#include <QRegularExpression>

namespace TMObjects {

namespace {

struct Operator {
    const char* text;
    const char* plain;
    const char* negated;
};

// Searched in this order; the first that the text holds splits it. "NOT IN" is never met, as
// the negations are gone by then.
const Operator kOperators[] = {
    {"<=", "<=", ">"},      {">=", ">=", "<"},      {"!=", "!=", "=="},     {">", ">", "<="},
    {"<", "<", ">="},       {"=", "==", "!="},      {"ILIKE", "in", "!in"}, {"ilike", "in", "!in"},
    {"LIKE", "in", "!in"},  {"like", "in", "!in"},  {"IN", "in", "!in"},    {"in", "in", "!in"},
    {"NOT IN", "in", "in"}, {"not in", "in", "in"},
};

}  // namespace

void TLSldFilterWriter::writeFilter(QDomElement& filter, QString value, QString field,
                                    bool parseExpression) const {
    QString name;
    if (value.contains("AND") || value.contains("and")) {
        // The parts are compared into an element that is never attached, and no comparison of
        // the whole text can be named: the rule's filter stays empty.
        writeAndParts(value);
    } else if (!parseExpression) {
        name = comparisonElement(value);
    } else {
        QStringList items;
        splitExpression(value, items);
        if (!items.isEmpty()) {
            field = items[0].trimmed();
            name = comparisonElement(value);
            if (items.size() >= 2) value = items[1].trimmed();
        }
    }
    appendComparison(filter, name, field, value);
}

void TLSldFilterWriter::writeAndParts(const QString& value) const {
    QDomElement andElement = mDocument.createElement("And");
    QString text = value;
    text.replace("and", "AND");
    for (const QString& part : text.split("AND")) {
        QStringList items;
        splitExpression(part.trimmed(), items);
        if (items.size() >= 3) writeFilter(andElement, items[0], items[1], false);
    }
}

void TLSldFilterWriter::appendComparison(QDomElement& filter, const QString& name,
                                         const QString& field, const QString& value) const {
    // A comparison without a name cannot be made: the filter then stays empty.
    if (name.isEmpty()) return;
    QDomElement comparison = mDocument.createElement(name);
    if (name.contains("PropertyIsBetween")) {
        const QStringList bounds = value.split(",");
        if (bounds.size() < 2) return;
        appendText(comparison, "ogc:PropertyName", field);
        QDomElement lower = mDocument.createElement("ogc:LowerBoundary");
        appendText(lower, "ogc:Literal", bounds[0]);
        comparison.appendChild(lower);
        QDomElement upper = mDocument.createElement("ogc:UpperBoundary");
        appendText(upper, "ogc:Literal", bounds[1]);
        comparison.appendChild(upper);
    } else {
        appendText(comparison, "ogc:PropertyName", field);
        appendText(comparison, "ogc:Literal", value);
    }
    filter.appendChild(comparison);
}

void TLSldFilterWriter::appendText(QDomElement& parent, const QString& name,
                                   const QString& text) const {
    QDomElement element = mDocument.createElement(name);
    element.appendChild(mDocument.createTextNode(text));
    parent.appendChild(element);
}

QString TLSldFilterWriter::comparisonElement(const QString& text) {
    if (text.contains(",")) return "ogc:PropertyIsBetween";
    if (text.contains("!=")) return "ogc:PropertyIsNotEqualTo";
    if (text.contains("<")) return "ogc:PropertyIsLessThan";
    if (text.contains(">")) return "ogc:PropertyIsGreaterThan";
    // Kept for completeness; "<" and ">" above always answer first.
    if (text.contains("<=")) return "ogc:PropertyIsLessThanOrEqualTo";
    if (text.contains(">=")) return "ogc:PropertyIsGreaterThanOrEqualTo";
    if (text.contains("NOT")) return "ogc:PropertyIsNull";
    return "ogc:PropertyIsEqualTo";
}

// Removes the words NOT and not, one at a time, and answers how many there were.
int TLSldFilterWriter::removeNegations(QString& text) {
    static const QRegularExpression word("\\b(NOT|not)\\b");
    const QRegularExpressionMatch match = word.match(text);
    if (!match.hasMatch()) return 0;
    const QString before = text.left(match.capturedStart()).trimmed();
    const QString after = text.mid(match.capturedEnd()).trimmed();
    text = (before + " " + after).trimmed();
    return 1 + removeNegations(text);
}

void TLSldFilterWriter::splitExpression(QString text, QStringList& items) {
    const bool negated = removeNegations(text) % 2 == 1;
    for (const Operator& op : kOperators) {
        const int at = text.indexOf(op.text);
        if (at < 0) continue;
        items << text.left(at) << text.mid(at + int(qstrlen(op.text)))
              << (negated ? op.negated : op.plain);
        return;
    }
}

}  // namespace TMObjects
