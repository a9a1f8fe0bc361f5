#include "digitize/TLPickFilter.h"

#include "tlgeo/TLGeoEnvelope.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMapView.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

TLQueryFilter TLPickFilter::Build(TLMapView* view, TLFeatureLayer* layer, double x, double y) {
    if (!view || !view->GetMap() || !layer) return TLQueryFilter();
    TLDisplayTransform* transform = view->GetDisplayTransform();
    if (!transform) return TLQueryFilter();

    const double d = TLSelectionEnvironment::Instance()->GetTolerance() * transform->mResolution;
    TLRefPtr<TLGeometry> envelope(new TLGeoEnvelope(x - d, y - d, x + d, y + d));

    TLRefPtr<TLCoordinateSystem> mapReference = view->GetMap()->GetSpatialReference();
    TLRefPtr<TLCoordinateSystem> layerReference = layer->GetSpatialReference();
    if (mapReference && layerReference && !mapReference->IsSame(layerReference.get())) {
        TLGeometryProject project;
        project.SetPrj(mapReference.get(), layerReference.get(), nullptr);
        project.ProjTmGeometry(envelope.get(), envelope->GetType());
    }

    // A standing spatial filter stays in force: the pick only narrows it.
    TLQueryFilter filter = layer->query_filter();
    if (filter.IsSpatialFilter()) {
        const TLSpatialRelEnum relation = filter.GetSpatialRel();
        filter.SetFilterGeometry(filter.GetFilterGeometry()->Intersect(envelope.get(), d * 0.1));
        filter.SetSpatialRel(relation);
    } else {
        filter.SetFilterGeometry(envelope);
        filter.SetSpatialRel(TLSpatialRelIntersects);
    }
    return filter;
}

}  // namespace TMObjects
