#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace TMObjects {

class TLSqliteFile;

// What GDAL keeps about one table of a GeoPackage beside its rows: the table's record in
// gpkg_contents (extent, time of the last change), its count in gpkg_ogr_contents, and the
// triggers on it. When a save fails part-way (a full disk), SQLite takes the transaction back,
// but GDAL goes on writing these records in statements of their own, so that the file tells of
// features it does not hold. The guard reads them before a save and puts them back after a failed
// one, once GDAL has let the file go.
class TLGeoPackageGuard {
public:
    TLGeoPackageGuard();
    ~TLGeoPackageGuard();

    // Reads the records of `table`; false, and nothing guarded, for a file that is no GeoPackage.
    bool Take(const std::string& path, const std::string& table);

    enum Outcome { Unchanged, PutBack, NotPutBack };
    // Compares the records with those taken and writes back what differs, in one transaction.
    // NotPutBack comes with the reason in `why`.
    Outcome Restore(std::string& why);

private:
    struct Row;
    bool takeRows(TLSqliteFile& file, const std::string& metadata);
    bool restoreRow(TLSqliteFile& file, const Row& row, bool& changed);
    bool restoreTriggers(TLSqliteFile& file, bool& changed);
    std::set<std::string> triggers(TLSqliteFile& file);

    std::string mPath;
    std::string mTable;
    std::vector<std::unique_ptr<Row>> mRows;
    std::set<std::string> mTriggers;  // name and SQL, joined by a newline
    bool mTaken = false;
};

}  // namespace TMObjects
