#pragma once

#include <memory>
#include <vector>

#include "tlbase/TLRect.h"
#include "tlbase/TLRefBase.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLDisplay.h"
#include "tlmap/TLMap.h"
#include "tlsymbol/TLPen.h"
#include "tlsymbol/TLUnits.h"

namespace TMObjects {

class TLRubberBand;
class TLLayer;

class TLMapCache {
public:
    enum CacheType { LayerCache = 0, SelectionCache = 2 };
};

// What the program showing a view is told: a canvas repaints, a session runner records.
class TLMapViewListener {
public:
    virtual ~TLMapViewListener() = default;
    virtual void OnRefreshMap(const TLRect& rect) {}
    virtual void OnRefresh(TLLayer* layer, int cacheType, const TLRect& rect) {}
    virtual void OnUpdateView() {}
    virtual void OnRefreshOverlay() {}
    virtual void OnVisibleBoundsChanged() {}
    virtual void OnTwinkle(TLGeometry* geometry, int times) {}
    virtual void OnClipPolygonChanged() {}
    virtual void OnUpdateMap() {}
};

class TLView : public TLRefBase {
public:
    ~TLView() override;
    // Bands register themselves so that the view can draw them over the map.
    void AddRubberBand(TLRubberBand* band);
    void RemoveRubberBand(TLRubberBand* band);
    const std::vector<TLRubberBand*>& RubberBands() const { return mBands; }
    // The snap marker the last TLSnapTool::Draw asked for; invalid when none.
    void SetSnapMarker(const TLPoint& p, bool shown);
    bool HasSnapMarker() const { return mSnapMarkerShown; }
    TLPoint SnapMarker() const { return mSnapMarker; }

private:
    std::vector<TLRubberBand*> mBands;
    TLPoint mSnapMarker;
    bool mSnapMarkerShown = false;
};

class TLMapView : public TLView {
public:
    explicit TLMapView(TLRefPtr<TLMap> map);
    ~TLMapView() override;

    TLMap* GetMap() const { return mMap.get(); }
    TLUnitType GetMapUnit() const;
    virtual TLDisplay* GetDisplay();
    virtual TLDisplayTransform* GetDisplayTransform();
    virtual TLRect GetVisibleRect();
    virtual void UpdateView(bool full);
    virtual void RefreshOverlay();
    void RefreshMap(bool full, const TLRect& rect);
    void Refresh(TLLayer* layer, TLMapCache::CacheType type, const TLRect& rect);
    void UpdateMap();
    void PanToBound(TLRect rect);
    void ZoomToBound(TLRect rect);
    void PanToSelection(TLLayer* layer);
    void ZoomToSelection(TLLayer* layer);
    void TwinkleGeometry(TLGeometry* geometry, TLStyle* style, int times);
    void TwinkleGeometrysInOrder(TLGeometry** geometries, int count, TLStyle* point, TLStyle* line,
                                 TLStyle* fill, int interval);
    void setClipPolygon(TLGeoPolygon* polygon);
    TLGeoPolygon* clipPolygon() const { return mClip.get(); }

    // Device size in pixels and the map rectangle shown.
    void SetDeviceSize(int width, int height);
    void SetVisibleBounds(const TLRect& bounds);

    void SetListener(TLMapViewListener* listener) { mListener = listener; }
    TLMapViewListener* Listener() const { return mListener; }

private:
    // The bound of the layer's selection (of every layer's when null), in map coordinates.
    TLRect selectionBound(TLLayer* layer);
    void addSelectionBound(TLLayer* layer, TLRect& bound);
    // Shows the same map width and height as now, around `centre`.
    void centreOn(const TLPoint& centre);
    void visibleBoundsChanged();
    // Keeps the transform's unit in step with the map's coordinate system.
    void syncUnits();
    TLRefPtr<TLMap> mMap;
    TLDisplay mDisplay;
    TLRefPtr<TLGeoPolygon> mClip;
    TLMapViewListener* mListener = nullptr;
    TLRefPtr<TLCoordinateSystem> mUnitsReference;
    bool mUnitsSynced = false;
};

}  // namespace TMObjects
