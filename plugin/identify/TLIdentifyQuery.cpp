#include "identify/TLIdentifyQuery.h"

#include "tlgeo/TLGeoEnvelope.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

namespace {

bool differ(TLCoordinateSystem* a, TLCoordinateSystem* b) {
    return a && b && a != b && !a->IsSame(b);
}

void restore(TLFeatureLayer* layer, const std::vector<int>& ids) {
    if (ids.empty()) return;
    for (int id : ids) layer->AddSelect(id);
    layer->NotifyObservers(TLFeatureLayer::HintSelectionChanged);
}

}  // namespace

TLIdentifyQuery::TLIdentifyQuery(double xmin, double xmax, double ymin, double ymax,
                                 double tolerance)
    : mXMin(xmin), mXMax(xmax), mYMin(ymin), mYMax(ymax), mTolerance(tolerance) {}

std::vector<int> TLIdentifyQuery::pick(TLFeatureLayer* layer, TLCoordinateSystem* mapReference,
                                       int method) const {
    std::vector<int> ids;
    if (!layer) return ids;
    // A fresh envelope for every layer: one projected for a layer never reaches the next.
    TLRefPtr<TLGeoEnvelope> envelope(new TLGeoEnvelope);
    envelope->PutCoord(mXMin, mYMin, mXMax, mYMax);
    TLCoordinateSystem* layerReference = layer->GetSpatialReference().get();
    if (differ(mapReference, layerReference)) {
        TLGeometryProject project;
        if (!project.SetPrj(mapReference, layerReference, nullptr) ||
            !project.ProjKqGeometry(envelope.get()))
            return ids;
    }
    TLQueryFilter filter = layer->query_filter();
    if (filter.IsSpatialFilter()) {
        // The standing filter stays in force: only its part under the pick may be hit. When the
        // two do not meet there is nothing to find, and a filter without geometry would take
        // the whole layer.
        TLRefPtr<TLGeometry> narrowed =
            filter.GetFilterGeometry()->Intersect(envelope.get(), 0.1 * mTolerance);
        if (!narrowed || narrowed->IsEmpty()) return ids;
        filter.SetFilterGeometry(narrowed);
    } else {
        filter.SetFilterGeometry(envelope);
        filter.SetSpatialRel(TLSpatialRelIntersects);
    }
    // Selecting replaces what the user had selected on the layer; it is put back afterwards, so
    // that identifying never costs the user a selection.
    const std::vector<int> before = layer->GetSelectedIds();
    layer->SelectFeatures(filter, method, 0);
    const int count = layer->SelectedFeatureCount();
    for (int i = 0; i < count; ++i) ids.push_back(layer->Get_SelFeaIDs_Val(i));
    layer->ClearSelect(true);
    restore(layer, before);
    return ids;
}

}  // namespace TMObjects
