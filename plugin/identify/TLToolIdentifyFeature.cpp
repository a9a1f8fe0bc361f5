#include "identify/TLToolIdentifyFeature.h"

#include <QWidget>
#include <algorithm>
#include <cfloat>
#include <string>

#include "identify/TLIdentifyQuery.h"
#include "identify/TMEncObjectSelect.h"
#include "identify/TMIdentify.h"
#include "tlmap/TLENCLayer.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLSelection.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

const int kPointingHand = 13;
const int kShift = 0x2000000;
const int kReplace = 0;
const int kAdd = 4;

}  // namespace

TLToolIdentifyFeature::TLToolIdentifyFeature() = default;

TLToolIdentifyFeature::TLToolIdentifyFeature(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolIdentifyFeature::~TLToolIdentifyFeature() {
    delete mIdentifyDlg;
}

void TLToolIdentifyFeature::activate() {
    mActive = true;
    if (mBuddy) mBuddy->SetCursor(kPointingHand);
}

void TLToolIdentifyFeature::deactivate() {
    if (mIdentifyDlg) {
        mIdentifyDlg->clearLayerPicks();
        mIdentifyDlg->hide();
        delete mIdentifyDlg;
        mIdentifyDlg = nullptr;
    }
    if (mBuddy) {
        mBuddy->UnregisterTool(this, true);
        mBuddy = nullptr;
    }
    TLTool::deactivate();
}

bool TLToolIdentifyFeature::toMap(int x, int y, double& mapX, double& mapY) const {
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    TLDisplayTransform* transform = view ? view->GetDisplayTransform() : nullptr;
    if (!transform) return false;
    const TLRect& device = transform->mDeviceFrame;
    const TLRect& visible = transform->mVisibleBounds;
    mapX = (x - device.XMinimum()) * transform->mResolution + visible.XMinimum();
    mapY = visible.YMaximum() - (y - device.YMinimum()) * transform->mResolution;
    return true;
}

bool TLToolIdentifyFeature::OnMouseDown(TLMouseButton button, int x, int y) {
    double mapX = 0.0, mapY = 0.0;
    if (button != TLLeftButton || !toMap(x, y, mapX, mapY)) return true;
    mStartMapX = mapX;
    mStartMapY = mapY;
    mStartDevX = x;
    mStartDevY = y;
    mDragging = true;
    return true;
}

bool TLToolIdentifyFeature::OnMouseMove(TLMouseButton button, int x, int y) {
    double mapX = 0.0, mapY = 0.0;
    if (!toMap(x, y, mapX, mapY)) return false;
    if (button == TLLeftButton && mDragging) drawDragRectangle(mapX, mapY);
    return true;
}

// The band lives for this one event: the view shows the rectangle until the next repaint.
void TLToolIdentifyFeature::drawDragRectangle(double x, double y) {
    auto* band = new TLRubberBand(mBuddy->GetMapView(), TLRubberBand::PolygonBand);
    band->SetPenStyle(TLPen::SolidLine, 1.0, TLColor(255, 0, 0));
    band->SetBrushStyle(TLBrush::SolidPattern, TLColor(255, 0, 0, 50));
    band->AddPoint(TLPoint(mStartMapX, mStartMapY), 0);
    band->AddPoint(TLPoint(x, mStartMapY), 0);
    band->AddPoint(TLPoint(x, y), 0);
    band->AddPoint(TLPoint(mStartMapX, y), 0);
    band->AddPoint(TLPoint(mStartMapX, mStartMapY), 0);
    band->Update();
    delete band;
}

bool TLToolIdentifyFeature::OnMouseUp(TLMouseButton button, int x, int y) {
    mLayerPicks.clear();
    if (button != TLLeftButton || !mDragging || !mBuddy) return false;
    TLMapView* view = mBuddy->GetMapView();
    if (!view || !view->GetDisplay()) return false;
    TLDisplayTransform* transform = view->GetDisplayTransform();
    if (!transform) return true;
    mDragging = false;
    double mapX = 0.0, mapY = 0.0;
    toMap(x, y, mapX, mapY);
    const double tolerance =
        TLSelectionEnvironment::Instance()->GetTolerance() * transform->mResolution;
    setPickEnvelope(mapX, mapY, tolerance);
    TLMap* map = view->GetMap();
    pickLayers(map, tolerance);
    const std::vector<TLENCLayer*> charts = chartLayers(map);
    if (!charts.empty())
        showEncObjectDlg(charts, TLPoint(mapX, mapY));
    else
        showIdentifyDlg(TLPoint(mapX, mapY));
    return true;
}

// A drag thinner than a rounding error either way is a click, picked within the tolerance.
void TLToolIdentifyFeature::setPickEnvelope(double x, double y, double tolerance) {
    const double xmin = std::min(mStartMapX, x), xmax = std::max(mStartMapX, x);
    const double ymin = std::min(mStartMapY, y), ymax = std::max(mStartMapY, y);
    if (xmax - xmin >= DBL_EPSILON && ymax - ymin >= DBL_EPSILON) {
        mPickXMin = xmin;
        mPickXMax = xmax;
        mPickYMin = ymin;
        mPickYMax = ymax;
        return;
    }
    mPickXMin = x - tolerance;
    mPickXMax = x + tolerance;
    mPickYMin = y - tolerance;
    mPickYMax = y + tolerance;
}

bool TLToolIdentifyFeature::eligible(TLFeatureLayer* layer) const {
    if (!layer || !layer->IsValid() || !layer->Selectable()) return false;
    const int type = layer->GetLayerType();
    return type >= TLLayer::PointLayer && type <= TLLayer::AnnotationLayer;
}

// Mode 0 asks the first eligible layer only, mode 1 the current layer (the first eligible one
// when no feature layer is current), any other mode every eligible layer. Once a layer has
// found something the later ones are only listed: the dialog asks them when they are chosen.
void TLToolIdentifyFeature::pickLayers(TLMap* map, double tolerance) {
    if (!map) return;
    const int mode = TLSelectionEnvironment::Instance()->GetMode();
    TLCoordinateSystem* mapReference = map->GetSpatialReference().get();
    bool found = false;
    for (const TLRefPtr<TLLayer>& each : map->GetLayers(true)) {
        auto* layer = dynamic_cast<TLFeatureLayer*>(each.get());
        if (!eligible(layer)) continue;
        bool stop = false;
        if (mode == TLSelectionEnvironment::SelectAdd) {
            auto* current = dynamic_cast<TLFeatureLayer*>(map->GetCurrentLayer().get());
            if (current && current->GetLayerId() != layer->GetLayerId()) continue;
            stop = !current;
        } else if (mode == TLSelectionEnvironment::SelectNew) {
            stop = true;
        }
        if (found) {
            mLayerPicks.push_back({layer->GetLayerId(), {}});
            continue;
        }
        queryLayer(layer, mapReference, tolerance, found);
        if (stop) break;
    }
}

void TLToolIdentifyFeature::queryLayer(TLFeatureLayer* layer, TLCoordinateSystem* mapReference,
                                       double tolerance, bool& found) {
    const int method = mBuddy->KeyboardModifiers() == kShift ? kAdd : kReplace;
    const TLIdentifyQuery query(mPickXMin, mPickXMax, mPickYMin, mPickYMax, tolerance);
    std::vector<int> ids = query.pick(layer, mapReference, method);
    if (ids.empty()) return;
    TLTool::selectFeatureNum += int(ids.size());
    mLayerPicks.push_back({layer->GetLayerId(), std::move(ids)});
    found = true;
}

// Every usable chart of the map counts, wherever it stands in the list.
std::vector<TLENCLayer*> TLToolIdentifyFeature::chartLayers(TLMap* map) const {
    std::vector<TLENCLayer*> charts;
    if (!map) return charts;
    for (const TLRefPtr<TLLayer>& each : map->GetLayers(true)) {
        auto* chart = dynamic_cast<TLENCLayer*>(each.get());
        if (chart && chart->IsValid()) charts.push_back(chart);
    }
    return charts;
}

// An open dialog is refreshed where the user left it.
void TLToolIdentifyFeature::showIdentifyDlg(const TLPoint& point) {
    if (!mIdentifyDlg) {
        mIdentifyDlg = new TMIdentify;
        const Qt::WindowFlags flags = mIdentifyDlg->windowFlags();
        mIdentifyDlg->setParent(QWidget::find(WId(mBuddy->MainWindowId())));
        mIdentifyDlg->setModal(false);
        mIdentifyDlg->setWindowFlags(flags);
        mIdentifyDlg->move(250, 80);
        mIdentifyDlg->setTool(this);
    }
    mIdentifyDlg->setBuddy(mBuddy);
    mIdentifyDlg->setLocation(point);
    mIdentifyDlg->setPickEnvelope(mPickXMin, mPickXMax, mPickYMin, mPickYMax);
    mIdentifyDlg->setSelectedLayerInfo(mLayerPicks);
    if (!mIdentifyDlg->isVisible()) mIdentifyDlg->show();
}

void TLToolIdentifyFeature::showEncObjectDlg(const std::vector<TLENCLayer*>& layers,
                                             const TLPoint& point) {
    TMEncObjectSelect dialog(QWidget::find(WId(mBuddy->MainWindowId())));
    dialog.clearObjects();
    for (TLENCLayer* layer : layers) {
        for (s57object* object : layer->hitTest(point.x, point.y)) {
            std::string acronym, name;
            std::vector<TLEncObjectAttribute> attributes;
            if (!layer->GetObjectAttributes(acronym, object, name, attributes)) continue;
            dialog.addObject(object->primitive, QString::fromUtf8(name.c_str()), attributes);
        }
    }
    dialog.expandAll();
    dialog.exec();
}

}  // namespace TMObjects
