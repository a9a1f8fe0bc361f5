#pragma once

#include <sqlite3.h>

#include <string>
#include <vector>

namespace TMObjects {

// A plain SQLite connection to a GeoPackage, beside GDAL's: for what GDAL does not offer, reading
// and putting back the rows GDAL keeps about a table, and recovering a file a killed program
// left. Statements run with no busy wait, so that a file someone else holds fails at once.
class TLSqliteFile {
public:
    TLSqliteFile() = default;
    ~TLSqliteFile();
    TLSqliteFile(const TLSqliteFile&) = delete;
    TLSqliteFile& operator=(const TLSqliteFile&) = delete;

    // Whether the file begins as an SQLite database does.
    static bool IsSqlite(const std::string& path);
    // A hot journal: a save that was killed before it ended left it, and until a writable
    // connection rolls it back, read-only opens of the file fail.
    static bool HasHotJournal(const std::string& path);

    bool Open(const std::string& path, bool writable);
    bool Exec(const std::string& sql);
    // The first column of each row of `sql`, as text ("" for NULL).
    std::vector<std::string> Column(const std::string& sql);
    // The columns of the first row of `sql` as numbers, NaN for NULL; empty without a row.
    std::vector<double> Numbers(const std::string& sql);
    // Runs `sql` with `values` bound to its parameters in order.
    bool ExecWith(const std::string& sql, const std::vector<double>& values);
    // Whether `sql` gives at least one row.
    bool Any(const std::string& sql);
    const std::string& Error() const { return mError; }
    sqlite3* Handle() const { return mDb; }
    // `text` as an SQL string literal.
    static std::string Literal(const std::string& text);
    // `name` as an SQL identifier.
    static std::string Identifier(const std::string& name);

private:
    bool fail();
    sqlite3* mDb = nullptr;
    std::string mError;
};

}  // namespace TMObjects
