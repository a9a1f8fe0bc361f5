#include "tmgis/TMWorkspace.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <climits>
#include <filesystem>

#include "tlmap/TLRasterLayer.h"
#include "tlsde/TLFeatureTable.h"
#include "tmgis/TLDataRecovery.h"
#include "tmgis/TLGdalCall.h"
#include "tmgis/TLGdalRasterDataset.h"
#include "tmgis/TLGdalReference.h"
#include "tmgis/TLOgrAnnotation.h"
#include "tmgis/TLOgrFeatureStore.h"
#include "tmgis/TLOgrSchema.h"
#include "tmgis/TLOgrValues.h"
#include "tmgis/TLPgConnection.h"
#include "tmgis/TLPgWorkspace.h"

namespace TMObjects {

namespace fs = std::filesystem;

namespace {

// Features read between two reports of progress: often enough for a smooth bar, seldom enough
// to cost nothing next to reading them.
constexpr long long kProgressStep = 4096;

// "GPKG:/data/demo.gpkg:dem" names the table after the last colon.
TLString subdatasetName(const std::string& name, const std::string& description) {
    const std::size_t colon = name.rfind(':');
    if (colon != std::string::npos && colon + 1 < name.size())
        return TLString(name.substr(colon + 1));
    return TLString(description);
}

}  // namespace

std::unique_ptr<TMWorkspace> TMWorkspace::Open(const TLString& path, bool editable,
                                               TLString& error) {
    return Open(path, editable, error, Progress());
}

bool TMWorkspace::tell(long long done) {
    mRead = done;
    if (mProgress && !mProgress(mRead, mTotal)) mCancelled = true;
    return !mCancelled;
}

std::unique_ptr<TMWorkspace> TMWorkspace::Open(const TLString& path, bool editable, TLString& error,
                                               const Progress& progress) {
    TLGdalCall gdal;
    const std::string file = path.toStdString();
    // A database is opened for its tables only: its rasters would go through another driver,
    // which claims the same names.
    const bool database = TLPgConnection::Names(path);
    // What a killed save left is put right first: GDAL would read a half-swapped layer as it
    // lies, and a hot journal makes read-only opens fail.
    std::vector<std::string> recovered;
    if (!database) TLDataRecovery::Recover(file, recovered);
    GDALDatasetUniquePtr dataset(
        GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR | (database ? 0 : GDAL_OF_RASTER) |
                                            GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR));
    if (!dataset && database) {
        error = TLString("Cannot open " + TLPgConnection::Redacted(file) + ": " +
                         gdal.Reason("the server does not answer") + ".");
        return nullptr;
    }
    if (!dataset) {
        std::error_code failed;
        const bool exists = fs::exists(file, failed);
        error = TLString("Cannot open " + file + ": " +
                         (exists ? gdal.Reason("GDAL reads no such format")
                                 : std::string("no such file or folder")) +
                         ".");
        return nullptr;
    }
    std::unique_ptr<TMWorkspace> workspace(new TMWorkspace);
    workspace->mPath = path;
    workspace->mDriver = TLString(std::string(dataset->GetDriver()->GetDescription()));
    for (const std::string& line : recovered) workspace->mNotes.push_back(TLString(line));
    if (workspace->mDriver == TLString("PostgreSQL")) {
        TLPgWorkspace::ReadLayers(*dataset, file, editable, workspace->mLayers, workspace->mNotes);
    } else {
        workspace->mProgress = progress;
        if (progress)
            for (OGRLayer* layer : dataset->GetLayers())
                workspace->mTotal += std::max<long long>(0, layer->GetFeatureCount(TRUE));
        workspace->readVectors(*dataset, editable);
        if (workspace->mCancelled) {
            error = TLString("Opening " + TLPgConnection::Redacted(file) + " was cancelled.");
            return nullptr;
        }
        workspace->tell(workspace->mTotal);
        workspace->readRasters(*dataset);
    }
    if (workspace->mLayers.empty()) {
        error = TLString(TLPgConnection::Redacted(file) + " holds no layer that can be shown.");
        return nullptr;
    }
    return workspace;
}

TLRefPtr<TLLayer> TMWorkspace::GetLayer(const TLString& name) const {
    for (const auto& layer : mLayers)
        if (layer->GetLayerName() == name) return layer;
    return TLRefPtr<TLLayer>();
}

void TMWorkspace::readVectors(GDALDataset& dataset, bool editable) {
    std::vector<TLRefPtr<TLLayer>> read;
    for (OGRLayer* layer : dataset.GetLayers()) {
        const TLString name(std::string(layer->GetName()));
        if (layer->GetGeomType() == wkbNone) {
            mNotes.push_back(TLString("table ") + name + TLString(" has no geometry; left out"));
            continue;
        }
        TLRefPtr<TLFeatureLayer> featureLayer =
            readVector(dataset, *layer, storePathOf(dataset, *layer), editable);
        if (mCancelled) return;
        if (!featureLayer) continue;
        const long long highest = highestIdEver(dataset, *layer);
        if (highest > 0 && highest < INT_MAX)
            featureLayer->GetDatasource()->ReserveIdsBelow(int(highest) + 1);
        mLayers.push_back(TLRefPtr<TLLayer>(featureLayer.get()));
    }
}

