#include "survey/TLSurveyScratchLayer.h"

#include <cmath>

#include "TLToolText.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlmap/TLDisplay.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsde/TLFeature.h"

namespace TMObjects {

TLFeatureLayer* TLSurveyScratchLayer::findOrCreate(TLToolBuddy* buddy, TLMap* map) {
    TLRefPtr<TLLayer> found = map->GetLayerByID(buddy->ScratchPointLayerId());
    if (found) return dynamic_cast<TLFeatureLayer*>(found.get());

    TLFeatureLayer* layer = TLFeatureLayer::CreateMemoryLayer(
        toolText("MeasurePointLayer"), TLLayer::PointLayer, TLFields(), map->GetSpatialReference());
    if (!layer) return nullptr;
    // Held here until the map holds it, so that a refused insert does not leak the layer.
    TLRefPtr<TLLayer> held(layer);
    if (!map->InsertLayer(0, layer, true)) return nullptr;
    buddy->SetScratchPointLayerId(layer->GetLayerId());
    return layer;
}

bool TLSurveyScratchLayer::addPoint(TLToolBuddy* buddy, const TLPoint& p) {
    TLMapView* view = buddy ? buddy->GetMapView() : nullptr;
    TLMap* map = view ? view->GetMap() : nullptr;
    if (!map || !std::isfinite(p.x) || !std::isfinite(p.y)) return false;
    TLFeatureLayer* layer = findOrCreate(buddy, map);
    if (!layer) return false;
    map->Sort();

    // The layer is not the edit layer, yet the step goes on the map's editor, so that undo takes
    // the point back like any other drawing.
    TLEditor* editor = map->editor();
    TLLayerEditBuffer* buffer = layer->layer_edit_buffer();
    TLRefPtr<TLCoordinateSystem> reference = layer->GetSpatialReference();
    editor->StartOperation("add feature");
    TLRefPtr<TLGeoPoint> geoPoint(new TLGeoPoint);
    geoPoint->PutCoords(p.x, p.y);
    view->GetDisplay()->ToGeometry(reference.get(), geoPoint.get());
    TLFeature feature;
    feature.SetGeometry(geoPoint);
    buffer->AddFeature(feature, true, true);
    editor->CommitOperation(true);
    return true;
}

}  // namespace TMObjects
