#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "tlsde/TLSharedFeatureStore.h"

class GDALDataset;
class OGRFeature;
class OGRLayer;

namespace TMObjects {

class TLGdalCall;

// A table's store in a PostgreSQL/PostGIS table, through GDAL's PostgreSQL driver, shared with
// every other editor of that table.
//
// Reading. A small table is read whole at its first use. A large one is read by region: each
// request for a rectangle not yet read fetches the rows whose bounds meet it (grown by half its
// size on every side, so that a short pan needs nothing new) through the spatial index of the
// geometry column; rows read once are not read again, so that edits at hand are never written
// over by a read.
//
// Saving. Each row read carries its version (the server's xmin: the transaction that last wrote
// it). A save is one transaction that first locks the rows it is to change and compares their
// versions with those read: a row that another editor changed or deleted since is a conflict,
// and one conflict refuses the whole save, naming every conflicting feature. Nothing is written
// then, and the table keeps every pending edit. A row the user deletes that is gone already is
// no conflict. A change that leaves a row as it is stored is not written, so that a feature read
// again (after a conflict, or by a refresh) costs nothing to save and gives other editors no
// conflict. A killed host or a lost connection leaves an open transaction that the server
// rolls back: the table is as it was.
//
// Ids. A new feature takes its id from the sequence of the id column at once, when it is added,
// so that two editors never give one id twice and ids are never reused.
//
// The connection. One per store, opened on first need; a statement that fails drops it, and the
// next use connects anew. A save that finds the connection broken connects once more before it
// gives up with a message that says the server cannot be reached and that the edits are kept.
class TLPgFeatureStore : public TLSharedFeatureStore {
public:
    struct Table {
        std::string connection;  // "PG:...", password included
        std::string layer;       // GDAL's name: "roads", or "schema.roads" outside "public"
        std::string schema;
        std::string name;
        std::string idColumn;
        std::string geometryColumn;
        int srid = 0;
    };

    // `readWhole`: the table is read entire at its first use instead of by region.
    TLPgFeatureStore(Table table, bool readWhole);
    ~TLPgFeatureStore() override;

    TLString GetWorkspaceType() const override;  // "PGis"
    // The connection without its password, and the table: "PG:host=... dbname=... roads".
    TLString GetPath() const override;
    // The connection as given, password included: to open the database again, never to show.
    const std::string& GetConnection() const { return mTable.connection; }
    bool ReadsWhole() const { return mReadWhole; }
    // Asks the server for the bounds of the whole table (its estimate when it has statistics),
    // which Extent then answers.
    bool ReadExtent(std::string& why);
    // What the last read on demand could not do; empty after a read that worked.
    const TLString& LastReadError() const { return mReadError; }

    bool Commit(const TLFeatureTable& table, const std::vector<TLFeatureChange>& changes,
                TLString& error) override;
    void Fetch(TLFeatureTable& table, const TLRect& rect) override;
    bool Extent(TLRect& rect) const override;
    int NewId() override;
    std::vector<int> Conflicts() const override { return mConflicts; }
    bool Reload(TLFeatureTable& table, const std::vector<int>& ids, TLString& error) override;
    bool Refresh(TLFeatureTable& table, TLString& error) override;

    // Reads the rows WHERE `condition` (all rows when empty) and hands each to `row` with its id
    // and version. False with the reason when the server refuses or cannot be reached.
    using Row = std::function<void(int id, std::uint32_t version, TLFeature feature)>;
    bool Read(const TLFeatureTable& table, const std::string& condition, const Row& row,
              std::string& why);

private:
    GDALDataset* connection(std::string& why);
    void disconnect();
    // Runs a query, handing every result row to `row`; on failure the connection is dropped.
    bool query(GDALDataset& dataset, const std::string& sql,
               const std::function<void(OGRFeature&)>& row, std::string& why);
    std::string qualified() const;
    std::string envelope(const TLRect& rect) const;
    bool begin(GDALDataset*& dataset, std::string& why);
    // The versions of rows, locked for this transaction when `lock`; a row that is gone is
    // missing from the answer.
    bool versions(GDALDataset& dataset, const std::vector<int>& ids, bool lock,
                  std::unordered_map<int, std::uint32_t>& found, std::string& why);
    // Ids of `changes` another editor changed or deleted since they were read.
    std::vector<int> conflicting(const std::vector<TLFeatureChange>& changes,
                                 const std::unordered_map<int, std::uint32_t>& now) const;
    TLString refusal(const std::vector<int>& conflicts,
                     const std::unordered_map<int, std::uint32_t>& now) const;
    TLString unreachable(const std::string& why) const;
    bool readRegion(TLFeatureTable& table, const TLRect& rect);
    bool refreshWhere(TLFeatureTable& table, const std::string& condition,
                      const std::set<int>& pending, std::vector<int>& seen, std::string& why);
    // The table's working copy of a feature becomes what the store holds (nothing: deleted).
    void reread(TLFeatureTable& table, int id, const std::optional<TLFeature>& stored);
    // Whether the change would leave the stored row as it is.
    static bool unchanged(OGRLayer& layer, const TLFeatureTable& table,
                          const TLFeatureChange& change);

    Table mTable;
    bool mReadWhole;
    bool mReadAll = false;
    std::vector<TLRect> mRegions;  // read so far, when read by region
    GDALDataset* mDataset = nullptr;
    // The version of every row read (or written by this store), by id.
    std::unordered_map<int, std::uint32_t> mVersions;
    std::vector<int> mConflicts;
    // Features put back as stored since the last save: only their changes may write nothing.
    std::set<int> mReread;
    bool mExtentKnown = false;
    TLRect mExtent;
    bool mSequenceMissing = false;
    TLString mReadError;
};

}  // namespace TMObjects
