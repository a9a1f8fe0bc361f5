#include "tmgis/TLPgFeatureStore.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <set>

#include "tlsde/TLFeatureTable.h"
#include "tmgis/TLGdalCall.h"
#include "tmgis/TLOgrFeatureStore.h"
#include "tmgis/TLOgrValues.h"
#include "tmgis/TLPgConnection.h"

namespace TMObjects {

namespace {

const char* const kRowId = "tl_row_id";
const char* const kRowVersion = "tl_row_version";
// Ids per statement where a statement names rows by id.
const std::size_t kIdsPerStatement = 5000;
// Ids named in a message; the rest are counted.
const std::size_t kIdsNamed = 20;

bool contains(const TLRect& outer, const TLRect& inner) {
    return !outer.IsEmpty() && inner.XMinimum() >= outer.XMinimum() &&
           inner.XMaximum() <= outer.XMaximum() && inner.YMinimum() >= outer.YMinimum() &&
           inner.YMaximum() <= outer.YMaximum();
}

bool finite(const TLRect& rect) {
    return std::isfinite(rect.XMinimum()) && std::isfinite(rect.XMaximum()) &&
           std::isfinite(rect.YMinimum()) && std::isfinite(rect.YMaximum()) &&
           std::fabs(rect.XMinimum()) < 1e300 && std::fabs(rect.XMaximum()) < 1e300 &&
           std::fabs(rect.YMinimum()) < 1e300 && std::fabs(rect.YMaximum()) < 1e300;
}

// What the server said, without libpq's decoration: the line after "ERROR:" or "FATAL:", or the
// first line. GDAL adds the statement and the row's details, which tell the user nothing.
std::string serverReason(const std::string& text) {
    std::string first;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        std::string line = text.substr(start, end - start);
        for (const char* mark : {"ERROR:", "FATAL:"}) {
            const std::size_t at = line.find(mark);
            if (at == std::string::npos) continue;
            line = line.substr(at + std::string(mark).size());
            line.erase(0, line.find_first_not_of(' '));
            while (!line.empty() && (line.back() == ' ' || line.back() == '.')) line.pop_back();
            return line;
        }
        if (first.empty()) first = line;
        start = end + 1;
    }
    return first;
}

std::string number(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", value);
    return text;
}

// "feature 3", "features 3, 7 and 9", "features 1, 2, ... and 40 more".
std::string featureList(const std::vector<int>& ids) {
    std::string text = ids.size() == 1 ? "feature " : "features ";
    const std::size_t named = std::min(ids.size(), kIdsNamed);
    for (std::size_t i = 0; i < named; ++i) {
        if (i > 0) text += (i + 1 == ids.size()) ? " and " : ", ";
        text += std::to_string(ids[i]);
    }
    if (ids.size() > named) text += " and " + std::to_string(ids.size() - named) + " more";
    return text;
}

// The ids as a literal array: '{1,2,3}'.
std::string idArray(const std::vector<int>& ids, std::size_t from, std::size_t to) {
    std::string text = "'{";
    for (std::size_t i = from; i < to; ++i) {
        if (i > from) text += ',';
        text += std::to_string(ids[i]);
    }
    return text + "}'::bigint[]";
}

const TLField* idField(const TLFields& fields) {
    for (int i = 0; i < fields.GetFieldCount(); ++i)
        if (fields.GetField(i)->GetFieldType() == TLField::FieldOID) return fields.GetField(i);
    return nullptr;
}

}  // namespace

TLPgFeatureStore::TLPgFeatureStore(Table table, bool readWhole)
    : mTable(std::move(table)), mReadWhole(readWhole) {}

TLPgFeatureStore::~TLPgFeatureStore() {
    disconnect();
}

TLString TLPgFeatureStore::GetWorkspaceType() const {
    return TLString("PGis");
}

TLString TLPgFeatureStore::GetPath() const {
    return TLString(TLPgConnection::Redacted(mTable.connection) + " " + mTable.layer);
}

GDALDataset* TLPgFeatureStore::connection(std::string& why) {
    if (mDataset) return mDataset;
    TLGdalCall gdal;
    const std::string name = TLPgConnection::ForTable(mTable.connection, mTable.layer);
    mDataset =
        GDALDataset::Open(name.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE | GDAL_OF_VERBOSE_ERROR);
    if (!mDataset) why = serverReason(gdal.Reason("the server does not answer"));
    return mDataset;
}

