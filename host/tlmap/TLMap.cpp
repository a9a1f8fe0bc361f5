#include "tlmap/TLMap.h"

#include <algorithm>
#include <cmath>

#include "tlmap/TLFeatureLayer.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

namespace {

// Points per side when a rectangle is carried into another system: its sides bend under most
// projections, so the corners alone would cut the extent short.
constexpr int kSamplesPerSide = 16;

TLRect projectRect(const TLRect& rect, TLCoordinateSystem* from, TLCoordinateSystem* to) {
    TLGeometryProject projector;
    if (!projector.SetPrj(from, to, nullptr)) return TLRect();
    TLRect out;
    auto take = [&](double x, double y) {
        if (projector.ProjXY(x, y) && std::isfinite(x) && std::isfinite(y))
            out.Union(TLPoint(x, y));
    };
    const double x0 = rect.XMinimum(), x1 = rect.XMaximum();
    const double y0 = rect.YMinimum(), y1 = rect.YMaximum();
    for (int i = 0; i <= kSamplesPerSide; ++i) {
        const double t = double(i) / kSamplesPerSide;
        take(x0 + t * (x1 - x0), y0);
        take(x0 + t * (x1 - x0), y1);
        take(x0, y0 + t * (y1 - y0));
        take(x1, y0 + t * (y1 - y0));
    }
    return out;
}

}  // namespace

TLMap::TLMap() = default;

TLMap::~TLMap() {
    // Layers may outlive the map in other hands; they must not reach a map that is gone.
    for (const auto& layer : mLayers)
        if (layer->GetMap() == this) layer->SetMap(nullptr);
}

void TLMap::SetCurrentLayer(TLLayer* layer) {
    if (layer == mCurrent.get()) return;
    mCurrent = layer;
    TLEvent event(TLVariant::FromInt(layer ? layer->GetLayerId() : -1));
    currentLayerChanged.emit(this, &event);
}

TLRefPtr<TLLayer> TLMap::GetLayerByID(int id) const {
    for (const auto& layer : mLayers)
        if (layer->GetLayerId() == id) return layer;
    return TLRefPtr<TLLayer>();
}

TLRefPtr<TLLayer> TLMap::GetLayerByName(const TLString& name) const {
    for (const auto& layer : mLayers)
        if (layer->GetLayerName() == name) return layer;
    for (const auto& layer : mLayers)
        if (layer->GetLayerName().CompareNoCase(name) == 0) return layer;
    return TLRefPtr<TLLayer>();
}

std::vector<TLRefPtr<TLLayer>> TLMap::GetLayers(bool all) const {
    if (all) return mLayers;
    std::vector<TLRefPtr<TLLayer>> visible;
    for (const auto& layer : mLayers)
        if (layer->IsVisible()) visible.push_back(layer);
    return visible;
}

bool TLMap::InsertLayer(int position, TLLayer* layer, bool notify) {
    if (!layer) return false;
    for (const auto& l : mLayers)
        if (l.get() == layer) return false;
    TLRefPtr<TLLayer> held(layer);
    if (position < 0 || position >= int(mLayers.size()))
        mLayers.push_back(held);
    else
        mLayers.insert(mLayers.begin() + position, held);
    layer->SetMap(this);
    if (notify) {
        TLEvent event(TLVariant::FromInt(layer->GetLayerId()));
        layerAdded.emit(this, &event);
    }
    return true;
}

bool TLMap::RemoveLayer(TLLayer* layer) {
    auto it = std::find_if(mLayers.begin(), mLayers.end(),
                           [layer](const TLRefPtr<TLLayer>& l) { return l.get() == layer; });
    if (!layer || it == mLayers.end()) return false;
    // Held until the handlers have heard of it, so that they may still look at the layer.
    TLRefPtr<TLLayer> held = *it;
    mLayers.erase(it);
    if (mCurrent.get() == layer) SetCurrentLayer(nullptr);
    if (mEditor.edit_layer() == layer) mEditor.set_edit_layer(nullptr);
    layer->SetMap(nullptr);
    TLEvent event(TLVariant::FromInt(layer->GetLayerId()));
    layerRemoved.emit(this, &event);
    return true;
}

void TLMap::Sort() {}

TLRefPtr<TLFeatureSelectionSet> TLMap::GetAllSelection() const {
    TLRefPtr<TLFeatureSelectionSet> all(new TLFeatureSelectionSet());
    for (const auto& layer : mLayers) {
        auto* featureLayer = dynamic_cast<TLFeatureLayer*>(layer.get());
        if (!featureLayer || !featureLayer->HasSelectedFeatures()) continue;
        TLRefPtr<TLFeatureSelectionSet> set = featureLayer->GetSelection();
        for (int i = 0; i < set->GetCount(); ++i) all->Add(set->GetFeature(i));
    }
    return all;
}

TLRect TLMap::GetFullExtent() const {
    TLRect extent;
    for (const auto& layer : mLayers) {
        TLRect rect = layer->GetExtent();
        if (rect.IsEmpty()) continue;
        TLCoordinateSystem* from = layer->GetSpatialReference().get();
        TLCoordinateSystem* to = mReference.get();
        if (from && to && from != to && !from->IsSame(to)) rect = projectRect(rect, from, to);
        extent.Union(rect);
    }
    return extent;
}

TLUnitType TLMap::GetMapDisplayUnit() const {
    if (!mReference) return TLUnitUnknown;
    return mReference->IsGeographic() ? TLUnitDegree : TLUnitMeter;
}

}  // namespace TMObjects
