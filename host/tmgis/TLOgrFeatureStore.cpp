#include "tmgis/TLOgrFeatureStore.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>
#include <stdlib.h>

#include <filesystem>
#include <memory>

#include "tlsde/TLFeatureTable.h"
#include "tmgis/TLFileSwap.h"
#include "tmgis/TLGdalCall.h"
#include "tmgis/TLGeoPackageGuard.h"
#include "tmgis/TLOgrValues.h"

namespace TMObjects {

namespace fs = std::filesystem;

namespace {

const char* const kUntouched = " The data source was left as it was.";

GDALDatasetUniquePtr openForWriting(const std::string& path) {
    return GDALDatasetUniquePtr(
        GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE | GDAL_OF_VERBOSE_ERROR));
}

std::vector<std::string> fileList(GDALDataset& dataset) {
    std::vector<std::string> files;
    char** list = dataset.GetFileList();
    for (char** f = list; f && *f; ++f) files.emplace_back(*f);
    CSLDestroy(list);
    return files;
}

}  // namespace

TLOgrFeatureStore::TLOgrFeatureStore(const TLString& path, const TLString& layerName)
    : mPath(path), mLayerName(layerName) {}

TLOgrFeatureStore::~TLOgrFeatureStore() = default;

TLString TLOgrFeatureStore::GetWorkspaceType() const {
    return TLString("OGR");
}

long long TLOgrFeatureStore::StoredId(int id) const {
    auto it = mStoredIds.find(id);
    return it == mStoredIds.end() ? id : it->second;
}