void TLPgFeatureStore::disconnect() {
    if (!mDataset) return;
    TLGdalCall quiet;  // closing a broken connection complains once more; nobody needs to hear it
    GDALClose(mDataset);
    mDataset = nullptr;
}

bool TLPgFeatureStore::query(GDALDataset& dataset, const std::string& sql,
                             const std::function<void(OGRFeature&)>& row, std::string& why) {
    TLGdalCall gdal;
    OGRLayer* result = dataset.ExecuteSQL(sql.c_str(), nullptr, nullptr);
    if (result && !gdal.HasFailures()) {
        for (auto& feature : *result) row(*feature);
    }
    if (result) dataset.ReleaseResultSet(result);
    if (!gdal.HasFailures()) return true;
    why = serverReason(gdal.Failures());
    return false;
}

std::string TLPgFeatureStore::qualified() const {
    return TLPgConnection::Identifier(mTable.schema) + "." +
           TLPgConnection::Identifier(mTable.name);
}

std::string TLPgFeatureStore::envelope(const TLRect& rect) const {
    return TLPgConnection::Identifier(mTable.geometryColumn) + " && ST_MakeEnvelope(" +
           number(rect.XMinimum()) + ", " + number(rect.YMinimum()) + ", " +
           number(rect.XMaximum()) + ", " + number(rect.YMaximum()) + ", " +
           std::to_string(mTable.srid) + ")";
}

bool TLPgFeatureStore::Read(const TLFeatureTable& table, const std::string& condition,
                            const Row& row, std::string& why) {
    GDALDataset* dataset = connection(why);
    if (!dataset) return false;
    // A table without a key is read-only; its rows are numbered as they come.
    const std::string id = mTable.idColumn.empty() ? std::string("row_number() OVER ()")
                                                   : TLPgConnection::Identifier(mTable.idColumn);
    const std::string sql = "SELECT *, " + id + " AS " + kRowId + ", xmin::text AS " + kRowVersion +
                            " FROM " + qualified() +
                            (condition.empty() ? "" : " WHERE " + condition);
    const TLFields& fields = table.GetFields();
    const TLField* oid = idField(fields);
    const bool read = query(
        *dataset, sql,
        [&](OGRFeature& feature) {
            const long long rowId = feature.GetFieldAsInteger64(kRowId);
            // The host counts features with int; a row beyond cannot be told apart.
            if (rowId < 0 || rowId > INT_MAX) return;
            const auto version = std::uint32_t(std::stoul(feature.GetFieldAsString(kRowVersion)));
            bool geometryLost = false;
            TLFeature f = TLOgrValues::ReadFeature(feature, fields, geometryLost);
            f.SetId(int(rowId));
            if (oid) {
                TLVariant value;
                value = rowId;
                f.SetValue(oid->GetName(), value);
            }
            row(int(rowId), version, std::move(f));
        },
        why);
    if (!read) disconnect();
    return read;
}

void TLPgFeatureStore::Fetch(TLFeatureTable& table, const TLRect& rect) {
    if (mReadAll) return;
    for (const TLRect& region : mRegions)
        if (contains(region, rect)) return;
    TLRect wider = rect;
    wider.Inflate(std::max(rect.Width(), rect.Height()) / 2);
    const bool whole = mReadWhole || !finite(wider) || (mExtentKnown && contains(wider, mExtent));
    if (!readRegion(table, whole ? TLRect() : wider)) return;
    if (whole)
        mReadAll = true;
    else
        mRegions.push_back(wider);
}

bool TLPgFeatureStore::readRegion(TLFeatureTable& table, const TLRect& rect) {
    std::string why;
    const bool read = Read(
        table, rect.IsEmpty() ? std::string() : envelope(rect),
        [&](int id, std::uint32_t version, TLFeature feature) {
            // A row read before is at hand, or was deleted here: either way the table knows
            // better than the store what it should be.
            if (mVersions.count(id) || table.HasFeature(id) || table.IsDeleted(id)) return;
            mVersions[id] = version;
            table.Load(std::move(feature));
        },
        why);
    mReadError = read ? TLString()
                      : TLString("Cannot read \"" + mTable.layer + "\" from the database: " + why +
                                 ". What was read before is shown.");
    return read;
}

