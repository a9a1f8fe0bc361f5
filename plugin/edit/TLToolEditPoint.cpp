#include "edit/TLToolEditPoint.h"

#include <QWidget>
#include <cmath>

#include "TLToolText.h"
#include "edit/TLClickQuery.h"
#include "edit/TLVertexHit.h"
#include "edit/TMEditPointDlg.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

namespace {

constexpr int kDialogLeft = 250;
constexpr int kDialogTop = 80;

}  // namespace

TLToolEditPoint::TLToolEditPoint() = default;

TLToolEditPoint::TLToolEditPoint(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolEditPoint::~TLToolEditPoint() {
    delete mDialog;
}

void TLToolEditPoint::clearPick() {
    mLayer = nullptr;
    mFeatureId = -1;
    mVertexIndex = -1;
    mX = 0.0;
    mY = 0.0;
}

void TLToolEditPoint::activate() {
    mActive = true;
    clearPick();
    if (mBuddy) showEditPointDialog(0.0, 0.0, this, false);
}

void TLToolEditPoint::deactivate() {
    clearPick();
    if (mBuddy) {
        mBuddy->UnregisterTool(this, false);
        showEditPointDialog(0.0, 0.0, this, false);
        mBuddy = nullptr;
    }
    delete mDialog;
    mDialog = nullptr;
    TLTool::deactivate();
}

int TLToolEditPoint::getSnapPt(TLGeometry* geometry, double x, double y, double tolerance,
                               double& outX, double& outY) {
    return hitVertex(geometry, x, y, tolerance, outX, outY);
}

bool TLToolEditPoint::pickInLayer(TLFeatureLayer* layer, const TLPoint& click, double tolerance) {
    TLMapView* view = mBuddy->GetMapView();
    for (const TLClickQuery::Candidate& candidate :
         TLClickQuery::Select(view, layer, click.x, click.y)) {
        double vx = 0.0, vy = 0.0;
        const int vertex = getSnapPt(candidate.geometry.get(), click.x, click.y, tolerance, vx, vy);
        if (vertex < 0) continue;
        mLayer = layer;
        mFeatureId = candidate.id;
        mVertexIndex = vertex;
        mX = vx;
        mY = vy;
        // Other features near the click were only candidates: the highlight shows the pick.
        layer->ClearSelect(false);
        layer->AddSelect(candidate.id);
        return true;
    }
    layer->ClearSelect(false);
    return false;
}

bool TLToolEditPoint::OnMouseUp(TLMouseButton button, int x, int y) {
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
    clearPick();
    bool found = false;
    for (const TLRefPtr<TLLayer>& layer : layers) {
        auto* features = dynamic_cast<TLFeatureLayer*>(layer.get());
        if (features && pickInLayer(features, click, tolerance)) {
            found = true;
            break;
        }
    }
    view->UpdateView(true);
    showEditPointDialog(mX, mY, this, found);
    return true;
}

void TLToolEditPoint::showEditPointDialog(double x, double y, TLTool* tool, bool show) {
    if (!mBuddy) return;
    if (!mDialog) {
        mDialog = new TMEditPointDlg;
        const Qt::WindowFlags flags = mDialog->windowFlags();
        mDialog->setParent(QWidget::find(WId(mBuddy->MainWindowId())));
        mDialog->setWindowFlags(flags);
        mDialog->move(kDialogLeft, kDialogTop);
    }
    mDialog->setCoordinates(x, y);
    if (tool) mDialog->setTool(tool);
    if (!show) return;
    mDialog->move(kDialogLeft, kDialogTop);
    mDialog->setWindowFlags(mDialog->windowFlags() | Qt::WindowStaysOnTopHint);
    mDialog->show();
}

TLFeatureLayer* TLToolEditPoint::livePickedLayer() const {
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view || !view->GetMap() || !mLayer) return nullptr;
    for (const TLRefPtr<TLLayer>& layer : view->GetMap()->GetLayers(true))
        if (layer.get() == mLayer) return mLayer;
    return nullptr;
}

void TLToolEditPoint::moveVertex(TLGeometry* geometry, double x, double y) {
    if (!geometry) return;
    if (geometry->GetType() == TLGeometry::GeoPoint) {
        if (mVertexIndex == 0) static_cast<TLGeoPoint*>(geometry)->PutCoords(x, y);
        return;
    }
    if (geometry->GetType() != TLGeometry::GeoPolyline &&
        geometry->GetType() != TLGeometry::GeoPolygon)
        return;
    double* xy = nullptr;
    int count = 0;
    if (!geometry->GetRawPoints(&xy, count) || !xy || mVertexIndex >= count) return;
    xy[2 * mVertexIndex] = x;
    xy[2 * mVertexIndex + 1] = y;
}

void TLToolEditPoint::changeToNewCoord(double x, double y) {
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    TLFeatureLayer* layer = livePickedLayer();
    if (!view || !layer || mFeatureId < 0 || mVertexIndex < 0) return;
    TLEditor* editor = view->GetMap()->editor();
    // A number that is no number would ruin the shape, and a locked layer is not ours to change.
    if (!editor || !std::isfinite(x) || !std::isfinite(y) || !layer->IsEditable()) return;

    // Projected before the step opens: a point the layer's system cannot take moves nothing.
    if (TLClickQuery::NeedsProjection(view, layer)) {
        TLGeometryProject project;
        if (!project.SetPrj(view->GetMap()->GetSpatialReference().get(),
                            layer->GetSpatialReference().get(), nullptr) ||
            !project.ProjXY(x, y))
            return;
    }
    editor->set_edit_layer(layer);
    editor->StartOperation(toolText("edit point"));
    TLLayerEditBuffer* buffer = layer->layer_edit_buffer();
    if (!buffer->FeatureInBuffer(mFeatureId, true)) {
        TLRefPtr<TLFeature> stored = layer->GetDatasource()->GetFeature(mFeatureId);
        if (stored) buffer->AddFeature(*stored, true, true);
    }
    if (TLFeatureEditBuffer* edit = buffer->GetActiveEditFeatureByFeatureId(mFeatureId)) {
        TLRefPtr<TLFeature> feature = edit->GetFeature();
        if (feature) moveVertex(feature->GetGeometry().get(), x, y);
        view->UpdateView(true);
    }
    editor->CommitOperation(true);
}

}  // namespace TMObjects
