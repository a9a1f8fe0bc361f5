#include "edit/TLClickQuery.h"

#include <memory>

#include "digitize/TLPickFilter.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMapView.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

TLPoint TLClickQuery::ClickPoint(TLMapView* view, int x, int y) {
    TLDisplayTransform* t = view ? view->GetDisplayTransform() : nullptr;
    if (!t) return TLPoint(x, y);
    return t->ToMap(TLPoint(x, y));
}

double TLClickQuery::Tolerance(TLMapView* view) {
    TLDisplayTransform* t = view ? view->GetDisplayTransform() : nullptr;
    const double resolution = t ? t->mResolution : 1.0;
    return TLSelectionEnvironment::Instance()->GetTolerance() * resolution;
}

bool TLClickQuery::NeedsProjection(TLMapView* view, TLFeatureLayer* layer) {
    if (!view || !view->GetMap() || !layer) return false;
    TLRefPtr<TLCoordinateSystem> mapReference = view->GetMap()->GetSpatialReference();
    TLRefPtr<TLCoordinateSystem> layerReference = layer->GetSpatialReference();
    return SystemsDiffer(mapReference.get(), layerReference.get());
}

bool TLClickQuery::SystemsDiffer(TLCoordinateSystem* a, TLCoordinateSystem* b) {
    return a && b && !a->IsSame(b);
}

void TLClickQuery::Project(TLGeometry* geometry, TLCoordinateSystem* from, TLCoordinateSystem* to) {
    if (!geometry || !SystemsDiffer(from, to)) return;
    TLGeometryProject projection;
    projection.SetPrj(from, to, nullptr);
    projection.ProjTmGeometry(geometry);
}

std::vector<TLClickQuery::Candidate> TLClickQuery::Select(TLMapView* view, TLFeatureLayer* layer,
                                                          double x, double y) {
    std::vector<Candidate> found;
    if (!view || !view->GetMap() || !view->GetDisplayTransform() || !layer) return found;
    layer->SelectFeatures(TLPickFilter::Build(view, layer, x, y), 0, 0);
    TLRefPtr<TLFeatureSelectionSet> selection = layer->GetSelection();
    if (!selection || selection->GetCount() == 0) return found;

    std::unique_ptr<TLGeometryProject> project;
    if (NeedsProjection(view, layer)) {
        project = std::make_unique<TLGeometryProject>();
        project->SetPrj(layer->GetSpatialReference().get(),
                        view->GetMap()->GetSpatialReference().get(), nullptr);
    }
    for (int i = 0; i < selection->GetCount(); ++i) {
        TLRefPtr<TLSelectFeature> feature = selection->GetFeature(i);
        TLRefPtr<TLGeometry> geometry = feature ? feature->GetGeometry() : nullptr;
        if (!geometry) continue;
        if (project) {
            geometry = geometry->Clone();
            if (!project->ProjTmGeometry(geometry.get())) continue;
        }
        found.push_back({feature->GetOID(), geometry});
    }
    return found;
}

}  // namespace TMObjects