bool TLPgFeatureStore::ReadExtent(std::string& why) {
    GDALDataset* dataset = connection(why);
    if (!dataset) return false;
    const std::string geometry = TLPgConnection::Identifier(mTable.geometryColumn);
    const std::string corners =
        "SELECT ST_XMin(e) AS x0, ST_XMax(e) AS x1, ST_YMin(e) AS y0, "
        "ST_YMax(e) AS y1 FROM (SELECT ";
    // The estimate costs nothing once the server has statistics; without them the bounds are
    // computed, once.
    const std::string estimated = corners + "ST_EstimatedExtent(" +
                                  TLPgConnection::Literal(mTable.schema) + ", " +
                                  TLPgConnection::Literal(mTable.name) + ", " +
                                  TLPgConnection::Literal(mTable.geometryColumn) + ") AS e) s";
    const std::string exact =
        corners + "ST_Extent(" + geometry + ") AS e FROM " + qualified() + ") s";
    for (const std::string& sql : {estimated, exact}) {
        bool found = false;
        std::string failed;
        {
            TLGdalCall quiet;  // no statistics yet is no failure
            query(
                *dataset, sql,
                [&](OGRFeature& f) {
                    if (!f.IsFieldSetAndNotNull(0)) return;
                    mExtent = TLRect(f.GetFieldAsDouble(0), f.GetFieldAsDouble(1),
                                     f.GetFieldAsDouble(2), f.GetFieldAsDouble(3));
                    found = true;
                },
                failed);
        }
        if (found) {
            mExtentKnown = true;
            return true;
        }
        if (!failed.empty()) why = failed;
    }
    return why.empty();
}

bool TLPgFeatureStore::Extent(TLRect& rect) const {
    if (mExtentKnown) rect = mExtent;
    return mExtentKnown;
}

int TLPgFeatureStore::NewId() {
    if (mSequenceMissing) return -1;
    std::string why;
    GDALDataset* dataset = connection(why);
    if (!dataset) return -1;
    const std::string sql = "SELECT nextval(pg_get_serial_sequence(" +
                            TLPgConnection::Literal(qualified()) + ", " +
                            TLPgConnection::Literal(mTable.idColumn) + "))::text AS id";
    long long id = -1;
    bool answered = false;
    if (!query(
            *dataset, sql,
            [&](OGRFeature& f) {
                answered = true;
                if (f.IsFieldSetAndNotNull(0)) id = std::stoll(f.GetFieldAsString(0));
            },
            why)) {
        disconnect();
        return -1;
    }
    // An id column without a sequence: the table numbers new features itself.
    if (answered && id < 0) mSequenceMissing = true;
    return id >= 0 && id <= INT_MAX ? int(id) : -1;
}

bool TLPgFeatureStore::begin(GDALDataset*& dataset, std::string& why) {
    // A connection the server dropped while it stood idle shows only when used: try once more
    // on a fresh one.
    for (int attempt = 0; attempt < 2; ++attempt) {
        dataset = connection(why);
        if (!dataset) return false;
        TLGdalCall gdal;
        if (dataset->StartTransaction(FALSE) == OGRERR_NONE &&
            query(
                *dataset, "SELECT 1", [](OGRFeature&) {}, why))
            return true;
        if (why.empty())
            why = serverReason(gdal.Reason("the server refused to start a transaction"));
        disconnect();
    }
    return false;
}

bool TLPgFeatureStore::versions(GDALDataset& dataset, const std::vector<int>& ids, bool lock,
                                std::unordered_map<int, std::uint32_t>& found, std::string& why) {
    const std::string id = TLPgConnection::Identifier(mTable.idColumn);
    for (std::size_t from = 0; from < ids.size(); from += kIdsPerStatement) {
        const std::size_t to = std::min(ids.size(), from + kIdsPerStatement);
        // Locked in id order, so that two editors saving at once wait for one another instead
        // of deadlocking.
        const std::string sql = "SELECT " + id + " AS " + kRowId + ", xmin::text AS " +
                                kRowVersion + " FROM " + qualified() + " WHERE " + id + " = ANY(" +
                                idArray(ids, from, to) + ") ORDER BY " + id +
                                (lock ? " FOR UPDATE" : "");
        const bool read = query(
            dataset, sql,
            [&](OGRFeature& f) {
                found[int(f.GetFieldAsInteger64(0))] =
                    std::uint32_t(std::stoul(f.GetFieldAsString(1)));
            },
            why);
        if (!read) return false;
    }
    return true;
}

