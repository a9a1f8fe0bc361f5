#include "edit/TLPartEdit.h"

#include "edit/TLClickQuery.h"
#include "edit/TLVertexHit.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMapView.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

namespace {

// The first candidate of the layer that the click hits, or an empty pick.
TLPartEdit::Pick pickInLayer(TLMapView* view, TLFeatureLayer* layer, const TLPoint& click,
                             double tolerance, bool trySegments) {
    TLPartEdit::Pick pick;
    for (const TLClickQuery::Candidate& candidate :
         TLClickQuery::Select(view, layer, click.x, click.y)) {
        TLGeometry* geometry = candidate.geometry.get();
        double vx = 0.0, vy = 0.0;
        int index = hitVertex(geometry, click.x, click.y, tolerance, vx, vy);
        if (index < 0 && trySegments) index = hitSegment(geometry, click.x, click.y, tolerance);
        if (index < 0) continue;
        pick.layer = layer;
        pick.id = candidate.id;
        pick.index = index;
        pick.geometry = candidate.geometry;
        return pick;
    }
    return pick;
}

bool project(TLMapView* view, TLFeatureLayer* layer, TLGeometry* geometry, bool toMap) {
    if (!geometry || !TLClickQuery::NeedsProjection(view, layer)) return true;
    TLCoordinateSystem* mapSystem = view->GetMap()->GetSpatialReference().get();
    TLCoordinateSystem* layerSystem = layer->GetSpatialReference().get();
    TLGeometryProject projection;
    if (!projection.SetPrj(toMap ? layerSystem : mapSystem, toMap ? mapSystem : layerSystem,
                           nullptr))
        return false;
    return projection.ProjTmGeometry(geometry);
}

}  // namespace

TLPartEdit::Pick TLPartEdit::PickFeature(TLMapView* view, const TLPoint& click, double tolerance,
                                         bool skipPointLayers, bool trySegments) {
    const std::vector<TLRefPtr<TLLayer>> layers = view->GetMap()->GetLayers(true);
    for (const TLRefPtr<TLLayer>& layer : layers)
        if (auto* features = dynamic_cast<TLFeatureLayer*>(layer.get()))
            features->ClearSelect(false);

    for (const TLRefPtr<TLLayer>& layer : layers) {
        auto* features = dynamic_cast<TLFeatureLayer*>(layer.get());
        if (!features || !features->IsValid()) continue;
        if (skipPointLayers && features->GetLayerType() == TLLayer::PointLayer) continue;
        Pick pick = pickInLayer(view, features, click, tolerance, trySegments);
        features->ClearSelect(false);
        if (!pick.layer) continue;
        TLRefPtr<TLFeature> feature = features->GetFeature(pick.id);
        if (feature) features->AddSelect(feature.get(), false);
        return pick;
    }
    return Pick();
}

std::vector<TLPartEdit::Part> TLPartEdit::Parts(TLGeometry* geometry) {
    std::vector<int> info;
    int count = 0;
    if (auto* line = dynamic_cast<TLGeoPolyline*>(geometry)) {
        count = line->GetSegmentInfo(nullptr);
        info.resize(4 * std::size_t(count));
        if (count > 0) line->GetSegmentInfo(info.data());
    } else if (auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry)) {
        count = polygon->GetSegmentInfo(nullptr);
        info.resize(4 * std::size_t(count));
        if (count > 0) polygon->GetSegmentInfo(info.data());
    }
    std::vector<Part> parts(static_cast<std::size_t>(count));
    for (int p = 0; p < count; ++p) parts[std::size_t(p)] = {info[4 * p + 2], info[4 * p + 3]};
    return parts;
}

bool TLPartEdit::ToMap(TLMapView* view, TLFeatureLayer* layer, TLGeometry* geometry) {
    return project(view, layer, geometry, true);
}

bool TLPartEdit::ToLayer(TLMapView* view, TLFeatureLayer* layer, TLGeometry* geometry) {
    return project(view, layer, geometry, false);
}

TLFeatureLayer* TLPartEdit::LiveLayer(TLMapView* view, TLFeatureLayer* layer) {
    if (!view || !view->GetMap() || !layer) return nullptr;
    for (const TLRefPtr<TLLayer>& each : view->GetMap()->GetLayers(true))
        if (each.get() == layer) return layer;
    return nullptr;
}

}  // namespace TMObjects
