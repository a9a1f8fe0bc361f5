#include "mask/TLToolShieldAreas.h"

#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

TLToolShieldAreas::TLToolShieldAreas() = default;

TLToolShieldAreas::TLToolShieldAreas(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolShieldAreas::~TLToolShieldAreas() = default;

TLMapView* TLToolShieldAreas::mapView() const {
    return mBuddy ? mBuddy->GetMapView() : nullptr;
}

void TLToolShieldAreas::activate() {
    TLMapView* view = mapView();
    if (!view) return;
    mActive = true;
    points.clear();
    // Takes away what an earlier tool left drawn over the map.
    view->UpdateView(false);
}

void TLToolShieldAreas::deactivate() {
    points.clear();
    if (mBuddy) {
        if (TLMapView* view = mBuddy->GetMapView()) view->UpdateView(false);
        mBuddy->UnregisterTool(this, false);
    }
    mBuddy = nullptr;
    TLTool::deactivate();
}

void TLToolShieldAreas::applyMask(const std::vector<TLPoint>& ring) {
    TLMapView* view = mapView();
    if (!view) return;
    TLGeoPolygon polygon;
    polygon.BeginPath();
    polygon.BeginSegment(1);
    for (const TLPoint& p : ring) polygon.AddXY(p.x, p.y);
    polygon.EndEntity();
    polygon.Forward();
    // The view keeps a copy of its own, so a polygon on the stack will do.
    view->setClipPolygon(&polygon);
    points.clear();
    view->UpdateView(true);
}

void TLToolShieldAreas::sketch(TLRubberBand::RubberBandType type,
                               const std::vector<TLPoint>& vertices) {
    TLMapView* view = mapView();
    if (!view) return;
    TLRubberBand band(view, type);
    band.SetPenStyle(TLPen::SolidLine, 1.0, TLColor(255, 0, 0));
    band.SetBrushStyle(TLBrush::SolidPattern, TLColor(255, 0, 0, 50));
    for (const TLPoint& p : vertices) band.AddPoint(p, -1);
    band.Update();
}

}  // namespace TMObjects
