#include "tmgis/TLPgConnection.h"

#include <regex>

#include "tlbase/TLConnectionKeys.h"

namespace TMObjects {

namespace {

// A libpq value: bare when it is plain, else quoted with backslash escapes.
std::string value(const std::string& text) {
    if (!text.empty() && text.find_first_of(" '\\\t\n") == std::string::npos) return text;
    std::string quoted = "'";
    for (char c : text) {
        if (c == '\'' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + "'";
}

}  // namespace

TLString TLPgConnection::FromProperties(const std::map<TLString, TLString>& properties) {
    const std::pair<const TLString*, const char*> keys[] = {{&CONNECT_SERVER, "host"},
                                                            {&CONNECT_INSTANCE, "port"},
                                                            {&CONNECT_DATABASE, "dbname"},
                                                            {&CONNECT_USER, "user"},
                                                            {&CONNECT_PASSWORD, "password"}};
    std::string connection = "PG:";
    for (const auto& [key, name] : keys) {
        auto it = properties.find(*key);
        if (it == properties.end() || it->second.IsEmpty()) continue;
        if (connection.size() > 3) connection += ' ';
        connection += std::string(name) + "=" + value(it->second.toStdString());
    }
    return TLString(connection);
}

bool TLPgConnection::Names(const TLString& source) {
    const std::string text = source.toStdString();
    return text.size() >= 3 && (text[0] == 'P' || text[0] == 'p') &&
           (text[1] == 'G' || text[1] == 'g') && text[2] == ':';
}

std::string TLPgConnection::Redacted(const std::string& connection) {
    static const std::regex keyValue(R"((password\s*=\s*)('([^'\\]|\\.)*'|\S+))",
                                     std::regex::icase);
    static const std::regex uri(R"((postgres(ql)?://[^:/@\s]+:)[^@\s]*@)", std::regex::icase);
    std::string text = std::regex_replace(connection, keyValue, "$1***");
    return std::regex_replace(text, uri, "$1***@");
}

std::string TLPgConnection::ForTable(const std::string& connection, const std::string& table) {
    static const std::regex tables(R"(\s*tables\s*=\s*('([^'\\]|\\.)*'|\S+))", std::regex::icase);
    return std::regex_replace(connection, tables, "") + " tables=" + value(table);
}

std::string TLPgConnection::Identifier(const std::string& name) {
    std::string quoted = "\"";
    for (char c : name) {
        if (c == '"') quoted += '"';
        quoted += c;
    }
    return quoted + "\"";
}

std::string TLPgConnection::Literal(const std::string& text) {
    std::string quoted = "'";
    for (char c : text) {
        if (c == '\'') quoted += '\'';
        quoted += c;
    }
    return quoted + "'";
}

}  // namespace TMObjects
