#include "annotation/TLPickBox.h"

#include <algorithm>

#include "tlgeo/TLGeoEnvelope.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLTool.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

TLRect TLPickBox::Box(double downX, double downY, double upX, double upY, double tolerance,
                      double flat) {
    const TLRect box(std::min(downX, upX), std::max(downX, upX), std::min(downY, upY),
                     std::max(downY, upY));
    if (box.Width() <= flat || box.Height() <= flat)
        return TLRect(upX - tolerance, upX + tolerance, upY - tolerance, upY + tolerance);
    return box;
}

bool TLPickBox::Differ(TLCoordinateSystem* a, TLCoordinateSystem* b) {
    return a && b && a != b && !a->IsSame(b);
}

void TLPickBox::ToLayer(TLGeoEnvelope* envelope, TLCoordinateSystem* map,
                        TLCoordinateSystem* layer) {
    TLGeometryProject project;
    project.SetPrj(map, layer, nullptr);
    project.ProjTmGeometry(envelope, envelope->GetType());
}

void TLPickBox::ClearAll(TLMap* map, TLMapView* view) {
    TLTool::selectFeatureNum = 0;
    if (!map) return;
    for (const TLRefPtr<TLLayer>& layer : map->GetLayers(true)) {
        auto* features = dynamic_cast<TLFeatureLayer*>(layer.get());
        if (features && features->SelectedFeatureCount() > 0) features->ClearSelect(false);
    }
    if (view) view->Refresh(nullptr, TLMapCache::CacheType(2), TLRect());
}

}  // namespace TMObjects