std::vector<int> TLPgFeatureStore::conflicting(
    const std::vector<TLFeatureChange>& changes,
    const std::unordered_map<int, std::uint32_t>& now) const {
    std::vector<int> conflicts;
    for (const TLFeatureChange& change : changes) {
        if (change.isNew) continue;
        auto read = mVersions.find(change.id);
        if (read == mVersions.end()) continue;
        auto stored = now.find(change.id);
        // Gone: a conflict unless the user deletes it too.
        if (stored == now.end() ? bool(change.after) : stored->second != read->second)
            conflicts.push_back(change.id);
    }
    std::sort(conflicts.begin(), conflicts.end());
    return conflicts;
}

TLString TLPgFeatureStore::refusal(const std::vector<int>& conflicts,
                                   const std::unordered_map<int, std::uint32_t>& now) const {
    std::vector<int> changed, deleted;
    for (int id : conflicts) (now.count(id) ? changed : deleted).push_back(id);
    std::string what;
    if (!changed.empty()) what = "changed " + featureList(changed);
    if (!deleted.empty())
        what += (what.empty() ? "deleted " : " and deleted ") + featureList(deleted);
    return TLString("Saving \"" + mTable.layer + "\" was refused: another editor " + what +
                    " since " + (conflicts.size() == 1 ? "it was" : "they were") +
                    " read. Nothing was written and every edit is kept; reload " +
                    (conflicts.size() == 1 ? "that feature" : "those features") +
                    " and save again.");
}

TLString TLPgFeatureStore::unreachable(const std::string& why) const {
    return TLString("Cannot reach the database of \"" + mTable.layer + "\": " + why +
                    ". Nothing was written and every edit is kept; save again once the server "
                    "answers.");
}

bool TLPgFeatureStore::Commit(const TLFeatureTable& table,
                              const std::vector<TLFeatureChange>& changes, TLString& error) {
    mConflicts.clear();
    std::string why;
    GDALDataset* dataset = nullptr;
    if (!begin(dataset, why)) {
        error = unreachable(why);
        return false;
    }
    auto fail = [&](const std::string& text) {
        // Rolled back in so many words: a change the host refused before the server saw it
        // leaves the transaction healthy, and closing the connection would commit it.
        dataset->RollbackTransaction();
        disconnect();
        error = TLString("Saving \"" + mTable.layer + "\" failed: " + text +
                         ". The table was left as it was, and every edit is kept.");
        return false;
    };
    OGRLayer* layer = dataset->GetLayerByName(mTable.layer.c_str());
    if (!layer) return fail("the table is no longer in the database");
    std::vector<int> stored, written;
    for (const TLFeatureChange& change : changes) {
        if (!change.isNew) stored.push_back(change.id);
        if (change.after) written.push_back(change.id);
    }
    std::unordered_map<int, std::uint32_t> now;
    if (!versions(*dataset, stored, true, now, why)) return fail(why);
    const std::vector<int> conflicts = conflicting(changes, now);
    if (!conflicts.empty()) {
        dataset->RollbackTransaction();
        mConflicts = conflicts;
        error = refusal(conflicts, now);
        return false;
    }
    for (const TLFeatureChange& change : changes) {
        if (mReread.count(change.id) && unchanged(*layer, table, change)) continue;
        long long created = change.id;
        if (!TLOgrFeatureStore::ApplyChange(*layer, change, change.id, created, why))
            return fail("feature " + std::to_string(change.id) + ": " + serverReason(why));
    }
    std::unordered_map<int, std::uint32_t> fresh;
    if (!versions(*dataset, written, false, fresh, why)) return fail(why);
    {
        TLGdalCall gdal;
        if (dataset->CommitTransaction() != OGRERR_NONE)
            return fail(serverReason(gdal.Reason("the server did not take the transaction")));
    }
    for (const TLFeatureChange& change : changes) {
        mReread.erase(change.id);
        auto version = fresh.find(change.id);
        if (version == fresh.end())
            mVersions.erase(change.id);
        else
            mVersions[change.id] = version->second;
    }
    return true;
}

