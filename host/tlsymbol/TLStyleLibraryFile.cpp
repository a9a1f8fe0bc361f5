#include "tlsymbol/TLStyleLibraryFile.h"

#include <sqlite3.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include "tlsymbol/TLFileFunc.h"
#include "tlsymbol/TLStyleFactory.h"

namespace TMObjects {

namespace {

struct CloseDatabase {
    void operator()(sqlite3* db) const { sqlite3_close(db); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;

struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

std::string quoted(const TLString& path) {
    return "\"" + path.toStdString() + "\"";
}

Statement prepare(sqlite3* db, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) != SQLITE_OK) return Statement();
    return Statement(statement);
}

// The single integer a pragma answers; false when the database cannot be read.
bool pragmaValue(sqlite3* db, const char* sql, int& value) {
    Statement statement = prepare(db, sql);
    if (!statement || sqlite3_step(statement.get()) != SQLITE_ROW) return false;
    value = sqlite3_column_int(statement.get(), 0);
    return true;
}

// SQLite reads a page cut short as if its missing end were zeros, so a file cut inside its last
// page would pass for whole: its size must be the pages its header counts.
bool wholeFile(sqlite3* db, const TLString& path, std::string& error) {
    int pageSize = 0, pageCount = 0;
    std::error_code failed;
    const auto size =
        std::filesystem::file_size(std::filesystem::u8path(path.toStdString()), failed);
    if (!pragmaValue(db, "PRAGMA page_size", pageSize) ||
        !pragmaValue(db, "PRAGMA page_count", pageCount)) {
        error = quoted(path) + " is damaged: " + sqlite3_errmsg(db);
        return false;
    }
    if (failed || size != std::uintmax_t(pageSize) * std::uintmax_t(pageCount)) {
        error = quoted(path) + " is damaged: it is cut short (" + std::to_string(size) +
                " bytes of " + std::to_string(std::uintmax_t(pageSize) * pageCount) + ")";
        return false;
    }
    return true;
}

bool readRows(sqlite3* db, const TLString& path, std::vector<TLRefPtr<TLStyle>>& styles,
              std::string& error) {
    Statement rows = prepare(db, "SELECT id, name, body FROM styles ORDER BY id");
    if (!rows) {
        error = quoted(path) + " is no symbol library: it has no table of styles";
        return false;
    }
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(rows.get())) == SQLITE_ROW) {
        const long long id = sqlite3_column_int64(rows.get(), 0);
        const char* name = reinterpret_cast<const char*>(sqlite3_column_text(rows.get(), 1));
        const char* body = static_cast<const char*>(sqlite3_column_blob(rows.get(), 2));
        TLFileFunc file(std::string(body ? body : "", size_t(sqlite3_column_bytes(rows.get(), 2))));
        TLRefPtr<TLStyle> style;
        if (!TLStyleFactory::Open(file, style) || !style || !file.AtEnd() || !name ||
            style->GetName() != TLString(std::string(name))) {
            error = quoted(path) + " is damaged: style " + std::to_string(id) +
                    (name ? " (\"" + std::string(name) + "\")" : std::string()) +
                    " does not read back";
            return false;
        }
        styles.push_back(style);
    }
    if (step != SQLITE_DONE) {
        error = quoted(path) + " is damaged: " + sqlite3_errmsg(db);
        return false;
    }
    return true;
}

bool execute(sqlite3* db, const char* sql, std::string& error) {
    char* message = nullptr;
    if (sqlite3_exec(db, sql, nullptr, nullptr, &message) == SQLITE_OK) return true;
    error = message ? message : sqlite3_errmsg(db);
    sqlite3_free(message);
    return false;
}

