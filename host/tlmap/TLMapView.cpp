#include "tlmap/TLMapView.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "tlbase/TLCoordinateLimit.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLRubberBand.h"
#include "tlsymbol/TLViewLimits.h"

namespace TMObjects {

namespace {

bool finite(const TLRect& r) {
    return std::isfinite(r.XMinimum()) && std::isfinite(r.XMaximum()) &&
           std::isfinite(r.YMinimum()) && std::isfinite(r.YMaximum());
}

// The value of "+units=" in a PROJ string, empty when it names none.
std::string projUnits(const std::string& proj) {
    const std::string key = "+units=";
    const std::size_t at = proj.find(key);
    if (at == std::string::npos) return {};
    const std::size_t from = at + key.size();
    return proj.substr(from, proj.find(' ', from) - from);
}

struct Units {
    TLUnitType map;
    TLUnitsType transform;
};

// PROJ reports projected systems without "+units=" in metres.
Units unitsOf(TLCoordinateSystem* reference) {
    if (!reference) return {TLUnitUnknown, TLUnknownUnits};
    if (reference->IsGeographic()) return {TLUnitDegree, TLDecimalDegrees};
    const std::string units = projUnits(reference->ExportToString().toStdString());
    if (units.empty() || units == "m") return {TLUnitMeter, TLMeters};
    if (units == "km") return {TLUnitKilometer, TLKilometers};
    if (units == "ft" || units == "us-ft") return {TLUnitFeet, TLFeet};
    if (units == "yd" || units == "us-yd") return {TLUnitYards, TLYards};
    if (units == "mi" || units == "us-mi") return {TLUnitMiles, TLMiles};
    if (units == "kmi") return {TLUnitNauticalMiles, TLNauticalMiles};
    return {TLUnitUnknown, TLUnknownUnits};
}

// Whatever a tool asks, the view stays finite and usable: an area the display transform cannot
// show leaves the view as it was, and the user hears why through the editor's listeners (the
// host shows it on the command window).
void refuseView(TLMap* map, const TLRect& bounds) {
    if (!map) return;
    const bool far =
        !TLUsableCoordinate(bounds.XMinimum()) || !TLUsableCoordinate(bounds.XMaximum()) ||
        !TLUsableCoordinate(bounds.YMinimum()) || !TLUsableCoordinate(bounds.YMaximum());
    map->editor()->ReportRefusal(
        TLString(far ? "The view was kept: the area to show reaches beyond 1e15, where no map "
                       "can be drawn."
                     : "The view was kept: the area to show is too small to be drawn."));
}

}  // namespace

// ---- TLView ----

TLView::~TLView() {
    // Bands belong to their tools and may outlive the view.
    for (TLRubberBand* band : mBands) band->DetachView();
}

void TLView::AddRubberBand(TLRubberBand* band) {
    if (band && std::find(mBands.begin(), mBands.end(), band) == mBands.end())
        mBands.push_back(band);
}

void TLView::RemoveRubberBand(TLRubberBand* band) {
    mBands.erase(std::remove(mBands.begin(), mBands.end(), band), mBands.end());
}

void TLView::SetSnapMarker(const TLPoint& p, bool shown) {
    mSnapMarker = shown ? p : TLPoint();
    mSnapMarkerShown = shown;
}

// ---- TLMapView ----

TLMapView::TLMapView(TLRefPtr<TLMap> map) : mMap(map), mDisplay(map.get()) {}

TLMapView::~TLMapView() = default;

TLUnitType TLMapView::GetMapUnit() const {
    if (!mMap) return TLUnitUnknown;
    return unitsOf(mMap->GetSpatialReference().get()).map;
}

TLDisplay* TLMapView::GetDisplay() {
    return &mDisplay;
}

TLDisplayTransform* TLMapView::GetDisplayTransform() {
    syncUnits();
    return mDisplay.GetDisplayTransform();
}

void TLMapView::syncUnits() {
    // The map's system may be set or replaced after the view was made; a pointer comparison
    // keeps this cheap enough for every pointer move.
    TLRefPtr<TLCoordinateSystem> reference = mMap ? mMap->GetSpatialReference() : nullptr;
    if (mUnitsSynced && reference == mUnitsReference) return;
    mUnitsReference = reference;
    mUnitsSynced = true;
    mDisplay.GetDisplayTransform()->mUnits = int(unitsOf(reference.get()).transform);
}

TLRect TLMapView::GetVisibleRect() {
    return GetDisplayTransform()->GetVisibleBounds();
}

void TLMapView::UpdateView(bool) {
    if (mListener) mListener->OnUpdateView();
}

void TLMapView::RefreshOverlay() {
    if (mListener) mListener->OnRefreshOverlay();
}

void TLMapView::RefreshMap(bool, const TLRect& rect) {
    if (mListener) mListener->OnRefreshMap(rect);
}

void TLMapView::Refresh(TLLayer* layer, TLMapCache::CacheType type, const TLRect& rect) {
    if (mListener) mListener->OnRefresh(layer, int(type), rect);
}

void TLMapView::UpdateMap() {
    if (mListener) mListener->OnUpdateMap();
}

void TLMapView::SetDeviceSize(int width, int height) {
    if (width <= 0 || height <= 0) return;
    GetDisplayTransform()->SetDeviceFrame(TLRect(0, width, 0, height));
    visibleBoundsChanged();
}

void TLMapView::SetVisibleBounds(const TLRect& bounds) {
    if (bounds.IsEmpty() || !finite(bounds)) return;
    if (!TLCanShow(*GetDisplayTransform(), bounds)) {
        refuseView(mMap.get(), bounds);
        return;
    }
    GetDisplayTransform()->SetVisibleBounds(bounds);
    visibleBoundsChanged();
}

void TLMapView::visibleBoundsChanged() {
    if (mListener) mListener->OnVisibleBoundsChanged();
}

void TLMapView::centreOn(const TLPoint& centre) {
    TLDisplayTransform* t = GetDisplayTransform();
    double hw = t->mDeviceFrame.Width() * t->mResolution / 2;
    double hh = t->mDeviceFrame.Height() * t->mResolution / 2;
    if (!t->mVisibleBounds.IsEmpty()) {
        hw = t->mVisibleBounds.Width() / 2;
        hh = t->mVisibleBounds.Height() / 2;
    }
    // Set directly: going through SetVisibleBounds would recompute the resolution and let the
    // scale drift by rounding.
    const TLRect moved(centre.x - hw, centre.x + hw, centre.y - hh, centre.y + hh);
    if (!TLCanShow(*t, moved)) {
        refuseView(mMap.get(), moved);
        return;
    }
    t->mVisibleBounds = moved;
    visibleBoundsChanged();
}

void TLMapView::PanToBound(TLRect rect) {
    if (rect.IsEmpty() || !finite(rect)) return;
    centreOn(rect.Center());
}

void TLMapView::ZoomToBound(TLRect rect) {
    if (rect.IsEmpty() || !finite(rect)) return;
    // A single point has no size to show: keep the scale and only move there.
    if (rect.Width() <= 0 && rect.Height() <= 0) {
        PanToBound(rect);
        return;
    }
    SetVisibleBounds(rect);
}

void TLMapView::PanToSelection(TLLayer* layer) {
    PanToBound(selectionBound(layer));
}

void TLMapView::ZoomToSelection(TLLayer* layer) {
    ZoomToBound(selectionBound(layer));
}

TLRect TLMapView::selectionBound(TLLayer* layer) {
    TLRect bound;
    if (layer) {
        addSelectionBound(layer, bound);
    } else if (mMap) {
        for (const TLRefPtr<TLLayer>& each : mMap->GetLayers(true))
            addSelectionBound(each.get(), bound);
    }
    return bound;
}

void TLMapView::addSelectionBound(TLLayer* layer, TLRect& bound) {
    auto* features = dynamic_cast<TLFeatureLayer*>(layer);
    if (!features || !features->HasSelectedFeatures()) return;
    TLRefPtr<TLFeatureTable> table = features->GetDatasource();
    if (!table) return;
    TLRect layerBound;
    for (int id : features->GetSelectedIds()) {
        const TLFeature* feature = table->PeekFeature(id);
        if (!feature) continue;
        TLRefPtr<TLGeometry> geometry = feature->GetGeometry();
        if (geometry && !geometry->IsEmpty()) layerBound.Union(geometry->GetBound());
    }
    if (layerBound.IsEmpty()) return;
    GetDisplay()->ToMapRect(features->GetSpatialReference().get(), layerBound);
    bound.Union(layerBound);
}

void TLMapView::TwinkleGeometry(TLGeometry* geometry, TLStyle*, int times) {
    // The flash is the listener's to animate; the caller's event must not wait for it.
    if (geometry && mListener) mListener->OnTwinkle(geometry, times);
}

void TLMapView::TwinkleGeometrysInOrder(TLGeometry** geometries, int count, TLStyle*, TLStyle*,
                                        TLStyle*, int) {
    if (!geometries || !mListener) return;
    for (int i = 0; i < count; ++i)
        if (geometries[i]) mListener->OnTwinkle(geometries[i], 1);
}

void TLMapView::setClipPolygon(TLGeoPolygon* polygon) {
    // The caller's polygon is often a temporary: keep a copy. An empty polygon would hide the
    // whole map, which is never what is meant, so it removes the mask like null does.
    mClip.reset();
    if (polygon && !polygon->IsEmpty()) mClip = polygon->Clone().dynamicCast<TLGeoPolygon>();
    if (mListener) mListener->OnClipPolygonChanged();
}

}  // namespace TMObjects
