#include "annotation/TLToolEditAnnotation.h"

#include <QMessageBox>
#include <QWidget>

#include "annotation/TLPickBox.h"
#include "annotation/TMDialogEditAnnoAttributes.h"
#include "tlgeo/TLGeoEnvelope.h"
#include "tlmap/TLAnnotationLayer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLSelection.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsymbol/TLDisplayTransform.h"

namespace TMObjects {

namespace {

const int kShift = 0x2000000;

}  // namespace

TLToolEditAnnotation::TLToolEditAnnotation() = default;

TLToolEditAnnotation::TLToolEditAnnotation(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolEditAnnotation::~TLToolEditAnnotation() {
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    if (mBand) mBand->Clear();
    delete mBand;
}

void TLToolEditAnnotation::activate() {
    mActive = true;
    if (mBuddy) mBuddy->SetCursor(2);
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view) return;
    clearSelectedFeature();
    mPressed = mMoved = mHasAnnotation = mHasVector = false;
    mPickCount = 0;
    if (!mBand) {
        mBand = new TLRubberBand(view, TLRubberBand::RubberBandType(3));
        mBand->SetPenStyle(TLPen::PenStyle(1), 1.0, TLColor(255, 0, 0));
        mBand->SetBrushStyle(TLBrush::BrushStyle(1), TLColor(255, 0, 0, 50));
    }
    mBand->Clear();
}

void TLToolEditAnnotation::deactivate() {
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    mPressed = mMoved = mHasAnnotation = mHasVector = false;
    mPickCount = 0;
    if (mBand) mBand->Clear();
    mBuddy = nullptr;
    TLTool::deactivate();
}

bool TLToolEditAnnotation::OnMouseDown(TLMouseButton button, int x, int y) {
    if (button != TLLeftButton || !mBuddy) return true;
    mPressed = true;
    const TLPoint point = ToMapCoordinates(TLPoint(x, y), nullptr);
    mDownX = point.x;
    mDownY = point.y;
    if (mBand) {
        mBand->AddPoint(point, -1);
        mBand->Update();
    }
    return true;
}

// The band holds the press only: the cursor's point is shown for the one move, so the drag is a
// red line from the press to the cursor.
bool TLToolEditAnnotation::OnMouseMove(TLMouseButton button, int x, int y) {
    if (button != TLLeftButton || !mBuddy || !mBand || mBand->GetCount() < 1) return true;
    mBand->AddPoint(ToMapCoordinates(TLPoint(x, y), nullptr), -1);
    mBand->Update();
    mBand->RemoveLastPoint(-1);
    mMoved = true;
    return true;
}

bool TLToolEditAnnotation::OnMouseUp(TLMouseButton button, int x, int y) {
    if (button != TLLeftButton) return true;
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view) return false;
    TLDisplayTransform* transform = view->GetDisplayTransform();
    if (!transform) return true;
    mPicks.clear();
    TLTool::selectFeatureNum = 0;
    SelectFeatureByRect(view, transform, x, y);
    if (mBand) {
        mBand->Clear();
        mBand->Update();
    }
    if (mHasAnnotation) showEditAnnoAttributeDlg(view);
    mPressed = mMoved = mHasAnnotation = mHasVector = false;
    mPickCount = 0;
    view->Refresh(nullptr, TLMapCache::CacheType(2), TLRect());
    return true;
}

void TLToolEditAnnotation::SelectFeatureByRect(TLMapView* view, TLDisplayTransform* transform,
                                               int x, int y) {
    const TLPoint up = transform->ToMap(TLPoint(x, y));
    const double tolerance =
        TLSelectionEnvironment::Instance()->GetTolerance() * transform->mResolution;
    TLRefPtr<TLGeoEnvelope> envelope(
        new TLGeoEnvelope(TLPickBox::Box(mDownX, mDownY, up.x, up.y, tolerance, 0.0)));
    TLMap* map = view->GetMap();
    TLRefPtr<TLCoordinateSystem> mapReference = map->GetSpatialReference();
    const int method = mBuddy->KeyboardModifiers() == kShift ? 4 : 0;
    for (const TLRefPtr<TLLayer>& each : map->GetLayers(true)) {
        auto* layer = dynamic_cast<TLFeatureLayer*>(each.get());
        if (!layer || !layer->IsValid() || layer->GetLayerType() != TLLayer::AnnotationLayer)
            continue;
        // Projected in place: the envelope stays in this layer's system for the layers after it.
        if (TLPickBox::Differ(mapReference.get(), layer->GetSpatialReference().get()))
            TLPickBox::ToLayer(envelope.get(), mapReference.get(),
                               layer->GetSpatialReference().get());
        TLQueryFilter filter;
        filter.SetFilterGeometry(TLRefPtr<TLGeometry>(envelope.get()));
        filter.SetSpatialRel(TLSpatialRelEnum(1));
        layer->SelectFeatures(filter, method, 0);
        const int count = layer->SelectedFeatureCount();
        TLTool::selectFeatureNum += count;
        mPickCount += count;
        if (mPickCount == 0) continue;
        mHasAnnotation = true;
        mPicks.push_back({layer->GetLayerId(), layer->GetSelectedIds()});
        if (mPickCount > 1) break;
    }
    view->Refresh(nullptr, TLMapCache::CacheType(2), TLRect());
}

void TLToolEditAnnotation::clearSelectedFeature() {
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    TLPickBox::ClearAll(view ? view->GetMap() : nullptr, view);
}

// The edited annotation stays selected until the tool is activated again.
void TLToolEditAnnotation::showEditAnnoAttributeDlg(TLMapView* view) {
    QWidget* window = QWidget::find(WId(mBuddy->MainWindowId()));
    if (mHasVector) {
        QMessageBox::warning(
            window, QObject::tr("Warning"),
            QObject::tr("Annotation and vector attributes can't be modified simultaneously"));
        clearSelectedFeature();
        return;
    }
    if (mPickCount >= 2) {
        QMessageBox::warning(window, QObject::tr("Warning"),
                             QObject::tr("Don't modify many annotation at the same time!"));
        clearSelectedFeature();
        return;
    }
    if (mPicks.empty()) return;
    TLRefPtr<TLLayer> layer = view->GetMap()->GetLayerByID(mPicks.front().layerId);
    auto* annotations = dynamic_cast<TLAnnotationLayer*>(layer.get());
    if (!annotations) return;
    if (!annotations->IsEditable()) {
        QMessageBox::warning(window, QObject::tr("Warning"),
                             QObject::tr("The selected layer is not editable!"));
        return;
    }
    TMDialogEditAnnoAttributes::editIn(this, mBuddy, annotations);
}

}  // namespace TMObjects