long long TMWorkspace::highestIdEver(GDALDataset& dataset, OGRLayer& layer) {
    if (std::string(dataset.GetDriver()->GetDescription()) != "GPKG") return 0;
    TLGdalCall quiet;  // a file without AUTOINCREMENT tables has no sqlite_sequence
    std::string name = layer.GetName();
    for (std::size_t at = name.find('\''); at != std::string::npos; at = name.find('\'', at + 2))
        name.insert(at, 1, '\'');
    OGRLayer* result = dataset.ExecuteSQL(
        ("SELECT seq FROM sqlite_sequence WHERE name = '" + name + "'").c_str(), nullptr, nullptr);
    if (!result) return 0;
    long long highest = 0;
    if (std::unique_ptr<OGRFeature> row{result->GetNextFeature()})
        highest = row->GetFieldAsInteger64(0);
    dataset.ReleaseResultSet(result);
    return highest;
}

TLString TMWorkspace::storePathOf(GDALDataset& dataset, OGRLayer& layer) const {
    const std::string driver = dataset.GetDriver()->GetDescription();
    if (driver == "ESRI Shapefile" && fs::is_directory(mPath.toStdString()))
        return TLString(
            (fs::path(mPath.toStdString()) / (std::string(layer.GetName()) + ".shp")).string());
    return mPath;
}

TLRefPtr<TLFeatureLayer> TMWorkspace::readVector(GDALDataset& dataset, OGRLayer& layer,
                                                 const TLString& storePath, bool editable) {
    const TLString name(std::string(layer.GetName()));
    const TLFields fields = TLOgrSchema::Fields(layer, &dataset);
    TLRefPtr<TLFeatureTable> table(
        new TLFeatureTable(name, fields, std::make_unique<TLOgrFeatureStore>(storePath, name)));
    int lost = 0;
    layer.ResetReading();
    for (auto& feature : layer) {
        // The host counts features with int; a larger id could not be saved back to its row.
        if (feature->GetFID() < 0 || feature->GetFID() > INT_MAX) {
            mNotes.push_back(TLString("layer ") + name +
                             TLString(" has ids beyond the host's range; left out"));
            return TLRefPtr<TLFeatureLayer>();
        }
        bool geometryLost = false;
        table->Load(TLOgrValues::ReadFeature(*feature, *table->GetFieldsPtr(), geometryLost));
        if (geometryLost) ++lost;
        if (++mRead % kProgressStep == 0 && !tell(mRead)) return TLRefPtr<TLFeatureLayer>();
    }
    if (lost > 0)
        mNotes.push_back(TLString("layer ") + name +
                         TLString(": " + std::to_string(lost) +
                                  " geometries the host cannot hold "
                                  "are shown without shape and kept "
                                  "as stored"));
    TLRefPtr<TLFeatureLayer> featureLayer(makeLayer(layer, name, table));
    featureLayer->SetEditable(editable);
    return featureLayer;
}

// An annotation table becomes an annotation layer with its settings; any other a feature layer of
// its geometry's kind.
TLFeatureLayer* TMWorkspace::makeLayer(OGRLayer& layer, const TLString& name,
                                       TLRefPtr<TLFeatureTable> table) const {
    int kind = 0, geometry = 0;
    double scale = 0;
    if (TLOgrAnnotation::Describe(layer, kind, scale, geometry))
        return new TLAnnotationLayer(name, table, TLSystemOfGdalReference(layer.GetSpatialRef()),
                                     kind, scale, geometry);
    return new TLFeatureLayer(name, TLOgrSchema::LayerKind(layer.GetGeomType()), table,
                              TLSystemOfGdalReference(layer.GetSpatialRef()));
}

void TMWorkspace::readRasters(GDALDataset& dataset) {
    char** subdatasets = dataset.GetMetadata("SUBDATASETS");
    for (int i = 1; subdatasets; ++i) {
        const char* name =
            CSLFetchNameValue(subdatasets, ("SUBDATASET_" + std::to_string(i) + "_NAME").c_str());
        if (!name) break;
        const char* description =
            CSLFetchNameValue(subdatasets, ("SUBDATASET_" + std::to_string(i) + "_DESC").c_str());
        GDALDatasetUniquePtr raster(GDALDataset::Open(name, GDAL_OF_RASTER | GDAL_OF_READONLY));
        if (!raster) {
            mNotes.push_back(TLString("raster " + std::string(name) + " cannot be read; left out"));
            continue;
        }
        addRaster(*raster, subdatasetName(name, description ? description : name),
                  TLString(std::string(name)));
    }
    if (subdatasets || dataset.GetRasterCount() == 0) return;
    const char* identifier = dataset.GetMetadataItem("IDENTIFIER");
    addRaster(dataset,
              TLString(identifier ? std::string(identifier)
                                  : fs::path(mPath.toStdString()).stem().string()),
              mPath);
}

void TMWorkspace::addRaster(GDALDataset& dataset, const TLString& name, const TLString& source) {
    std::array<double, 6> transform{0, 1, 0, 0, 0, 1};
    if (dataset.GetGeoTransform(transform.data()) != CE_None)
        mNotes.push_back(TLString("raster ") + name +
                         TLString(" has no georeference; shown in cell coordinates"));
    TLRefPtr<TLRasterLayer> layer(new TLRasterLayer(
        name, source, dataset.GetRasterXSize(), dataset.GetRasterYSize(), dataset.GetRasterCount(),
        transform, TLSystemOfGdalReference(dataset.GetSpatialRef())));
    for (int band = 1; band <= dataset.GetRasterCount(); ++band) {
        int has = 0;
        const double value = dataset.GetRasterBand(band)->GetNoDataValue(&has);
        if (has) layer->SetNoData(band, value);
    }
    layer->SetRasterDataset(new TLGdalRasterDataset(source, name));
    mLayers.push_back(TLRefPtr<TLLayer>(layer.get()));
}

}  // namespace TMObjects
