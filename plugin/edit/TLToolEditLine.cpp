#include "edit/TLToolEditLine.h"

#include <QWidget>
#include <cmath>

#include "edit/TLClickQuery.h"
#include "edit/TLVertexHit.h"
#include "edit/TMEditPointWidget.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

constexpr int kWidgetLeft = 250;
constexpr int kWidgetTop = 80;
constexpr double kSameVertex = 1e-06;

}  // namespace

TLToolEditLine::TLToolEditLine() = default;

TLToolEditLine::TLToolEditLine(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolEditLine::~TLToolEditLine() {
    delete mWidget;
}

TMEditPointWidget* TLToolEditLine::editWidget() const {
    return mWidget;
}

void TLToolEditLine::activate() {
    mActive = true;
    mGeometry = nullptr;
}

void TLToolEditLine::deactivate() {
    if (mBuddy) {
        mBuddy->UnregisterTool(this, false);
        DisplayBatchEditPoint(mBuddy->GetMapView(), nullptr, -1, false);
        mBuddy = nullptr;
    }
    delete mWidget;
    mWidget = nullptr;
    mGeometry = nullptr;
    TLTool::deactivate();
}

int TLToolEditLine::hitInLayer(TLFeatureLayer* layer, const TLPoint& click, double tolerance) {
    const TLLayer::LayerType type = layer->GetLayerType();
    TLRefPtr<TLGeoPoint> clickPoint(new TLGeoPoint(click.x, click.y));
    for (const TLClickQuery::Candidate& candidate :
         TLClickQuery::Select(mBuddy->GetMapView(), layer, click.x, click.y)) {
        TLGeometry* geometry = candidate.geometry.get();
        bool hit = false;
        if (type == TLLayer::PolygonLayer) {
            hit = geometry->Contains(clickPoint.get());
        } else if (type == TLLayer::PointLayer) {
            TLRect bound = geometry->GetBound();
            hit = std::fabs(bound.XMinimum() - click.x) < tolerance &&
                  std::fabs(bound.YMinimum() - click.y) < tolerance;
        } else {
            double vx = 0.0, vy = 0.0;
            hit = hitVertex(geometry, click.x, click.y, tolerance, vx, vy) >= 0 ||
                  hitSegment(geometry, click.x, click.y, tolerance) >= 0;
        }
        if (!hit) continue;
        mGeometry = candidate.geometry;
        return candidate.id;
    }
    return -1;
}

bool TLToolEditLine::OnMouseUp(TLMouseButton button, int x, int y) {
    if (button != TLLeftButton || !mBuddy) return false;
    TLMapView* view = mBuddy->GetMapView();
    if (!view || !view->GetMap() || !view->GetDisplay() || !view->GetDisplayTransform())
        return false;

    const std::vector<TLRefPtr<TLLayer>> layers = view->GetMap()->GetLayers(true);
    for (const TLRefPtr<TLLayer>& layer : layers)
        if (auto* features = dynamic_cast<TLFeatureLayer*>(layer.get()))
            features->ClearSelect(false);

    const TLPoint click = TLClickQuery::ClickPoint(view, x, y);
    const double tolerance = TLClickQuery::Tolerance(view);
    mGeometry = nullptr;
    TLFeatureLayer* hitLayer = nullptr;
    int hitId = -1;
    for (const TLRefPtr<TLLayer>& layer : layers) {
        auto* features = dynamic_cast<TLFeatureLayer*>(layer.get());
        if (!features || !features->IsValid() || !features->IsEditable()) continue;
        hitId = hitInLayer(features, click, tolerance);
        features->ClearSelect(false);
        if (hitId < 0) continue;
        // Only the feature picked stays selected.
        TLFeature picked;
        picked.SetId(hitId);
        features->AddSelect(&picked, false);
        hitLayer = features;
        break;
    }
    view->UpdateView(true);
    DisplayBatchEditPoint(view, hitLayer, hitId, true);
    return true;
}

void TLToolEditLine::DisplayBatchEditPoint(TLMapView* view, TLFeatureLayer* layer, int featureId,
                                           bool show) {
    if (!mBuddy) return;
    if (!mWidget) {
        mWidget = new TMEditPointWidget;
        const Qt::WindowFlags flags = mWidget->windowFlags();
        mWidget->setParent(QWidget::find(WId(mBuddy->MainWindowId())));
        mWidget->setObjectName(QStringLiteral("EditPointDockWidget"));
        mWidget->setWindowFlags(flags | Qt::WindowStaysOnTopHint);
        mWidget->move(kWidgetLeft, kWidgetTop);
    }
    mWidget->setEditFeature(view, layer, featureId);
    mWidget->setVisible(show);
}

bool TLToolEditLine::isOnVertex(double x, double y) {
    double* xy = nullptr;
    int count = 0;
    if (!mGeometry->GetRawPoints(&xy, count) || !xy) return false;
    for (int i = 0; i < count; ++i)
        if (std::fabs(xy[2 * i] - x) <= kSameVertex && std::fabs(xy[2 * i + 1] - y) <= kSameVertex)
            return true;
    return false;
}

void TLToolEditLine::centerPoint(double x, double y) {
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    TLDisplayTransform* transform = view ? view->GetDisplayTransform() : nullptr;
    if (!transform || !mGeometry) return;
    TLPoint target(x, y);
    if (isOnVertex(x, y)) target = mGeometry->Centroid();
    if (!std::isfinite(target.x) || !std::isfinite(target.y)) return;

    const TLRect visible = view->GetVisibleRect();
    const TLPoint centre = visible.Center();
    const double slack = 10 * transform->mResolution;
    if (std::fabs(target.x - centre.x) > slack || std::fabs(target.y - centre.y) > slack) {
        const double halfWidth = visible.Width() / 2;
        const double halfHeight = visible.Height() / 2;
        view->SetVisibleBounds(TLRect(target.x - halfWidth, target.x + halfWidth,
                                      target.y - halfHeight, target.y + halfHeight));
        view->UpdateView(true);
    }
    markPoint(view, target);
}

// A mark that is drawn once and let go: the view keeps what was painted until its next redraw.
void TLToolEditLine::markPoint(TLMapView* view, const TLPoint& target) {
    TLRubberBand mark(view, TLRubberBand::PointBand);
    mark.SetPenStyle(TLPen::SolidLine, 3.0, TLColor(255, 0, 0));
    mark.SetBrushStyle(TLBrush::SolidPattern, TLColor(255, 0, 0, 50));
    mark.AddPoint(target, 0);
    mark.Update();
}

}  // namespace TMObjects
