#include "tmgis/TLPgWorkspace.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include "tlsde/TLFeatureTable.h"
#include "tmgis/TLGdalCall.h"
#include "tmgis/TLGdalReference.h"
#include "tmgis/TLOgrSchema.h"
#include "tmgis/TLPgConnection.h"
#include "tmgis/TLPgFeatureStore.h"

namespace TMObjects {

namespace {

int gReadWholeLimit = 100000;

// The first answer of a query of one value, as text; empty when there is none.
std::string scalar(GDALDataset& dataset, const std::string& sql, std::string& why) {
    TLGdalCall gdal;
    std::string value;
    OGRLayer* result = dataset.ExecuteSQL(sql.c_str(), nullptr, nullptr);
    if (result) {
        std::unique_ptr<OGRFeature> first(result->GetNextFeature());
        if (first && first->IsFieldSetAndNotNull(0)) value = first->GetFieldAsString(0);
        dataset.ReleaseResultSet(result);
    }
    if (gdal.HasFailures()) why = gdal.Failures();
    return value;
}

// GDAL names a table outside the schema "public" "schema.table".
void splitName(const std::string& layer, std::string& schema, std::string& name) {
    const std::size_t dot = layer.find('.');
    schema = dot == std::string::npos ? "public" : layer.substr(0, dot);
    name = dot == std::string::npos ? layer : layer.substr(dot + 1);
}

}  // namespace

int TLPgWorkspace::ReadWholeLimit() {
    return gReadWholeLimit;
}

void TLPgWorkspace::SetReadWholeLimit(int rows) {
    gReadWholeLimit = rows;
}

void TLPgWorkspace::ReadLayers(GDALDataset& dataset, const std::string& connection, bool editable,
                               std::vector<TLRefPtr<TLLayer>>& layers,
                               std::vector<TLString>& notes) {
    for (OGRLayer* layer : dataset.GetLayers()) {
        const TLString name(std::string(layer->GetName()));
        if (layer->GetGeomType() == wkbNone || std::string(layer->GetGeometryColumn()).empty()) {
            notes.push_back(TLString("table ") + name + TLString(" has no geometry; left out"));
            continue;
        }
        TLRefPtr<TLFeatureLayer> featureLayer =
            readLayer(dataset, *layer, connection, editable, notes);
        if (featureLayer) layers.push_back(TLRefPtr<TLLayer>(featureLayer.get()));
    }
}

TLRefPtr<TLFeatureLayer> TLPgWorkspace::readLayer(GDALDataset& dataset, OGRLayer& layer,
                                                  const std::string& connection, bool editable,
                                                  std::vector<TLString>& notes) {
    TLPgFeatureStore::Table table;
    table.connection = connection;
    table.layer = layer.GetName();
    splitName(table.layer, table.schema, table.name);
    table.idColumn = layer.GetFIDColumn();
    table.geometryColumn = layer.GetGeometryColumn();
    const TLString name(table.layer);
    if (table.idColumn.empty()) {
        notes.push_back(TLString("table ") + name +
                        TLString(" has no id column; read-only, and read whole"));
        editable = false;
    }
    std::string why;
    const std::string srid = scalar(dataset,
                                    "SELECT Find_SRID(" + TLPgConnection::Literal(table.schema) +
                                        ", " + TLPgConnection::Literal(table.name) + ", " +
                                        TLPgConnection::Literal(table.geometryColumn) + ")",
                                    why);
    table.srid = srid.empty() ? 0 : std::stoi(srid);
    // Counted no further than the limit: the answer is only whether the table is small.
    const std::string rows =
        scalar(dataset,
               "SELECT count(*) FROM (SELECT 1 FROM " + TLPgConnection::Identifier(table.schema) +
                   "." + TLPgConnection::Identifier(table.name) + " LIMIT " +
                   std::to_string(gReadWholeLimit + 1) + ") s",
               why);
    const bool whole =
        table.idColumn.empty() || (!rows.empty() && std::stol(rows) <= gReadWholeLimit);
    auto store = std::make_unique<TLPgFeatureStore>(table, whole);
    TLPgFeatureStore* pg = store.get();
    if (!whole && !pg->ReadExtent(why))
        notes.push_back(name + TLString(": the bounds of the table are unknown (" + why + ")"));
    TLRefPtr<TLFeatureTable> features(
        new TLFeatureTable(name, TLOgrSchema::Fields(layer), std::move(store)));
    if (whole) {
        pg->Fetch(*features, TLRect(-1e308, 1e308, -1e308, 1e308));
        if (!pg->LastReadError().IsEmpty()) {
            notes.push_back(pg->LastReadError());
            return TLRefPtr<TLFeatureLayer>();
        }
    }
    TLRefPtr<TLFeatureLayer> featureLayer(
        new TLFeatureLayer(name, TLOgrSchema::LayerKind(layer.GetGeomType()), features,
                           TLSystemOfGdalReference(layer.GetSpatialRef())));
    featureLayer->SetEditable(editable);
    return featureLayer;
}

}  // namespace TMObjects