bool TLPgFeatureStore::unchanged(OGRLayer& layer, const TLFeatureTable& table,
                                 const TLFeatureChange& change) {
    if (change.isNew || !change.after) return false;
    std::unique_ptr<OGRFeature> row(layer.GetFeature(change.id));
    if (!row) return false;
    bool geometryLost = false;
    TLFeature stored = TLOgrValues::ReadFeature(*row, table.GetFields(), geometryLost);
    return !geometryLost && stored.SameContent(*change.after);
}

void TLPgFeatureStore::reread(TLFeatureTable& table, int id,
                              const std::optional<TLFeature>& stored) {
    mReread.insert(id);
    if (!stored) {
        if (table.HasFeature(id)) table.Delete(id);
        return;
    }
    // A feature at hand (or deleted here) is put back as stored, which the table weighs against
    // what it read before: until the next save it counts as a change that writes nothing. One
    // never seen is simply loaded.
    if (table.HasFeature(id) || table.IsDeleted(id))
        table.Restore(id, stored);
    else
        table.Load(*stored);
}

bool TLPgFeatureStore::Reload(TLFeatureTable& table, const std::vector<int>& ids, TLString& error) {
    std::set<int> missing(ids.begin(), ids.end());
    std::string why;
    for (std::size_t from = 0; from < ids.size(); from += kIdsPerStatement) {
        const std::size_t to = std::min(ids.size(), from + kIdsPerStatement);
        const std::string condition =
            TLPgConnection::Identifier(mTable.idColumn) + " = ANY(" + idArray(ids, from, to) + ")";
        const bool read = Read(
            table, condition,
            [&](int id, std::uint32_t version, TLFeature feature) {
                missing.erase(id);
                mVersions[id] = version;
                reread(table, id, feature);
            },
            why);
        if (!read) {
            error = TLString("Cannot reload from \"" + mTable.layer + "\": " + why +
                             ". Every edit is kept.");
            return false;
        }
    }
    for (int id : missing) {
        mVersions.erase(id);
        reread(table, id, std::nullopt);
    }
    for (int id : ids)
        mConflicts.erase(std::remove(mConflicts.begin(), mConflicts.end(), id), mConflicts.end());
    return true;
}

bool TLPgFeatureStore::refreshWhere(TLFeatureTable& table, const std::string& condition,
                                    const std::set<int>& pending, std::vector<int>& seen,
                                    std::string& why) {
    return Read(
        table, condition,
        [&](int id, std::uint32_t version, TLFeature feature) {
            seen.push_back(id);
            // A feature with an edit pending keeps it, and the version it was read with, so
            // that its save meets the other editor's change as a conflict.
            if (pending.count(id)) return;
            auto known = mVersions.find(id);
            if (known != mVersions.end() && known->second == version && table.HasFeature(id))
                return;
            mVersions[id] = version;
            reread(table, id, feature);
        },
        why);
}

bool TLPgFeatureStore::Refresh(TLFeatureTable& table, TLString& error) {
    const bool clean = !table.IsDirty();
    std::set<int> pending;
    for (const TLFeatureChange& change : table.PendingChanges()) pending.insert(change.id);
    std::vector<int> seen;
    std::string why;
    bool read = true;
    if (mReadAll) {
        read = refreshWhere(table, std::string(), pending, seen, why);
    } else {
        for (const TLRect& region : mRegions)
            if (!(read = refreshWhere(table, envelope(region), pending, seen, why))) break;
    }
    if (read) {
        const std::set<int> found(seen.begin(), seen.end());
        std::vector<int> gone;
        for (const auto& [id, version] : mVersions)
            if (!found.count(id) && !pending.count(id)) gone.push_back(id);
        for (int id : gone) {
            mVersions.erase(id);
            reread(table, id, std::nullopt);
        }
    }
    // A table without edits of its own is clean again at once: the save finds every row as the
    // table now holds it and writes nothing.
    TLString absorbed;
    if (clean && table.IsDirty() && !table.Save(absorbed)) {
        why = absorbed.toStdString();
        read = false;
    }
    if (!read) {
        error = TLString("Cannot refresh \"" + mTable.layer + "\" from the database: " + why +
                         ". Every edit is kept.");
        return false;
    }
    return true;
}

}  // namespace TMObjects