bool TLOgrFeatureStore::StoredWkt(int id, std::string& wkt, std::string& error) const {
    TLGdalCall gdal;
    const std::string path = mPath.toStdString();
    GDALDatasetUniquePtr dataset(
        GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
    OGRLayer* layer = dataset ? dataset->GetLayerByName(mLayerName.toStdString().c_str()) : nullptr;
    std::unique_ptr<OGRFeature> feature(layer ? layer->GetFeature(StoredId(id)) : nullptr);
    if (!feature) {
        error = "no feature " + std::to_string(id) + " in " + path;
        return false;
    }
    const OGRGeometry* geometry = feature->GetGeometryRef();
    if (!geometry) {
        wkt.clear();
        return true;
    }
    OGRWktOptions options;
    options.variant = wkbVariantIso;
    OGRErr failed = OGRERR_NONE;
    wkt = geometry->exportToWkt(options, &failed);
    if (failed != OGRERR_NONE)
        error = "the geometry of feature " + std::to_string(id) + " has no text";
    return failed == OGRERR_NONE;
}

bool TLOgrFeatureStore::Commit(const TLFeatureTable& table,
                               const std::vector<TLFeatureChange>& changes, TLString& error) {
    TLGdalCall gdal;
    const std::string path = mPath.toStdString();
    // Read before GDAL writes anything: what a GeoPackage says of the layer beside its rows.
    TLGeoPackageGuard guard;
    guard.Take(path, mLayerName.toStdString());
    GDALDatasetUniquePtr dataset = openForWriting(path);
    if (!dataset) {
        error = TLString("Cannot open " + path + " for writing: " +
                         gdal.Reason("the file is missing or not writable") + ".");
        return false;
    }
    OGRLayer* layer = dataset->GetLayerByName(mLayerName.toStdString().c_str());
    if (!layer) {
        error = TLString("The layer \"") + mLayerName +
                TLString("\" is no longer in " + path + "." + kUntouched);
        return false;
    }
    if (!dataset->TestCapability(ODsCTransactions)) {
        dataset.reset();
        return commitByRewrite(table, changes, error);
    }
    if (commitInTransaction(*dataset, *layer, changes, gdal, error)) return true;
    // GDAL writes some of its records after a failed transaction, as it lets the file go.
    dataset.reset();
    std::string why;
    if (guard.Restore(why) == TLGeoPackageGuard::NotPutBack) {
        std::string text = error.toStdString();
        const std::string untouched = kUntouched;
        if (text.size() >= untouched.size() &&
            text.compare(text.size() - untouched.size(), untouched.size(), untouched) == 0)
            text.erase(text.size() - untouched.size());
        error = TLString(text +
                         " No feature was saved, but the file's record of the layer "
                         "(its count and extent) could not be put back: " +
                         why + ". The next open of the file repairs it.");
    }
    return false;
}

bool TLOgrFeatureStore::commitInTransaction(GDALDataset& dataset, OGRLayer& layer,
                                            const std::vector<TLFeatureChange>& changes,
                                            TLGdalCall& gdal, TLString& error) {
    if (dataset.StartTransaction(FALSE) != OGRERR_NONE) {
        error = TLString("Cannot start a transaction on " + mPath.toStdString() + ": " +
                         gdal.Reason("the data source refused") + "." + kUntouched);
        return false;
    }
    std::map<int, long long> created;
    for (const TLFeatureChange& change : changes) {
        std::string why;
        long long createdId = change.id;
        if (ApplyChange(layer, change, change.isNew ? change.id : StoredId(change.id), createdId,
                        why)) {
            if (createdId != change.id) created[change.id] = createdId;
            continue;
        }
        dataset.RollbackTransaction();
        error = failure(change.id, why);
        return false;
    }
    // GDAL's own records of the layer (its count, its extent, the triggers it dropped for the
    // writing) go into the same transaction: left to GDAL, they follow in transactions of their
    // own, and a kill in between leaves a file whose records do not match its rows.
    if (layer.SyncToDisk() != OGRERR_NONE || dataset.CommitTransaction() != OGRERR_NONE) {
        const std::string why = gdal.FirstFailure("the data source refused");
        dataset.RollbackTransaction();
        error =
            TLString("Saving \"") + mLayerName + TLString("\" failed: " + why + "." + kUntouched);
        return false;
    }
    for (const TLFeatureChange& change : changes)
        if (!change.after) mStoredIds.erase(change.id);
    for (const auto& [id, stored] : created) mStoredIds[id] = stored;
    return true;
}

bool TLOgrFeatureStore::ApplyChange(OGRLayer& layer, const TLFeatureChange& change,
                                    long long storedId, long long& createdId, std::string& why) {
    TLGdalCall gdal;
    if (!change.after) {
        // A feature someone else removed already is as the user wants it.
        const OGRErr result = layer.DeleteFeature(storedId);
        if (result == OGRERR_NONE || result == OGRERR_NON_EXISTING_FEATURE) return true;
        why = gdal.Reason("the store refused to delete it");
        return false;
    }
    if (change.isNew) {
        OGRFeature feature(layer.GetLayerDefn());
        feature.SetFID(storedId);
        if (!TLOgrValues::Apply(*change.after, feature, layer.GetGeomType(), why)) return false;
        if (layer.CreateFeature(&feature) != OGRERR_NONE) {
            why = gdal.Reason("the store refused the new feature");
            return false;
        }
        createdId = feature.GetFID();
        return true;
    }
    std::unique_ptr<OGRFeature> feature(layer.GetFeature(storedId));
    if (!feature) {
        why = "it is no longer in the data source";
        return false;
    }
    if (!TLOgrValues::Apply(*change.after, *feature, layer.GetGeomType(), why)) return false;
    if (layer.SetFeature(feature.get()) != OGRERR_NONE) {
        why = gdal.Reason("the store refused the change");
        return false;
    }
    return true;
}

bool TLOgrFeatureStore::commitByRewrite(const TLFeatureTable& table,
                                        const std::vector<TLFeatureChange>& changes,
                                        TLString& error) {
    TLGdalCall gdal;
    const fs::path original(mPath.toStdString());
    GDALDatasetUniquePtr source(
        GDALDataset::Open(original.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
    if (!source) {
        error = TLString("Cannot read " + original.string() + ": " +
                         gdal.Reason("the file is missing") + ".");
        return false;
    }
    const std::string driver = source->GetDriver()->GetDescription();
    if (source->GetLayerCount() != 1) {
        error = TLString(original.string() + " holds several layers in a format without " +
                         "transactions (" + driver + "), so edits cannot be saved to it " +
                         "without risk to the other layers. Save the layers as a GeoPackage." +
                         kUntouched);
        return false;
    }
    OGRLayer* old = source->GetLayer(0);
    std::set<int> changed, created;
    for (const TLFeatureChange& change : changes) {
        changed.insert(change.id);
        if (change.isNew) created.insert(change.id);
    }
    // The data source may have been named by another of its files (a Shapefile's ".shx"): the
    // copy is made under the name of its main file, which GDAL lists first.
    const std::vector<std::string> oldFiles = fileList(*source);
    const fs::path main = oldFiles.empty() ? original : fs::path(oldFiles.front());
    fs::path scratch;
    if (!TLFileSwap::MakeScratch(original, scratch)) {
        error = TLString("Cannot make a scratch directory beside " + original.string() + "." +
                         kUntouched);
        return false;
    }
    auto discard = [&] {
        std::error_code ignored;
        fs::remove_all(scratch, ignored);
    };
    std::map<int, long long> ids;
    std::string why;
    {
        GDALDatasetUniquePtr copy(source->GetDriver()->Create((scratch / main.filename()).c_str(),
                                                              0, 0, 0, GDT_Unknown, nullptr));
        OGRLayer* target = copy ? copy->CreateLayer(old->GetName(), old->GetSpatialRef(),
                                                    old->GetGeomType(), nullptr)
                                : nullptr;
        bool written = target != nullptr;
        for (int i = 0; written && i < old->GetLayerDefn()->GetFieldCount(); ++i)
            written = target->CreateField(old->GetLayerDefn()->GetFieldDefn(i)) == OGRERR_NONE;
        if (!written) why = gdal.Reason("cannot make the new copy");
        // A Shapefile's line and polygon layers take shapes of several parts though they say
        // single.
        const bool singleMeansSingle = driver != "ESRI Shapefile";
        if (written)
            written = writeAll(table, changed, created, *old, *target, singleMeansSingle, ids, why);
        if (written) {
            copy.reset();  // closing writes the files out
            if (gdal.HasFailures()) {
                why = gdal.Failures();
                written = false;
            }
        }
        if (!written) {
            copy.reset();
            discard();
            error = TLString("Saving \"") + mLayerName +
                    TLString("\" failed: " + why + "." + kUntouched);
            return false;
        }
    }
    source.reset();
    // Once the swap is decided it is finished, now or at the next open of the folder.
    bool decided = false;
    if (!TLFileSwap::Swap(scratch, main.parent_path(), oldFiles, decided, why)) {
        error = TLString("Saving \"") + mLayerName +
                TLString(decided ? "\" failed while the new files were put in place: " + why +
                                       ". The next open of the data source finishes the save."
                                 : "\" failed: " + why + "." + kUntouched);
        return false;
    }
    mStoredIds.clear();
    for (const auto& [id, stored] : ids)
        if (stored != id) mStoredIds[id] = stored;
    return true;
}

bool TLOgrFeatureStore::writeAll(const TLFeatureTable& table, const std::set<int>& changed,
                                 const std::set<int>& created, OGRLayer& source, OGRLayer& target,
                                 bool singleMeansSingle, std::map<int, long long>& ids,
                                 std::string& why) {
    TLGdalCall gdal;
    for (int id : table.GetIds()) {
        OGRFeature feature(target.GetLayerDefn());
        if (!created.count(id)) {
            std::unique_ptr<OGRFeature> was(source.GetFeature(StoredId(id)));
            if (!was) {
                why = "feature " + std::to_string(id) + " is no longer in the data source";
                return false;
            }
            feature.SetFrom(was.get());
        }
        feature.SetFID(id);
        if (changed.count(id) &&
            !TLOgrValues::Apply(*table.PeekFeature(id), feature, target.GetGeomType(), why,
                                singleMeansSingle)) {
            why = "feature " + std::to_string(id) + ": " + why;
            return false;
        }
        if (target.CreateFeature(&feature) != OGRERR_NONE) {
            why = "feature " + std::to_string(id) + ": " + gdal.Reason("refused by the store");
            return false;
        }
        ids[id] = feature.GetFID();
    }
    return true;
}

TLString TLOgrFeatureStore::failure(int id, const std::string& why) const {
    return TLString("Saving \"") + mLayerName +
           TLString("\" failed at feature " + std::to_string(id) + ": " + why + "." + kUntouched);
}

}  // namespace TMObjects
