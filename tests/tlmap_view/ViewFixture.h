#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <vector>

#include "hostkit/TLHostBuddy.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"

namespace TMObjects {

// Everything the view told its listener, in order.
struct RecordingListener : TLMapViewListener {
    enum Kind {
        RefreshMap,
        Refresh,
        UpdateView,
        RefreshOverlay,
        BoundsChanged,
        Twinkle,
        Clip,
        UpdateMap
    };
    struct Call {
        Kind kind;
        TLRect rect;
        TLLayer* layer = nullptr;
        int value = 0;
        TLGeometry* geometry = nullptr;
    };
    void OnRefreshMap(const TLRect& rect) override { add(RefreshMap, rect); }
    void OnRefresh(TLLayer* layer, int type, const TLRect& rect) override {
        add(Refresh, rect, layer, type);
    }
    void OnUpdateView() override { add(UpdateView); }
    void OnRefreshOverlay() override { add(RefreshOverlay); }
    void OnVisibleBoundsChanged() override { add(BoundsChanged); }
    void OnTwinkle(TLGeometry* geometry, int times) override {
        add(Twinkle, TLRect(), nullptr, times, geometry);
    }
    void OnClipPolygonChanged() override { add(Clip); }
    void OnUpdateMap() override { add(UpdateMap); }

    void add(Kind kind, const TLRect& rect = TLRect(), TLLayer* layer = nullptr, int value = 0,
             TLGeometry* geometry = nullptr) {
        calls.push_back(Call{kind, rect, layer, value, geometry});
    }
    int count(Kind kind) const;
    std::vector<Kind> kinds() const;
    std::vector<Call> calls;
};

// A map shown in 800 x 600 pixels as x 0..800, y 0..600, one map unit a pixel, with the
// host's buddy on the view and snapping switched on with a 10 pixel tolerance.
class ViewFixture : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // A memory layer of the map; `crs` null leaves it without a coordinate system.
    TLFeatureLayer* addLayer(TLLayer::LayerType type, const char* crs = nullptr);
    // Inserts a feature and answers its id.
    static int addFeature(TLFeatureLayer* layer, TLRefPtr<TLGeometry> geometry);
    void setMapSystem(const char* crs);

    TLRefPtr<TLMap> map;
    std::unique_ptr<TLMapView> view;
    std::unique_ptr<TLHostBuddy> buddy;
    RecordingListener listener;
};

using XY = std::initializer_list<std::pair<double, double>>;

// Geometries built the way tools build them.
TLRefPtr<TLGeometry> makePoint(double x, double y);
TLRefPtr<TLGeometry> makeLine(std::initializer_list<XY> paths);
TLRefPtr<TLGeometry> makePolygon(std::initializer_list<XY> rings);
// The coordinates of a geometry, path by path.
std::vector<std::vector<std::pair<double, double>>> pathsOf(TLGeometry* geometry);

// EPSG:3857 of a longitude and latitude in degrees, on the sphere of radius 6378137.
TLPoint webMercator(double longitude, double latitude);

}  // namespace TMObjects
