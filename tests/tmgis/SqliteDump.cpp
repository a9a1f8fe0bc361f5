#include "SqliteDump.h"

#include <sqlite3.h>

#include <cstdio>
#include <vector>

namespace TMObjects {

namespace {

std::string cell(sqlite3_stmt* statement, int i) {
    switch (sqlite3_column_type(statement, i)) {
        case SQLITE_NULL:
            return "NULL";
        case SQLITE_INTEGER:
            return std::to_string(sqlite3_column_int64(statement, i));
        case SQLITE_FLOAT: {
            char text[40];
            std::snprintf(text, sizeof text, "%.17g", sqlite3_column_double(statement, i));
            return text;
        }
        case SQLITE_TEXT:
            return "'" +
                   std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement, i))) +
                   "'";
        default: {
            const auto* bytes =
                static_cast<const unsigned char*>(sqlite3_column_blob(statement, i));
            std::string hex = "x'";
            for (int k = 0; k < sqlite3_column_bytes(statement, i); ++k) {
                char pair[3];
                std::snprintf(pair, sizeof pair, "%02x", bytes[k]);
                hex += pair;
            }
            return hex + "'";
        }
    }
}

std::string rows(sqlite3* db, const std::string& sql) {
    std::string text;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
        return "cannot read: " + sql + ": " + sqlite3_errmsg(db) + "\n";
    while (sqlite3_step(statement) == SQLITE_ROW) {
        for (int i = 0; i < sqlite3_column_count(statement); ++i)
            text += (i ? "|" : "") + cell(statement, i);
        text += "\n";
    }
    sqlite3_finalize(statement);
    return text;
}

}  // namespace

std::string SqliteDump(const std::string& path) {
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
        sqlite3_close(db);
        return "cannot open " + path;
    }
    std::string dump =
        rows(db, "SELECT type, name, tbl_name, sql FROM sqlite_master ORDER BY name");
    std::vector<std::string> tables;
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db,
                       "SELECT name FROM sqlite_master WHERE type = 'table' AND sql NOT LIKE "
                       "'%VIRTUAL%' ORDER BY name",
                       -1, &statement, nullptr);
    while (statement && sqlite3_step(statement) == SQLITE_ROW)
        tables.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    sqlite3_finalize(statement);
    for (const std::string& table : tables)
        dump += "-- " + table + "\n" + rows(db, "SELECT * FROM \"" + table + "\" ORDER BY 1");
    sqlite3_close(db);
    return dump;
}

std::string DumpDifference(const std::string& was, const std::string& is) {
    if (was == is) return {};
    std::size_t at = 0;
    while (at < was.size() && at < is.size() && was[at] == is[at]) ++at;
    const std::size_t line = was.rfind('\n', at) == std::string::npos ? 0 : was.rfind('\n', at) + 1;
    auto lineOf = [&](const std::string& text) {
        return text.substr(line, std::min<std::size_t>(text.find('\n', line) - line, 300));
    };
    return "was: " + lineOf(was) + "\nnow: " + lineOf(is);
}

}  // namespace TMObjects
