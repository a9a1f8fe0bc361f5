#include "tmgis/TLDataRecovery.h"

#include <cmath>
#include <filesystem>

#include "tmgis/TLFileSwap.h"
#include "tmgis/TLSqliteFile.h"

namespace TMObjects {

namespace fs = std::filesystem;

namespace {

using Q = TLSqliteFile;

std::string countTrigger(const std::string& table, bool insert) {
    const std::string name =
        std::string(insert ? "trigger_insert_feature_count_" : "trigger_delete_feature_count_") +
        table;
    return "CREATE TRIGGER " + Q::Identifier(name) +
           (insert ? " AFTER INSERT ON " : " AFTER DELETE ON ") + Q::Identifier(table) +
           " BEGIN UPDATE gpkg_ogr_contents SET feature_count = " + "feature_count " +
           (insert ? "+" : "-") + " 1 WHERE lower(table_name) = lower(" + Q::Literal(table) +
           "); END;";
}

bool hasTrigger(TLSqliteFile& file, const std::string& name) {
    return file.Any("SELECT 1 FROM sqlite_master WHERE type = 'trigger' AND name = " +
                    Q::Literal(name));
}

// The table's extent in gpkg_contents grown to take in its spatial index, as GDAL would have
// written it: never shrunk, since GDAL does not shrink it either.
bool growExtent(TLSqliteFile& file, const std::string& table) {
    const std::vector<std::string> columns = file.Column(
        "SELECT column_name FROM gpkg_geometry_columns WHERE lower(table_name) = lower(" +
        Q::Literal(table) + ")");
    if (columns.empty()) return true;
    const std::string rtree = "rtree_" + table + "_" + columns.front();
    if (!file.Any("SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = " +
                  Q::Literal(rtree)))
        return true;
    const std::string where = " WHERE lower(table_name) = lower(" + Q::Literal(table) + ")";
    const std::vector<double> index = file.Numbers(
        "SELECT min(minx), min(miny), max(maxx), max(maxy) FROM " + Q::Identifier(rtree));
    std::vector<double> extent =
        file.Numbers("SELECT min_x, min_y, max_x, max_y FROM gpkg_contents" + where);
    if (index.size() != 4 || extent.size() != 4 || std::isnan(index[0])) return true;
    for (int i = 0; i < 4; ++i)
        if (std::isnan(extent[i]) || (i < 2 ? index[i] < extent[i] : index[i] > extent[i]))
            extent[i] = index[i];
    return file.ExecWith(
        "UPDATE gpkg_contents SET min_x = ?, min_y = ?, max_x = ?, max_y = ?" + where, extent);
}

// A table whose records GDAL left half written: brought in line with its rows.
bool repairTable(TLSqliteFile& file, const std::string& table) {
    const std::string literal = Q::Literal(table);
    if (!file.Exec("UPDATE gpkg_ogr_contents SET feature_count = (SELECT count(*) FROM " +
                   Q::Identifier(table) + ") WHERE lower(table_name) = lower(" + literal + ")"))
        return false;
    for (bool insert : {true, false}) {
        const std::string name = std::string(insert ? "trigger_insert_feature_count_"
                                                    : "trigger_delete_feature_count_") +
                                 table;
        if (!hasTrigger(file, name) && !file.Exec(countTrigger(table, insert))) return false;
    }
    return growExtent(file, table);
}

// Tables with geometry whose count is unknown or whose count triggers are gone: GDAL drops both
// while it writes many features, and puts them back once it has written them. A table without
// geometry may have neither by GDAL's own choice, and is left as it is.
std::vector<std::string> halfWritten(TLSqliteFile& file) {
    std::vector<std::string> tables;
    if (!file.Any("SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = "
                  "'gpkg_ogr_contents'"))
        return tables;
    for (const std::string& table : file.Column("SELECT table_name FROM gpkg_ogr_contents")) {
        const bool unknown = file.Any(
            "SELECT 1 FROM gpkg_ogr_contents WHERE feature_count IS NULL AND table_name = " +
            Q::Literal(table));
        const bool exists = file.Any(
            "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = " + Q::Literal(table));
        const bool spatial =
            file.Any("SELECT 1 FROM gpkg_geometry_columns WHERE lower(table_name) = lower(" +
                     Q::Literal(table) + ")");
        if (exists && spatial &&
            (unknown || !hasTrigger(file, "trigger_insert_feature_count_" + table) ||
             !hasTrigger(file, "trigger_delete_feature_count_" + table)))
            tables.push_back(table);
    }
    return tables;
}

}  // namespace

void TLDataRecovery::Recover(const std::string& path, std::vector<std::string>& said) {
    std::error_code failed;
    const fs::path given(path);
    if (fs::is_directory(given, failed)) {
        TLFileSwap::Recover(given, said);
        return;
    }
    if (!fs::is_regular_file(given, failed)) return;  // a database, or a name GDAL resolves
    TLFileSwap::Recover(given.has_parent_path() ? given.parent_path() : fs::path("."), said);
    if (TLSqliteFile::IsSqlite(path)) recoverGeoPackage(path, said);
}

void TLDataRecovery::recoverGeoPackage(const std::string& path, std::vector<std::string>& said) {
    const bool journal = TLSqliteFile::HasHotJournal(path);
    TLSqliteFile file;
    if (!file.Open(path, true)) {
        if (journal)
            said.push_back(path +
                           " was left by a save that was interrupted, and cannot be "
                           "opened for writing to take that save back: " +
                           file.Error());
        return;
    }
    // The first reading of a writable connection rolls a hot journal back.
    if (!file.Exec("SELECT count(*) FROM sqlite_master")) {
        said.push_back("cannot read " + path + ": " + file.Error());
        return;
    }
    if (journal && !TLSqliteFile::HasHotJournal(path))
        said.push_back("a save to " + path +
                       " was interrupted; it was taken back, the file is as it was before it");
    const std::vector<std::string> tables = halfWritten(file);
    if (tables.empty()) return;
    if (!file.Exec("BEGIN IMMEDIATE")) {
        said.push_back("cannot repair " + path + ": " + file.Error());
        return;
    }
    bool repaired = true;
    for (const std::string& table : tables) repaired = repaired && repairTable(file, table);
    if (!repaired || !file.Exec("COMMIT")) {
        said.push_back("cannot repair " + path + ": " + file.Error());
        file.Exec("ROLLBACK");
        return;
    }
    for (const std::string& table : tables)
        said.push_back("the records of layer " + table + " in " + path +
                       " (feature count, extent) were left unfinished by an interrupted save; "
                       "they were written anew from its features");
}

}  // namespace TMObjects
