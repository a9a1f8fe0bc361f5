#include "TLLayerPainter.h"

#include <QPainter>
#include <cmath>

#include "TLGeometryPainter.h"
#include "TLLayerStyle.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLDisplay.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"

namespace TMObjects {

namespace {

// Sides of a rectangle bend under most projections; sampling them keeps the projected area from
// cutting off features near the edges.
constexpr int kSamplesPerSide = 8;

TLRefPtr<TLGeoPolygon> sampledRing(const TLRect& r) {
    TLRefPtr<TLGeoPolygon> ring(new TLGeoPolygon());
    ring->BeginPath();
    ring->BeginSegment(1);
    const double x0 = r.XMinimum(), x1 = r.XMaximum(), y0 = r.YMinimum(), y1 = r.YMaximum();
    for (int i = 0; i < kSamplesPerSide; ++i) ring->AddXY(x0 + (x1 - x0) * i / kSamplesPerSide, y0);
    for (int i = 0; i < kSamplesPerSide; ++i) ring->AddXY(x1, y0 + (y1 - y0) * i / kSamplesPerSide);
    for (int i = 0; i < kSamplesPerSide; ++i) ring->AddXY(x1 - (x1 - x0) * i / kSamplesPerSide, y1);
    for (int i = 0; i < kSamplesPerSide; ++i) ring->AddXY(x0, y1 - (y1 - y0) * i / kSamplesPerSide);
    ring->AddXY(x0, y0);
    ring->EndEntity();
    return ring;
}

bool finite(const TLRect& r) {
    return !r.IsEmpty() && std::isfinite(r.XMinimum()) && std::isfinite(r.XMaximum()) &&
           std::isfinite(r.YMinimum()) && std::isfinite(r.YMaximum());
}

}  // namespace

TLLayerPainter::TLLayerPainter(TLDisplay* display, TLGeometryPainter& geometry)
    : mDisplay(display), mGeometry(geometry) {}

bool TLLayerPainter::needsProjection(TLFeatureLayer* layer) const {
    TLMap* map = layer->GetMap();
    TLRefPtr<TLCoordinateSystem> mapSystem = map ? map->GetSpatialReference() : nullptr;
    TLRefPtr<TLCoordinateSystem> layerSystem = layer->GetSpatialReference();
    if (!mapSystem || !layerSystem || mapSystem == layerSystem) return false;
    return !mapSystem->IsSame(layerSystem.get());
}

std::vector<int> TLLayerPainter::candidates(TLFeatureLayer* layer, const TLRect& area) const {
    TLRefPtr<TLFeatureTable> table = layer->GetDatasource();
    if (!needsProjection(layer)) return table->SearchBounds(area);
    TLRefPtr<TLGeoPolygon> ring = sampledRing(area);
    mDisplay->ToGeometry(layer->GetSpatialReference().get(), ring.get());
    const TLRect layerArea = ring->GetBound();
    // An area that has no image in the layer's system (beyond the projection's domain) cannot
    // narrow the search; every feature is a candidate and is culled after projection.
    if (!finite(layerArea)) return table->GetIds();
    return table->SearchBounds(layerArea);
}

TLRefPtr<TLGeometry> TLLayerPainter::mapGeometry(TLFeatureLayer* layer, int id,
                                                 bool project) const {
    const TLFeature* feature = layer->GetDatasource()->PeekFeature(id);
    if (!feature || !feature->GetGeometry() || feature->GetGeometry()->IsEmpty()) return nullptr;
    if (!project) return feature->GetGeometry();
    TLRefPtr<TLGeometry> copy = feature->GetGeometry()->Clone();
    mDisplay->ToMapGeometry(layer->GetSpatialReference().get(), copy.get());
    return copy;
}

int TLLayerPainter::DrawFeatures(QPainter& painter, TLFeatureLayer* layer, const TLRect& area) {
    const TLLayerStyle style = TLLayerStyle::ForLayer(layer);
    const QImage sprite = TLGeometryPainter::MakeSprite(style.PointPen(), style.PointBrush(),
                                                        TLLayerStyle::kPointDiameter);
    mGeometry.SetPointSprite(&sprite);
    switch (layer->GetLayerType()) {
        case TLLayer::PointLayer:
        case TLLayer::MultiPointLayer:
            painter.setPen(style.PointPen());
            painter.setBrush(style.PointBrush());
            break;
        case TLLayer::LineLayer:
            painter.setPen(style.LinePen());
            painter.setBrush(Qt::NoBrush);
            break;
        default:
            painter.setPen(style.OutlinePen());
            painter.setBrush(style.FillBrush());
    }
    // Tools may write a geometry of another kind into a layer (a typed point goes into any
    // editable layer): each is drawn as what it is, with the layer's pen and brush.
    const bool project = needsProjection(layer);
    int drawn = 0;
    for (int id : candidates(layer, area)) {
        TLRefPtr<TLGeometry> geometry = mapGeometry(layer, id, project);
        if (!geometry) continue;
        if (project && !geometry->GetBound().Intersects(area)) continue;
        mGeometry.Draw(painter, geometry.get(), TLLayerStyle::kPointDiameter);
        ++drawn;
    }
    mGeometry.SetPointSprite(nullptr);
    return drawn;
}

int TLLayerPainter::DrawSelection(QPainter& painter, TLFeatureLayer* layer, const TLRect& area,
                                  const QColor& colour) {
    if (!layer->HasSelectedFeatures()) return 0;
    QPen pen(colour, 2.0);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    const bool project = needsProjection(layer);
    int drawn = 0;
    for (int id : layer->GetSelectedIds()) {
        TLRefPtr<TLGeometry> geometry = mapGeometry(layer, id, project);
        if (!geometry || !geometry->GetBound().Intersects(area)) continue;
        // A ring around a point, wider than its symbol, so that the symbol's colour stays seen.
        mGeometry.Draw(painter, geometry.get(), TLLayerStyle::kPointDiameter + 4);
        ++drawn;
    }
    return drawn;
}

}  // namespace TMObjects