bool writeRows(sqlite3* db, const std::vector<TLRefPtr<TLStyle>>& styles, std::string& error) {
    const std::string schema =
        "PRAGMA application_id = " + std::to_string(TLStyleLibraryFile::ApplicationId) +
        "; PRAGMA user_version = " + std::to_string(TLStyleLibraryFile::FormatVersion) +
        "; BEGIN;"
        " CREATE TABLE library (key TEXT PRIMARY KEY, value TEXT NOT NULL);"
        " INSERT INTO library VALUES ('format', '" +
        std::to_string(TLStyleLibraryFile::FormatVersion) +
        "'), ('writer', 'tlpluginactionex host');"
        " CREATE TABLE styles (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE,"
        " family INTEGER NOT NULL, type_id INTEGER NOT NULL, kind TEXT NOT NULL,"
        " body BLOB NOT NULL);";
    if (!execute(db, schema.c_str(), error)) return false;
    Statement insert = prepare(
        db, "INSERT INTO styles (name, family, type_id, kind, body) VALUES (?, ?, ?, ?, ?)");
    if (!insert) {
        error = sqlite3_errmsg(db);
        return false;
    }
    for (const TLRefPtr<TLStyle>& style : styles) {
        TLFileFunc file;
        TLStyleFactory::Save(file, style);
        const std::string name = style->GetName().toStdString();
        sqlite3_reset(insert.get());
        sqlite3_bind_text(insert.get(), 1, name.c_str(), int(name.size()), SQLITE_TRANSIENT);
        sqlite3_bind_int(insert.get(), 2, style->GetClassType());
        sqlite3_bind_int(insert.get(), 3, style->GetTypeID());
        sqlite3_bind_text(insert.get(), 4, TLStyleFactory::TypeName(style->GetTypeID()), -1,
                          SQLITE_STATIC);
        sqlite3_bind_blob(insert.get(), 5, file.Bytes().data(), int(file.Bytes().size()),
                          SQLITE_TRANSIENT);
        if (sqlite3_step(insert.get()) != SQLITE_DONE) {
            error = "style \"" + name + "\": " + sqlite3_errmsg(db);
            return false;
        }
    }
    return execute(db, "COMMIT", error);
}

}  // namespace

bool TLStyleLibraryFile::Read(const TLString& path, std::vector<TLRefPtr<TLStyle>>& styles,
                              TLString& error) {
    sqlite3* handle = nullptr;
    const int opened =
        sqlite3_open_v2(path.toStdString().c_str(), &handle, SQLITE_OPEN_READONLY, nullptr);
    Database db(handle);
    std::string problem;
    int application = 0, version = 0;
    if (opened != SQLITE_OK) {
        problem = quoted(path) +
                  " cannot be opened: " + (handle ? sqlite3_errmsg(handle) : "out of memory");
    } else if (!pragmaValue(db.get(), "PRAGMA application_id", application) ||
               !pragmaValue(db.get(), "PRAGMA user_version", version)) {
        // A library cut short or overwritten in part is damage; anything else is another file.
        problem = quoted(path) +
                  (sqlite3_errcode(db.get()) == SQLITE_CORRUPT ? " is damaged: "
                                                               : " is no symbol library: ") +
                  sqlite3_errmsg(db.get());
    } else if (application != ApplicationId || version < 1) {
        problem = quoted(path) + " is no symbol library";
    } else if (version > FormatVersion) {
        problem = quoted(path) + " was written by a newer version of the symbol library (format " +
                  std::to_string(version) + "); this host reads format " +
                  std::to_string(FormatVersion) + " and older";
    } else {
        std::vector<TLRefPtr<TLStyle>> read;
        if (wholeFile(db.get(), path, problem) && readRows(db.get(), path, read, problem)) {
            styles = std::move(read);
            return true;
        }
    }
    error = TLString(problem);
    return false;
}

bool TLStyleLibraryFile::Write(const TLString& path, const std::vector<TLRefPtr<TLStyle>>& styles,
                               TLString& error) {
    const std::string target = path.toStdString();
    const std::string partial = target + ".writing-" + std::to_string(getpid());
    std::remove(partial.c_str());
    std::string problem;
    {
        sqlite3* handle = nullptr;
        const int opened = sqlite3_open_v2(partial.c_str(), &handle,
                                           SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
        Database db(handle);
        if (opened != SQLITE_OK)
            problem = handle ? sqlite3_errmsg(handle) : "out of memory";
        else
            writeRows(db.get(), styles, problem);
    }
    if (problem.empty() && std::rename(partial.c_str(), target.c_str()) != 0)
        problem = "it cannot replace the file";
    if (problem.empty()) return true;
    std::remove(partial.c_str());
    std::remove((partial + "-journal").c_str());
    error = TLString(quoted(path) + " could not be written: " + problem);
    return false;
}

}  // namespace TMObjects
