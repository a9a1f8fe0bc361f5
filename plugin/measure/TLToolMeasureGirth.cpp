#include "measure/TLToolMeasureGirth.h"

#include <QString>
#include <QWidget>

#include "measure/TMDisplayGirth.h"
#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsparef/TLCoordinateSystem.h"
#include "tlsparef/TLEllipseCalcFunc.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

namespace {

constexpr int kShift = 0x2000000;
constexpr int kReplace = 0;
constexpr int kAdd = 4;
// Half the side of the pick square, in pixels.
constexpr double kPickPixels = 3.0;

const TLPartList* partsOf(TLGeometry* geometry) {
    if (auto* line = dynamic_cast<TLGeoPolyline*>(geometry)) return &line->Parts();
    if (auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry)) return &polygon->Parts();
    return nullptr;
}

// The length of a line, or the perimeter of a polygon, of a geographic layer on its ellipsoid.
double ellipsoidLength(TLEllipseParameterNew& parameter, TLGeometry* geometry) {
    const TLPartList* parts = partsOf(geometry);
    if (!parts) return 0.0;
    double length = 0.0;
    for (int part = 0; part < parts->PartCount(); ++part) {
        const int start = parts->PartStart(part);
        for (int i = start + 1; i < start + parts->PartSize(part); ++i) {
            const TLPoint a = parts->Point(i - 1), b = parts->Point(i);
            length += TLEllipseCalcFunc::CalcEllipseDis(parameter, a.x, a.y, b.x, b.y);
        }
    }
    return length;
}

}  // namespace

TLToolMeasureGirth::TLToolMeasureGirth() = default;

TLToolMeasureGirth::TLToolMeasureGirth(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolMeasureGirth::~TLToolMeasureGirth() {
    delete dialog;
}

TLString TLToolMeasureGirth::bindingKey() const {
    return TLString(QString::asprintf("%p %s", static_cast<const void*>(this), "OnCurrLayerChanged")
                        .toStdString());
}

void TLToolMeasureGirth::activate() {
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
    if (map)
        map->currentLayerChanged.bind(bindingKey(), [this](void* sender, TLEvent* event) {
            OnCurrLayerChanged(sender, event);
        });
}

void TLToolMeasureGirth::deactivate() {
    // The binding stays: a later activate binds under the same key again, and the handler does
    // nothing while the tool is not in use.
    if (dialog) {
        dialog->setValue(0.0);
        dialog->hide();
    }
    delete dialog;
    dialog = nullptr;
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    snapTool.Reset();
    TLTool::deactivate();
}

TLFeatureLayer* TLToolMeasureGirth::pickableLayer(TLMapView* view) const {
    TLMap* map = view->GetMap();
    if (!map) return nullptr;
    TLRefPtr<TLLayer> current = map->GetCurrentLayer();
    for (const TLRefPtr<TLLayer>& layer : map->GetLayers(true)) {
        if (!layer->IsVisible() || !layer->IsValid() || layer.get() != current.get()) continue;
        if (auto* features = dynamic_cast<TLFeatureLayer*>(layer.get())) return features;
    }
    return nullptr;
}

// Selects on the layer what lies within a few pixels of the point, and sums the lengths of all
// that is selected there now.
double TLToolMeasureGirth::pickAndSum(TLMapView* view, TLFeatureLayer* layer,
                                      const TLPoint& point) {
    const double d = view->GetDisplayTransform()->mResolution * kPickPixels;
    TLRefPtr<TLGeometry> envelope(
        new TLGeoEnvelope(point.x - d, point.y - d, point.x + d, point.y + d));
    TLRefPtr<TLCoordinateSystem> mapReference = view->GetMap()->GetSpatialReference();
    TLRefPtr<TLCoordinateSystem> layerReference = layer->GetSpatialReference();
    if (mapReference && layerReference && !mapReference->IsSame(layerReference.get())) {
        TLGeometryProject project;
        project.SetPrj(mapReference.get(), layerReference.get(), nullptr);
        project.ProjTmGeometry(envelope.get(), envelope->GetType());
    }
    TLQueryFilter filter;
    filter.SetFilterGeometry(envelope);
    filter.SetSpatialRel(TLSpatialRelIntersects);
    layer->SelectFeatures(filter, mBuddy->KeyboardModifiers() == kShift ? kAdd : kReplace, 0);
    return selectedLength(layer);
}

double TLToolMeasureGirth::selectedLength(TLFeatureLayer* layer) {
    TLRefPtr<TLCoordinateSystem> layerReference = layer->GetSpatialReference();
    // Lengths in degrees would be shown as metres: a geographic layer is measured on its
    // ellipsoid, as the line tool measures a geographic map.
    TLEllipseParameterNew parameter;
    const bool geographic = layerReference && layerReference->IsGeographic();
    if (geographic) parameter.calcParameter(layerReference->ExportToString());

    double sum = 0.0;
    TLRefPtr<TLFeatureSelectionSet> selection = layer->GetSelection();
    for (int i = 0; selection && i < selection->GetCount(); ++i) {
        TLRefPtr<TLSelectFeature> feature = selection->GetFeature(i);
        sum += geographic ? ellipsoidLength(parameter, feature->GetGeometry().get())
                          : feature->GetLength();
    }
    return sum;
}

bool TLToolMeasureGirth::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mActive || !mBuddy) return false;
    if (button != TLLeftButton) return true;
    TLMapView* view = mBuddy->GetMapView();
    TLDisplayTransform* transform =
        view && view->GetDisplay() ? view->GetDisplayTransform() : nullptr;
    if (!transform || !view->GetMap()) return true;

    TLPoint point((x - transform->mDeviceFrame.XMinimum()) * transform->mResolution +
                      transform->mVisibleBounds.XMinimum(),
                  transform->mVisibleBounds.YMaximum() -
                      (y - transform->mDeviceFrame.YMinimum()) * transform->mResolution);
    snapTool.GetSnapXY(point.x, point.y);

    double sum = 0.0;
    if (TLFeatureLayer* layer = pickableLayer(view)) sum = pickAndSum(view, layer, point);
    view->UpdateView(true);
    units = view->GetMap()->GetSpatialReference() ? TLMeters : TLUnknownUnits;
    DisplayMeasureGirth(sum, this, true);
    return true;
}

void TLToolMeasureGirth::clearSelectedFeature() {
    TLTool::selectFeatureNum = 0;
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view || !view->GetMap()) return;
    for (const TLRefPtr<TLLayer>& layer : view->GetMap()->GetLayers(true))
        if (auto* features = dynamic_cast<TLFeatureLayer*>(layer.get()))
            features->ClearSelect(false);
    view->UpdateView(true);
}

void TLToolMeasureGirth::OnCurrLayerChanged(void*, TLEvent*) {
    if (!mActive) return;
    clearSelectedFeature();
    if (dialog) dialog->setValue(0.0);
}

void TLToolMeasureGirth::DisplayMeasureGirth(double value, TLTool* tool, bool show) {
    if (!mBuddy) return;
    if (!dialog && !show) return;
    if (!dialog) {
        dialog = new TMDisplayGirth;
        const Qt::WindowFlags flags = dialog->windowFlags();
        dialog->setParent(QWidget::find(WId(mBuddy->MainWindowId())));
        dialog->setWindowFlags(flags);
        dialog->move(200, 50);
    }
    if (auto* girth = dynamic_cast<TLToolMeasureGirth*>(tool)) dialog->setTool(girth);
    dialog->setValue(value);
    dialog->setVisible(show);
}

}  // namespace TMObjects
