#include "digitize/TLSelectAssistTool.h"

#include <memory>

#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLSnapReckon.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

namespace {

// Three pixels around the pointer, in map units.
constexpr double kPickPixels = 3.0;

bool pickable(TLFeatureLayer* layer) {
    const TLLayer::LayerType type = layer->GetLayerType();
    return (type == TLLayer::LineLayer || type == TLLayer::PolygonLayer) && layer->IsValid();
}

}  // namespace

TLSelectAssistTool::TLSelectAssistTool() = default;

TLSelectAssistTool::~TLSelectAssistTool() = default;

void TLSelectAssistTool::PickSegment(TLToolBuddy* buddy, const double* x, const double* y,
                                     double* x1, double* y1, double* x2, double* y2) {
    if (!buddy || !buddy->GetMapView()) return;
    *x1 = *y1 = *x2 = *y2 = 0;
    Hit hit;
    if (!search(buddy, *x, *y, hit)) return;
    *x1 = hit.start.x;
    *y1 = hit.start.y;
    *x2 = hit.end.x;
    *y2 = hit.end.y;
}

TLRefPtr<TLGeometry> TLSelectAssistTool::PickFeature(TLToolBuddy* buddy, const TLPoint& point,
                                                     TLPoint& segmentStart, TLPoint& segmentEnd) {
    if (!buddy || !buddy->GetMapView()) return {};
    Hit hit;
    if (!search(buddy, point.x, point.y, hit)) return {};
    segmentStart = hit.start;
    segmentEnd = hit.end;
    return selectHit(hit);
}

TLRefPtr<TLGeometry> TLSelectAssistTool::PickFeatureAndFoot(TLToolBuddy* buddy,
                                                            const TLPoint& point,
                                                            TLPoint& segmentStart,
                                                            TLPoint& segmentEnd, TLPoint& foot) {
    if (!buddy || !buddy->GetMapView()) return {};
    Hit hit;
    if (!search(buddy, point.x, point.y, hit)) return {};
    segmentStart = hit.start;
    segmentEnd = hit.end;
    foot = hit.foot;
    return selectHit(hit);
}

TLRefPtr<TLGeometry> TLSelectAssistTool::selectHit(const Hit& hit) const {
    TLRefPtr<TLFeature> feature = hit.layer->GetFeature(hit.featureId);
    if (!feature) return {};
    hit.layer->AddSelect(feature.get(), false);
    return feature->GetGeometry();
}

bool TLSelectAssistTool::search(TLToolBuddy* buddy, double x, double y, Hit& hit) const {
    TLMapView* view = buddy->GetMapView();
    TLDisplayTransform* transform = view->GetDisplayTransform();
    if (!view->GetDisplay() || !transform || !view->GetMap()) return false;

    const double tolerance = transform->mResolution * kPickPixels;
    TLRefPtr<TLGeometry> envelope(
        new TLGeoEnvelope(x - tolerance, y - tolerance, x + tolerance, y + tolerance));
    TLRefPtr<TLCoordinateSystem> mapReference = view->GetMap()->GetSpatialReference();

    const std::vector<TLRefPtr<TLLayer>> layers = view->GetMap()->GetLayers(true);
    for (auto it = layers.rbegin(); it != layers.rend(); ++it) {
        auto* layer = dynamic_cast<TLFeatureLayer*>(it->get());
        if (!layer || !pickable(layer)) continue;
        // The envelope is projected in place and goes on to the next layer as it is.
        if (searchLayer(layer, mapReference.get(), envelope.get(), x, y, tolerance, hit))
            return true;
    }
    return false;
}

bool TLSelectAssistTool::searchLayer(TLFeatureLayer* layer, TLCoordinateSystem* mapReference,
                                     TLGeometry* envelope, double x, double y, double tolerance,
                                     Hit& hit) const {
    TLRefPtr<TLFeatureTable> table = layer->GetDatasource();
    if (!table) return false;
    TLRefPtr<TLCoordinateSystem> layerReference = layer->GetSpatialReference();
    std::unique_ptr<TLGeometryProject> projector;
    if (mapReference && layerReference && !mapReference->IsSame(layerReference.get())) {
        projector = std::make_unique<TLGeometryProject>();
        projector->SetPrj(mapReference, layerReference.get(), nullptr);
        projector->ProjTmGeometry(envelope, envelope->GetType());
    }

    // With both systems alike, the bounds found through the index stand in for the layer's
    // search: a hit on a segment of a feature proves that the feature meets the envelope, which
    // spares the exact test of every candidate. Only a hit on the step between two parts proves
    // nothing and is checked. With the envelope in the layer's system, and the point still in the
    // map's, there is no such proof, and the layer's own search decides.
    TLQueryFilter filter;
    filter.SetFilterGeometry(envelope);
    filter.SetSpatialRel(TLSpatialRelIntersects);
    const std::vector<int> candidates =
        projector ? table->Search(filter) : table->SearchBounds(envelope->GetBound());
    for (int id : candidates) {
        const TLFeature* feature = table->PeekFeature(id);
        TLRefPtr<TLGeometry> geometry = feature ? feature->GetGeometry() : nullptr;
        if (!geometry) continue;
        const TLGeometry::GeoType type = geometry->GetType();
        if (type != TLGeometry::GeoPolyline && type != TLGeometry::GeoPolygon) continue;
        if (projector) projector->ProjTmGeometry(envelope, envelope->GetType());
        // The vertices are in the layer's system and the point is compared with them as it
        // stands, in the map's: on a layer in another system the two are mixed.
        if (!firstSegment(geometry.get(), x, y, tolerance, hit)) continue;
        if (!projector && joinsParts(geometry.get(), hit.startIndex) &&
            !envelope->Intersects(geometry.get()))
            continue;
        hit.layer = layer;
        hit.featureId = id;
        return true;
    }
    return false;
}

bool TLSelectAssistTool::joinsParts(TLGeometry* geometry, int startIndex) {
    const TLPartList* parts = nullptr;
    if (auto* line = dynamic_cast<TLGeoPolyline*>(geometry)) parts = &line->Parts();
    if (auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry)) parts = &polygon->Parts();
    return parts && parts->PartOf(startIndex) != parts->PartOf(startIndex + 1);
}

bool TLSelectAssistTool::firstSegment(TLGeometry* geometry, double x, double y, double tolerance,
                                      Hit& hit) {
    double* xy = nullptr;
    int count = 0;
    if (!geometry->GetRawPoints(&xy, count) || !xy) return false;
    // The raw array runs through all parts, so the step from one part's last vertex to the
    // next part's first is tried like any segment.
    for (int i = 0; i + 1 < count; ++i) {
        const double x1 = xy[2 * i], y1 = xy[2 * i + 1];
        const double x2 = xy[2 * i + 2], y2 = xy[2 * i + 3];
        double fx = 0, fy = 0;
        if (!TLSnapReckon::ptNearLine(x1, y1, x2, y2, x, y, tolerance, fx, fy)) continue;
        if (!TLSnapReckon::getPlumb(x1, y1, x2, y2, x, y, fx, fy)) continue;
        if (tolerance < TLSnapReckon::calcDistance(x, y, fx, fy)) continue;
        hit.start = TLPoint(x1, y1);
        hit.end = TLPoint(x2, y2);
        hit.foot = TLPoint(fx, fy);
        hit.startIndex = i;
        return true;
    }
    return false;
}

}  // namespace TMObjects
