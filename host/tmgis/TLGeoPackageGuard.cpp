#include "tmgis/TLGeoPackageGuard.h"

#include <sqlite3.h>

#include <cstring>

#include "tmgis/TLSqliteFile.h"

namespace TMObjects {

// One record as it was: its table, rowid, and each column's name and value.
struct TLGeoPackageGuard::Row {
    std::string metadata;
    sqlite3_int64 rowid = 0;
    std::vector<std::string> columns;
    std::vector<sqlite3_value*> values;
    ~Row() {
        for (sqlite3_value* v : values) sqlite3_value_free(v);
    }
};

namespace {

bool sameValue(sqlite3_value* a, sqlite3_value* b) {
    const int type = sqlite3_value_type(a);
    if (type != sqlite3_value_type(b)) return false;
    switch (type) {
        case SQLITE_NULL:
            return true;
        case SQLITE_INTEGER:
            return sqlite3_value_int64(a) == sqlite3_value_int64(b);
        case SQLITE_FLOAT: {
            const double x = sqlite3_value_double(a), y = sqlite3_value_double(b);
            return std::memcmp(&x, &y, sizeof x) == 0;
        }
        default: {
            const int size = sqlite3_value_bytes(a);
            const void* pa = type == SQLITE_BLOB ? sqlite3_value_blob(a) : sqlite3_value_text(a);
            const int sizeB = sqlite3_value_bytes(b);
            const void* pb = type == SQLITE_BLOB ? sqlite3_value_blob(b) : sqlite3_value_text(b);
            return size == sizeB && (size == 0 || std::memcmp(pa, pb, size_t(size)) == 0);
        }
    }
}

}  // namespace

TLGeoPackageGuard::TLGeoPackageGuard() = default;
TLGeoPackageGuard::~TLGeoPackageGuard() = default;

bool TLGeoPackageGuard::Take(const std::string& path, const std::string& table) {
    mPath = path;
    mTable = table;
    mRows.clear();
    mTaken = false;
    if (!TLSqliteFile::IsSqlite(path)) return false;
    TLSqliteFile file;
    if (!file.Open(path, false)) return false;
    if (!file.Exec("BEGIN")) return false;  // one consistent reading
    mTaken = takeRows(file, "gpkg_contents") && takeRows(file, "gpkg_ogr_contents");
    mTriggers = triggers(file);
    file.Exec("COMMIT");
    return mTaken;
}

bool TLGeoPackageGuard::takeRows(TLSqliteFile& file, const std::string& metadata) {
    if (!file.Any("SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = " +
                  TLSqliteFile::Literal(metadata)))
        return metadata != "gpkg_contents";  // the count table is GDAL's own, and optional
    sqlite3_stmt* statement = nullptr;
    const std::string sql = "SELECT rowid, * FROM " + metadata +
                            " WHERE lower(table_name) = lower(" + TLSqliteFile::Literal(mTable) +
                            ")";
    if (sqlite3_prepare_v2(file.Handle(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
        return false;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        auto row = std::make_unique<Row>();
        row->metadata = metadata;
        row->rowid = sqlite3_column_int64(statement, 0);
        for (int i = 1; i < sqlite3_column_count(statement); ++i) {
            row->columns.emplace_back(sqlite3_column_name(statement, i));
            row->values.push_back(sqlite3_value_dup(sqlite3_column_value(statement, i)));
        }
        mRows.push_back(std::move(row));
    }
    sqlite3_finalize(statement);
    return true;
}

std::set<std::string> TLGeoPackageGuard::triggers(TLSqliteFile& file) {
    std::set<std::string> found;
    const std::string where =
        " FROM sqlite_master WHERE type = 'trigger' AND lower(tbl_name) = "
        "lower(" +
        TLSqliteFile::Literal(mTable) + ") ORDER BY name";
    const std::vector<std::string> names = file.Column("SELECT name" + where);
    const std::vector<std::string> sqls = file.Column("SELECT sql" + where);
    for (std::size_t i = 0; i < names.size() && i < sqls.size(); ++i)
        found.insert(names[i] + "\n" + sqls[i]);
    return found;
}

TLGeoPackageGuard::Outcome TLGeoPackageGuard::Restore(std::string& why) {
    if (!mTaken) return Unchanged;
    TLSqliteFile file;
    // Opening for writing also rolls back a journal the failed save may have left.
    if (!file.Open(mPath, true) || !file.Exec("BEGIN IMMEDIATE")) {
        why = file.Error();
        return NotPutBack;
    }
    bool changed = false;
    bool written = true;
    for (const auto& row : mRows) written = written && restoreRow(file, *row, changed);
    written = written && restoreTriggers(file, changed);
    if (!written || !file.Exec(changed ? "COMMIT" : "ROLLBACK")) {
        why = file.Error();
        file.Exec("ROLLBACK");
        return NotPutBack;
    }
    return changed ? PutBack : Unchanged;
}

bool TLGeoPackageGuard::restoreRow(TLSqliteFile& file, const Row& row, bool& changed) {
    sqlite3_stmt* statement = nullptr;
    const std::string select =
        "SELECT * FROM " + row.metadata + " WHERE rowid = " + std::to_string(row.rowid);
    if (sqlite3_prepare_v2(file.Handle(), select.c_str(), -1, &statement, nullptr) != SQLITE_OK)
        return false;
    bool same = sqlite3_step(statement) == SQLITE_ROW &&
                sqlite3_column_count(statement) == int(row.values.size());
    for (int i = 0; same && i < int(row.values.size()); ++i)
        same = sameValue(sqlite3_column_value(statement, i), row.values[i]);
    sqlite3_finalize(statement);
    if (same) return true;
    changed = true;
    std::string names = "rowid", marks = "?1";
    for (std::size_t i = 0; i < row.columns.size(); ++i) {
        names += ", " + TLSqliteFile::Identifier(row.columns[i]);
        marks += ", ?" + std::to_string(i + 2);
    }
    const std::string put =
        "INSERT OR REPLACE INTO " + row.metadata + " (" + names + ") VALUES (" + marks + ")";
    if (sqlite3_prepare_v2(file.Handle(), put.c_str(), -1, &statement, nullptr) != SQLITE_OK)
        return false;
    sqlite3_bind_int64(statement, 1, row.rowid);
    for (std::size_t i = 0; i < row.values.size(); ++i)
        sqlite3_bind_value(statement, int(i) + 2, row.values[i]);
    const bool done = sqlite3_step(statement) == SQLITE_DONE;
    sqlite3_finalize(statement);
    return done;
}

bool TLGeoPackageGuard::restoreTriggers(TLSqliteFile& file, bool& changed) {
    const std::set<std::string> now = triggers(file);
    for (const std::string& trigger : now) {
        if (mTriggers.count(trigger)) continue;
        changed = true;
        const std::string name = trigger.substr(0, trigger.find('\n'));
        if (!file.Exec("DROP TRIGGER " + TLSqliteFile::Identifier(name))) return false;
    }
    for (const std::string& trigger : mTriggers) {
        if (now.count(trigger)) continue;
        changed = true;
        if (!file.Exec(trigger.substr(trigger.find('\n') + 1))) return false;
    }
    return true;
}

}  // namespace TMObjects
