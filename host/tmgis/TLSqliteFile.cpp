#include "tmgis/TLSqliteFile.h"

#include <cmath>
#include <filesystem>
#include <fstream>

namespace TMObjects {

TLSqliteFile::~TLSqliteFile() {
    if (mDb) sqlite3_close_v2(mDb);
}

bool TLSqliteFile::IsSqlite(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    char header[16] = {};
    return in.read(header, sizeof header) && std::string(header, 15) == "SQLite format 3";
}

bool TLSqliteFile::HasHotJournal(const std::string& path) {
    std::error_code failed;
    const std::string journal = path + "-journal";
    return std::filesystem::is_regular_file(journal, failed) &&
           std::filesystem::file_size(journal, failed) > 0 && !failed;
}

bool TLSqliteFile::Open(const std::string& path, bool writable) {
    const int flags = writable ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY;
    if (sqlite3_open_v2(path.c_str(), &mDb, flags, nullptr) != SQLITE_OK) return fail();
    return true;
}

bool TLSqliteFile::fail() {
    mError = mDb ? sqlite3_errmsg(mDb) : "out of memory";
    return false;
}

bool TLSqliteFile::Exec(const std::string& sql) {
    return sqlite3_exec(mDb, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK || fail();
}

std::vector<std::string> TLSqliteFile::Column(const std::string& sql) {
    std::vector<std::string> values;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(mDb, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
        fail();
        return values;
    }
    while (sqlite3_step(statement) == SQLITE_ROW) {
        const unsigned char* text = sqlite3_column_text(statement, 0);
        values.emplace_back(text ? reinterpret_cast<const char*>(text) : "");
    }
    sqlite3_finalize(statement);
    return values;
}

std::vector<double> TLSqliteFile::Numbers(const std::string& sql) {
    std::vector<double> values;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(mDb, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
        fail();
        return values;
    }
    if (sqlite3_step(statement) == SQLITE_ROW)
        for (int i = 0; i < sqlite3_column_count(statement); ++i)
            values.push_back(sqlite3_column_type(statement, i) == SQLITE_NULL
                                 ? std::nan("")
                                 : sqlite3_column_double(statement, i));
    sqlite3_finalize(statement);
    return values;
}

bool TLSqliteFile::ExecWith(const std::string& sql, const std::vector<double>& values) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(mDb, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) return fail();
    for (std::size_t i = 0; i < values.size(); ++i)
        sqlite3_bind_double(statement, int(i) + 1, values[i]);
    const bool done = sqlite3_step(statement) == SQLITE_DONE;
    sqlite3_finalize(statement);
    return done || fail();
}

bool TLSqliteFile::Any(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(mDb, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) return fail();
    const bool row = sqlite3_step(statement) == SQLITE_ROW;
    sqlite3_finalize(statement);
    return row;
}

std::string TLSqliteFile::Literal(const std::string& text) {
    std::string quoted = "'";
    for (char c : text) {
        if (c == '\'') quoted += '\'';
        quoted += c;
    }
    return quoted + "'";
}

std::string TLSqliteFile::Identifier(const std::string& name) {
    std::string quoted = "\"";
    for (char c : name) {
        if (c == '"') quoted += '"';
        quoted += c;
    }
    return quoted + "\"";
}

}  // namespace TMObjects
