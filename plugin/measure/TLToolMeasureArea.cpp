#include "measure/TLToolMeasureArea.h"

#include <QString>
#include <QWidget>
#include <memory>

#include "measure/TMDisplayArea.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsparef/TLCoordinateSystem.h"
#include "tlsparef/TLEllipseCalcFunc.h"
#include "tlsparef/TLGeometryProject.h"
#include "tmgiscore/TmFormatCoordinateSystemInfo.h"

namespace TMObjects {

namespace {

void setBandLook(TLRubberBand* band, int alpha) {
    band->SetPenStyle(TLPen::SolidLine, 1.0, TLColor(255, 0, 0));
    band->SetBrushStyle(TLBrush::SolidPattern, TLColor(255, 0, 0, alpha));
}

bool usable(TLLayer* layer) {
    return layer && layer->IsVisible() && layer->IsValid();
}

}  // namespace

TLToolMeasureArea::TLToolMeasureArea() = default;

TLToolMeasureArea::TLToolMeasureArea(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolMeasureArea::~TLToolMeasureArea() {
    delete rubberBand;
    delete dialog;
}

TLString TLToolMeasureArea::bindingKey() const {
    return TLString(QString::asprintf("%p %s", static_cast<const void*>(this), "OnCurrLayerChanged")
                        .toStdString());
}

void TLToolMeasureArea::makeDialog() {
    dialog = new TMDisplayArea;
    const Qt::WindowFlags flags = dialog->windowFlags();
    dialog->setParent(QWidget::find(WId(mBuddy->MainWindowId())));
    dialog->setWindowFlags(flags);
    dialog->move(250, 80);
}

void TLToolMeasureArea::activate() {
    mActive = true;
    projection = TLString();
    if (!mBuddy) return;
    mBuddy->SetCursor(2);

    TLMapView* view = mBuddy->GetMapView();
    TLMap* map = view ? view->GetMap() : nullptr;
    if (map && map->GetSpatialReference())
        projection = map->GetSpatialReference()->ExportToString();
    TLDisplayTransform* transform = view ? view->GetDisplayTransform() : nullptr;
    units = transform ? transform->mUnits : 0;
    if (units == 0) {
        TLRefPtr<TLCoordinateSystem> loaded;
        if (!projection.isEmpty())
            loaded = TLSpatialObjectFactory::LoadCoordinateSystem(projection);
        units = loaded && loaded->IsGeographic() ? TLDecimalDegrees : TLMeters;
    }
    snapTool.Init(mBuddy);

    if (!dialog) makeDialog();
    if (!map || !map->GetSpatialReference()) units = 0;
    dialog->setTool(this);
    // Shown at once: its check box is where the user picks drawing over picking.
    DisplayMeasureArea(0, this, true);
    if (map)
        map->currentLayerChanged.bind(bindingKey(), [this](void* sender, TLEvent* event) {
            OnCurrLayerChanged(sender, event);
        });
}

void TLToolMeasureArea::deactivate() {
    stopMeasuring();
    clearSelectedFeature();
    delete dialog;
    dialog = nullptr;
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    snapTool.Reset();
    TLTool::deactivate();
}

bool TLToolMeasureArea::isMeasureFea() {
    return measureFeature == 1;
}

void TLToolMeasureArea::setMeasureFea(bool on) {
    measureFeature = on ? 1 : 0;
    stopMeasuring();
}

void TLToolMeasureArea::createRubberBand() {
    delete rubberBand;
    rubberBand = nullptr;
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view) return;
    rubberBand = new TLRubberBand(view, TLRubberBand::PolygonBand);
    setBandLook(rubberBand, 50);
}

void TLToolMeasureArea::stopMeasuring() {
    points.clear();
    if (rubberBand) {
        rubberBand->Clear();
        rubberBand->Update();
    }
    delete rubberBand;
    rubberBand = nullptr;
}

void TLToolMeasureArea::clearSelectedFeature() {
    TLTool::selectFeatureNum = 0;
    selectedGeometry = TLRefPtr<TLGeometry>();
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view || !view->GetMap()) return;
    for (const TLRefPtr<TLLayer>& layer : view->GetMap()->GetLayers(true))
        if (auto* features = dynamic_cast<TLFeatureLayer*>(layer.get()))
            features->ClearSelect(false);
    view->UpdateView(true);
}

