#include "mask/TLToolShieldSelection.h"

#include <algorithm>
#include <string>

#include "TLToolText.h"
#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

namespace {

const int kShiftModifier = 0x2000000;

// The selecting mode that replaces the layer's selection.
const int kReplaceSelection = 1;

bool usable(TLFeatureLayer* layer) {
    return layer && layer->IsValid();
}

}  // namespace

int TLToolShieldSelection::pickCycleIndex = 0;

TLToolShieldSelection::TLToolShieldSelection() = default;

TLToolShieldSelection::TLToolShieldSelection(TLToolBuddy* buddy) : TLToolShieldAreas(buddy) {}

TLToolShieldSelection::~TLToolShieldSelection() = default;

bool TLToolShieldSelection::IsCmd() {
    return true;
}

void TLToolShieldSelection::activate() {
    TLToolShieldAreas::activate();
    if (!mBuddy || !mBuddy->HasActiveMap() || !mapView()) return;
    maskWithSelection();
}

void TLToolShieldSelection::maskWithSelection() {
    int layers = 0, total = 0;
    TLFeatureLayer* only = nullptr;
    for (const TLRefPtr<TLLayer>& each : mapView()->GetMap()->GetLayers(true)) {
        auto* layer = dynamic_cast<TLFeatureLayer*>(each.get());
        if (!usable(layer) || layer->GetLayerType() != TLLayer::PolygonLayer) continue;
        const int selected = int(layer->GetSelectedIds().size());
        if (selected == 0) continue;
        ++layers;
        total += selected;
        only = layer;
    }
    if (layers >= 2) {
        mBuddy->ShowMessage(toolText("Selection cross layer"));
    } else if (total != 1) {
        mBuddy->ShowMessage(toolText("The number of selected features is not 1"));
    } else {
        maskWithGeometry(only, only->GetSelectedIds().front());
    }
}

bool TLToolShieldSelection::maskWithGeometry(TLFeatureLayer* layer, int id) {
    TLRefPtr<TLFeature> feature = layer->GetFeature(id);
    TLRefPtr<TLGeometry> stored = feature ? feature->GetGeometry() : nullptr;
    if (!stored || stored->GetType() != TLGeometry::GeoPolygon || stored->IsEmpty()) return false;
    // A copy: the layer's own geometry must stay in the layer's coordinates.
    TLRefPtr<TLGeometry> geometry = stored->Clone();
    TLMapView* view = mapView();
    // A polygon left in the layer's coordinates would mask the wrong part of the map, or all of it.
    if (!view->GetDisplay()->ToMapGeometry(layer->GetSpatialReference().get(), geometry.get()))
        return false;
    view->setClipPolygon(dynamic_cast<TLGeoPolygon*>(geometry.get()));
    points.clear();
    view->UpdateView(true);
    return true;
}

bool TLToolShieldSelection::OnMouseDown(TLMouseButton button, int x, int y) {
    TLMapView* view = mapView();
    if (!view) return false;
    if (button != TLLeftButton) return true;
    // The last layer of the map lies on top: the pick goes from the top of the stack down.
    const std::vector<TLRefPtr<TLLayer>> layers = view->GetMap()->GetLayers(true);
    for (auto it = layers.rbegin(); it != layers.rend(); ++it) {
        auto* layer = dynamic_cast<TLFeatureLayer*>(it->get());
        if (usable(layer) && pickOn(layer, x, y)) break;
    }
    return true;
}

bool TLToolShieldSelection::pickOn(TLFeatureLayer* layer, int x, int y) {
    const std::vector<int> hits = hitsAt(layer, x, y);
    // Shift on overlapping polygons cycles through them, the selected one among them included;
    // it takes a plain click to mask.
    const bool cycling = shiftHeld() && hits.size() > 1;
    if (layer->HasSelectedFeatures() && !cycling) {
        std::vector<int> selectedHits;
        for (int id : hits)
            if (layer->IsSelected(id)) selectedHits.push_back(id);
        if (maskWithFirstPolygon(layer, selectedHits)) return true;
    }
    if (hits.empty()) return false;
    return selectOneOf(layer, hits);
}

std::vector<int> TLToolShieldSelection::hitsAt(TLFeatureLayer* layer, int x, int y) {
    TLMapView* view = mapView();
    const TLDisplayTransform* t = view->GetDisplayTransform();
    const double mx =
        (x - t->mDeviceFrame.XMinimum()) * t->mResolution + t->mVisibleBounds.XMinimum();
    const double my =
        t->mVisibleBounds.YMaximum() - (y - t->mDeviceFrame.YMinimum()) * t->mResolution;
    const double d = TLSelectionEnvironment::Instance()->GetTolerance() * t->mResolution;
    TLRefPtr<TLGeometry> envelope(new TLGeoEnvelope(mx - d, my - d, mx + d, my + d));

    TLRefPtr<TLCoordinateSystem> mapReference = view->GetMap()->GetSpatialReference();
    TLRefPtr<TLCoordinateSystem> layerReference = layer->GetSpatialReference();
    if (mapReference && layerReference && !mapReference->IsSame(layerReference.get())) {
        TLGeometryProject project;
        project.SetPrj(mapReference.get(), layerReference.get(), nullptr);
        project.ProjTmGeometry(envelope.get(), envelope->GetType());
    }

    TLQueryFilter filter;
    filter.SetFilterGeometry(envelope);
    filter.SetSpatialRel(TLSpatialRelIntersects);
    std::vector<int> hits;
    TLRefPtr<TLFeatureCursor> cursor = layer->Search(filter);
    while (TLRefPtr<TLFeature> feature = cursor ? cursor->NextFeature() : nullptr)
        hits.push_back(feature->GetId());
    return hits;
}

bool TLToolShieldSelection::shiftHeld() const {
    return mBuddy->KeyboardModifiers() == kShiftModifier;
}

bool TLToolShieldSelection::maskWithFirstPolygon(TLFeatureLayer* layer,
                                                 const std::vector<int>& ids) {
    for (int id : ids)
        if (maskWithGeometry(layer, id)) return true;
    return false;
}

bool TLToolShieldSelection::selectOneOf(TLFeatureLayer* layer, const std::vector<int>& hits) {
    pickCycleIndex = shiftHeld() ? (pickCycleIndex + 1) % int(hits.size()) : 0;
    // Annotation layers know their ids only as FID.
    const char* idField =
        layer->GetLayerType() == TLLayer::AnnotationLayer ? "FID = " : "__OBJECTID__ = ";
    TLQueryFilter filter;
    filter.SetWhereClause(
        TLString((idField + std::to_string(hits[std::size_t(pickCycleIndex)])).c_str()));
    layer->SelectFeatures(filter, kReplaceSelection, 0);
    mapView()->Refresh(nullptr, TLMapCache::SelectionCache, TLRect());
    return layer->HasSelectedFeatures();
}

}  // namespace TMObjects
