#include "TLFileChecks.h"

#include <QDomDocument>
#include <QFile>

#include "tlsymbol/TLStyleLibraryFile.h"

namespace TMObjects {

namespace {

std::string asQuoted(const std::string& text) {
    return "\"" + text + "\"";
}

bool readAll(const std::string& path, QByteArray& bytes) {
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly)) return false;
    bytes = file.readAll();
    return true;
}

}  // namespace

bool TLFileChecks::Knows(const std::string& what) {
    return what == "file" || what == "library";
}

bool TLFileChecks::Run(const TLSessionCommand& c, std::string& failure, std::string& error) {
    return c.words[0] == "file" ? file(c, failure, error) : library(c, failure, error);
}

bool TLFileChecks::file(const TLSessionCommand& c, std::string& failure, std::string& error) {
    const char* usage = "expect file PATH missing|contains \"T\"|lacks \"T\"|same-as OTHER|rules N";
    if (!c.Expect(3, 1000, usage, error) ||
        !c.Choice(2, "missing|contains|lacks|same-as|rules", usage, error))
        return false;
    const std::string& how = c.words[2];
    int rules = 0;
    if ((how != "missing" && !c.Expect(4, 1000, usage, error)) ||
        (how == "rules" && !c.Integer(3, rules, error)))
        return false;
    if (mSession.Dry()) return true;
    const std::string path = mSession.Resolve(c.words[1]).string();
    QByteArray bytes;
    const bool exists = readAll(path, bytes);
    if (how == "missing") {
        if (exists) failure = "expected no file " + asQuoted(c.words[1]) + ", got one";
        return true;
    }
    if (!exists) {
        failure = "expected a file " + asQuoted(c.words[1]) + ", got none";
        return true;
    }
    if (how == "contains" || how == "lacks") {
        const std::string text = c.Rest(3);
        const bool holds = bytes.contains(QByteArray::fromStdString(text));
        if (holds != (how == "contains"))
            failure = "expected " + asQuoted(c.words[1]) + (holds ? " without " : " to hold ") +
                      asQuoted(text) + ", got " + (holds ? "it" : "none");
    } else if (how == "same-as") {
        QByteArray other;
        if (!readAll(mSession.Resolve(c.words[3]).string(), other) || other != bytes)
            failure = "expected " + asQuoted(c.words[1]) + " the same as " + asQuoted(c.words[3]) +
                      ", got another file";
    } else {
        QDomDocument document;
        const int have =
            document.setContent(bytes, true)
                ? document.elementsByTagNameNS("http://www.opengis.net/sld", "Rule").count()
                : -1;
        if (have != rules)
            failure = "expected " + std::to_string(rules) + " rules in " + asQuoted(c.words[1]) +
                      ", got " +
                      (have < 0 ? std::string("no readable document") : std::to_string(have));
    }
    return true;
}

bool TLFileChecks::library(const TLSessionCommand& c, std::string& failure, std::string& error) {
    if (!c.Expect(3, 1000, "expect library PATH \"NAME, NAME\"", error)) return false;
    if (mSession.Dry()) return true;
    std::vector<TLRefPtr<TLStyle>> styles;
    TLString why;
    if (!TLStyleLibraryFile::Read(TLString(mSession.Resolve(c.words[1]).string()), styles, why)) {
        failure =
            "expected a symbol library " + asQuoted(c.words[1]) + ", got " + why.toStdString();
        return true;
    }
    std::string names;
    for (const TLRefPtr<TLStyle>& style : styles)
        names += (names.empty() ? "" : ", ") + style->GetName().toStdString();
    if (names != c.Rest(2))
        failure = "expected the styles " + asQuoted(c.Rest(2)) + ", got " + asQuoted(names);
    return true;
}

}  // namespace TMObjects