void TLToolMeasureArea::OnCurrLayerChanged(void*, TLEvent*) {
    if (!mActive) return;
    clearSelectedFeature();
    shownGeometry = TLRefPtr<TLGeometry>();
    if (dialog) dialog->setArea(0.0);
}

bool TLToolMeasureArea::OnMouseDown(TLMouseButton button, int x, int y) {
    TLMapView* view = mActive && mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view) return false;
    TLPoint p = ToMapCoordinates(TLPoint(x, y), nullptr);
    TLPoint snapped = p;
    if (snapTool.CanSnap() && snapTool.Snap(p, nullptr) && snapTool.GetSnapXY(snapped.x, snapped.y))
        p = snapped;

    if (button == TLRightButton) {
        stopMeasuring();
        shownGeometry = TLRefPtr<TLGeometry>();
        DisplayMeasureArea(0, this, true);
    } else if (button == TLLeftButton && isMeasureFea()) {
        pickFeature(view, p);
    } else if (button == TLLeftButton) {
        addVertex(p);
    }
    return true;
}

void TLToolMeasureArea::pickFeature(TLMapView* view, const TLPoint& point) {
    stopMeasuring();
    TLMap* map = view->GetMap();
    for (const TLRefPtr<TLLayer>& layer : map->GetLayers(true))
        if (auto* features = dynamic_cast<TLFeatureLayer*>(layer.get()); usable(features))
            features->ClearSelect(false);

    TLRefPtr<TLGeometry> hit;
    auto* current = dynamic_cast<TLFeatureLayer*>(map->GetCurrentLayer().get());
    if (usable(current) && current->GetLayerType() == TLLayer::PolygonLayer)
        hit = polygonAt(view, current, point);
    view->UpdateView(true);

    double area = 0.0;
    selectedGeometry = hit ? hit->Clone() : TLRefPtr<TLGeometry>();
    shownGeometry = selectedGeometry;
    if (selectedGeometry) area = measurePolygon(selectedGeometry);
    DisplayMeasureArea(area, this, true);
}

TLRefPtr<TLGeometry> TLToolMeasureArea::polygonAt(TLMapView* view, TLFeatureLayer* layer,
                                                  const TLPoint& point) {
    TLRefPtr<TLGeoPoint> probe(new TLGeoPoint);
    probe->PutCoords(point.x, point.y);
    TLRefPtr<TLCoordinateSystem> mapReference = view->GetMap()->GetSpatialReference();
    TLRefPtr<TLCoordinateSystem> layerReference = layer->GetSpatialReference();
    if (mapReference && layerReference && !mapReference->IsSame(layerReference.get())) {
        TLGeometryProject project;
        project.SetPrj(mapReference.get(), layerReference.get(), nullptr);
        project.ProjTmPoint(probe.get());
    }
    TLQueryFilter filter;
    filter.SetFilterGeometry(probe);
    filter.SetSpatialRel(TLSpatialRelIntersects);
    TLRefPtr<TLFeatureCursor> cursor = layer->Search(filter);
    while (TLRefPtr<TLFeature> feature = cursor->NextFeature()) {
        TLRefPtr<TLGeometry> geometry = feature->GetGeometry();
        if (!geometry || !geometry->Contains(probe.get())) continue;
        TLFeature picked;
        picked.SetId(feature->GetId());
        layer->AddSelect(&picked, false);
        return geometry;
    }
    return TLRefPtr<TLGeometry>();
}

void TLToolMeasureArea::addVertex(const TLPoint& point) {
    selectedGeometry = TLRefPtr<TLGeometry>();
    if (points.empty()) {
        createRubberBand();
        shownGeometry = TLRefPtr<TLGeometry>();
        DisplayMeasureArea(0, this, true);
    }
    points.push_back(point);
    if (!rubberBand) return;
    rubberBand->AddPoint(point, 0);
    rubberBand->Update();
}

