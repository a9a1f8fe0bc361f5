#pragma once

#include <QByteArray>
#include <QDomDocument>

namespace TMObjects {

// The text of a style document, the same bytes every time for the same document: elements
// indented by two, and each element's attributes in one fixed order (those of the root, of a
// colour entry and of an online resource in the order they are set, then "name", then any
// other alphabetically). The toolkit's own writer puts attributes in the order of a hash seeded
// anew in every process, so that two exports of one map would differ.
class TLSldXmlText {
public:
    static QByteArray toBytes(const QDomDocument& document);
};

}  // namespace TMObjects
