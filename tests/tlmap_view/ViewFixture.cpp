#include "ViewFixture.h"

#include <algorithm>
#include <cmath>

#include "tlmap/TLSnapTool.h"
#include "tlsparef/TLCoordinateSystem.h"

namespace TMObjects {

int RecordingListener::count(Kind kind) const {
    return int(std::count_if(calls.begin(), calls.end(),
                             [kind](const Call& c) { return c.kind == kind; }));
}

std::vector<RecordingListener::Kind> RecordingListener::kinds() const {
    std::vector<Kind> out;
    for (const Call& c : calls) out.push_back(c.kind);
    return out;
}

void ViewFixture::SetUp() {
    map = TLRefPtr<TLMap>(new TLMap);
    view = std::make_unique<TLMapView>(map);
    view->SetDeviceSize(800, 600);
    view->SetVisibleBounds(TLRect(0, 800, 0, 600));
    view->SetListener(&listener);
    buddy = std::make_unique<TLHostBuddy>(view.get());
    TLSnapEnvironment* snapping = TLSnapEnvironment::Instance();
    snapping->setEnabled(true);
    snapping->setTolerance(10);
    snapping->setSnapToVertex(true);
    snapping->setSnapToSegment(true);
    snapping->getPointSnapper()->clearCache();
    listener.calls.clear();
}

void ViewFixture::TearDown() {
    TLSnapEnvironment::Instance()->setEnabled(false);
    TLSnapEnvironment::Instance()->getPointSnapper()->clearCache();
    buddy.reset();
    view.reset();
    map.reset();
}

TLFeatureLayer* ViewFixture::addLayer(TLLayer::LayerType type, const char* crs) {
    TLRefPtr<TLCoordinateSystem> reference;
    if (crs) reference = TLSpatialObjectFactory::LoadCoordinateSystem(crs);
    TLFeatureLayer* layer = TLFeatureLayer::CreateMemoryLayer("layer", type, TLFields(), reference);
    map->InsertLayer(-1, layer, true);
    return layer;
}

int ViewFixture::addFeature(TLFeatureLayer* layer, TLRefPtr<TLGeometry> geometry) {
    TLFeature feature;
    feature.SetGeometry(geometry);
    return layer->GetDatasource()->Insert(feature);
}

void ViewFixture::setMapSystem(const char* crs) {
    map->SetSpatialReference(TLSpatialObjectFactory::LoadCoordinateSystem(crs));
}

TLRefPtr<TLGeometry> makePoint(double x, double y) {
    TLRefPtr<TLGeoPoint> point(new TLGeoPoint());
    point->PutCoords(x, y);
    return point;
}

TLRefPtr<TLGeometry> makeLine(std::initializer_list<XY> paths) {
    TLRefPtr<TLGeoPolyline> line(new TLGeoPolyline());
    for (const XY& path : paths) {
        line->BeginPath();
        line->BeginSegment();
        for (const auto& p : path) line->AddXY(p.first, p.second);
    }
    line->EndEntity();
    return line;
}

TLRefPtr<TLGeometry> makePolygon(std::initializer_list<XY> rings) {
    TLRefPtr<TLGeoPolygon> polygon(new TLGeoPolygon());
    for (const XY& ring : rings) {
        polygon->BeginPath();
        polygon->BeginSegment(1);
        for (const auto& p : ring) polygon->AddXY(p.first, p.second);
    }
    polygon->EndEntity();
    return polygon;
}

std::vector<std::vector<std::pair<double, double>>> pathsOf(TLGeometry* geometry) {
    std::vector<std::vector<std::pair<double, double>>> out;
    const TLPartList* parts = nullptr;
    if (auto* line = dynamic_cast<TLGeoPolyline*>(geometry)) parts = &line->Parts();
    if (auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry)) parts = &polygon->Parts();
    if (auto* point = dynamic_cast<TLGeoPoint*>(geometry))
        return {{{point->GetX(), point->GetY()}}};
    if (!parts) return out;
    for (int i = 0; i < parts->PartCount(); ++i) {
        out.emplace_back();
        for (int k = 0; k < parts->PartSize(i); ++k) {
            const TLPoint p = parts->Point(parts->PartStart(i) + k);
            out.back().emplace_back(p.x, p.y);
        }
    }
    return out;
}

TLPoint webMercator(double longitude, double latitude) {
    const double r = 6378137.0, rad = M_PI / 180.0;
    return TLPoint(r * longitude * rad, r * std::log(std::tan(M_PI / 4 + latitude * rad / 2)));
}

}  // namespace TMObjects