void TLToolMeasureArea::showLiveBand(const TLPoint& pointer) {
    auto live = std::make_unique<TLRubberBand>(mBuddy->GetMapView(), TLRubberBand::PolygonBand);
    setBandLook(live.get(), 100);
    for (int i = 0; i < rubberBand->GetPointCount(0); ++i)
        live->AddPoint(rubberBand->GetPoint(i, 0), 0);
    live->AddPoint(pointer, 0);
    live->AddPoint(rubberBand->GetPoint(0, 0), 0);
    live->Update();
}

TLRefPtr<TLGeometry> TLToolMeasureArea::polygonWith(const TLPoint& pointer) const {
    TLRefPtr<TLGeoPolygon> polygon(new TLGeoPolygon);
    polygon->BeginPath();
    polygon->BeginSegment(1);
    for (const TLPoint& p : points) polygon->AddXY(p.x, p.y);
    polygon->AddXY(pointer.x, pointer.y);
    polygon->EndEntity();
    return polygon;
}

bool TLToolMeasureArea::OnMouseMove(TLMouseButton, int x, int y) {
    TLMapView* view = mActive && mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view) return false;
    TLPoint pointer = ToMapCoordinates(TLPoint(x, y), nullptr);
    if (snapTool.CanSnap()) {
        snapTool.Snap(pointer, nullptr);
        snapTool.GetSnappedPoint(pointer);
        snapTool.Draw(view->GetDisplayTransform(), TLSnapEnvironment::Instance());
    }
    if (isMeasureFea() || !rubberBand || points.empty()) return true;

    showLiveBand(pointer);
    if (points.size() > 1) {
        shownGeometry = polygonWith(pointer);
        DisplayMeasureArea(measurePolygon(shownGeometry), this, true);
    }
    return true;
}

double TLToolMeasureArea::measurePolygon(TLRefPtr<TLGeometry> geometry) {
    lastOnEllipsoid = false;
    if (!geometry || geometry->IsEmpty()) return 0.0;
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    TLMap* map = view ? view->GetMap() : nullptr;
    if (!map) return 0.0;
    if (!isMeasureFea()) return doMeasure(map->GetSpatialReference(), geometry);
    TLRefPtr<TLLayer> layer = map->GetCurrentLayer();
    if (!layer) return 0.0;
    return doMeasure(layer->GetSpatialReference(), geometry);
}

double TLToolMeasureArea::doMeasure(TLRefPtr<TLCoordinateSystem> reference,
                                    TLRefPtr<TLGeometry> geometry) {
    lastOnEllipsoid = false;
    if (!reference) {
        if (dialog) dialog->showPlaneOnly(QObject::tr("not found!"));
        return geometry->GetArea();
    }
    projection = reference->ExportToString();
    TLRefPtr<TLCoordinateSystem> loaded = TLSpatialObjectFactory::LoadCoordinateSystem(projection);
    if (!loaded) return 0.0;
    if (dialog)
        dialog->setSystemText(
            TmFormatCoordinateSystemInfo::formatCoordinateSystemInfo(reference.get()));

    TLEllipseParameterNew parameter;
    if (loaded->IsGeographic()) {
        if (dialog) dialog->showEllipsoidOnly();
        parameter.calcParameter(projection);
        lastOnEllipsoid = true;
        return TLEllipseCalcFunc::CalcEllipseAcreage(parameter, geometry.get());
    }
    if (!loaded->IsProjected()) return 0.0;
    if (dialog) dialog->offerBoth();
    if (!dialog || dialog->planeChecked()) return geometry->GetArea();
    if (!dialog->ellipsoidChecked()) return 0.0;
    // The projection's string carries the inverse that takes each vertex back to longitude and
    // latitude on its own ellipsoid.
    parameter.calcParameter(projection);
    lastOnEllipsoid = true;
    return TLEllipseCalcFunc::CalcEllipseAcreage(parameter, geometry.get());
}

void TLToolMeasureArea::react2check() {
    if (!shownGeometry) return;
    DisplayMeasureArea(measurePolygon(shownGeometry), this, true);
}

void TLToolMeasureArea::DisplayMeasureArea(double value, TLTool* tool, bool show) {
    if (!mBuddy) return;
    if (!dialog && !show) return;
    if (!dialog) makeDialog();
    if (auto* area = dynamic_cast<TLToolMeasureArea*>(tool)) dialog->setTool(area);
    dialog->setArea(value);
    dialog->setVisible(show);
}

}  // namespace TMObjects
