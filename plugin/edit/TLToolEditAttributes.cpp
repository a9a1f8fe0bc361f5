#include "edit/TLToolEditAttributes.h"

#include <QMessageBox>
#include <QWidget>

#include "annotation/TLPickBox.h"
#include "annotation/TMDialogEditAnnoAttributes.h"
#include "edit/TMDialogEditVectorAttributes.h"
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
const double kFlat = 2.220446049250313e-16;

}  // namespace

TLToolEditAttributes::TLToolEditAttributes() = default;

TLToolEditAttributes::TLToolEditAttributes(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolEditAttributes::~TLToolEditAttributes() {
    delete mDialog;
}

TLMapView* TLToolEditAttributes::mapView() const {
    return mBuddy ? mBuddy->GetMapView() : nullptr;
}

void TLToolEditAttributes::resetPress() {
    mDragging = mMoved = mHasAnno = mHasVector = false;
    mAnnoCount = 0;
}

void TLToolEditAttributes::clearAllSelections() {
    TLMapView* view = mapView();
    TLPickBox::ClearAll(view ? view->GetMap() : nullptr, view);
}

void TLToolEditAttributes::activate() {
    mActive = true;
    if (mBuddy) mBuddy->SetCursor(2);
    clearAllSelections();
    resetPress();
}

void TLToolEditAttributes::deactivate() {
    resetPress();
    clearAllSelections();
    if (mDialog) {
        mDialog->askSaveEdits();
        mDialog->hide();
        delete mDialog;
        mDialog = nullptr;
    }
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    mBuddy = nullptr;
    TLTool::deactivate();
}

bool TLToolEditAttributes::OnMouseDown(TLMouseButton button, int x, int y) {
    if (button != TLLeftButton || !mBuddy) return true;
    mDragging = true;
    const TLPoint point = ToMapCoordinates(TLPoint(x, y), nullptr);
    mDownX = point.x;
    mDownY = point.y;
    return true;
}

// The box is drawn by a band of this one event.
bool TLToolEditAttributes::OnMouseMove(TLMouseButton button, int x, int y) {
    TLMapView* view = mapView();
    if (button != TLLeftButton || !mDragging || !view) return true;
    const TLPoint at = ToMapCoordinates(TLPoint(x, y), nullptr);
    TLRubberBand band(view, TLRubberBand::PolygonBand);
    band.SetPenStyle(TLPen::SolidLine, 1.0, TLColor(255, 0, 0));
    band.SetBrushStyle(TLBrush::SolidPattern, TLColor(255, 0, 0, 50));
    for (const TLPoint& corner : {TLPoint(mDownX, mDownY), TLPoint(at.x, mDownY), at,
                                  TLPoint(mDownX, at.y), TLPoint(mDownX, mDownY)})
        band.AddPoint(corner, -1);
    band.Update();
    mMoved = true;
    return true;
}

bool TLToolEditAttributes::OnMouseUp(TLMouseButton button, int x, int y) {
    if (button != TLLeftButton) return true;
    TLMapView* view = mapView();
    TLDisplayTransform* transform = view ? view->GetDisplayTransform() : nullptr;
    if (!transform) return true;
    mSelection.clear();
    TLTool::selectFeatureNum = 0;
    SelectFeatureByRect(view, transform, x, y);
    if (!mHasAnno)
        showEditVecAttributeDlg(view);
    else
        showEditAnnoAttributeDlg(view);
    resetPress();
    return true;
}

void TLToolEditAttributes::SelectFeatureByRect(TLMapView* view, TLDisplayTransform* transform,
                                               int x, int y) {
    const TLPoint up = transform->ToMap(TLPoint(x, y));
    const double distance =
        TLSelectionEnvironment::Instance()->GetTolerance() * transform->mResolution;
    const TLRect box = TLPickBox::Box(mDownX, mDownY, up.x, up.y, distance, kFlat);
    const int mode = TLSelectionEnvironment::Instance()->GetMode();
    TLMap* map = view->GetMap();
    TLFeatureLayer* current = dynamic_cast<TLFeatureLayer*>(map->GetCurrentLayer().get());
    TLRefPtr<TLCoordinateSystem> mapReference = map->GetSpatialReference();
    const int method = mBuddy->KeyboardModifiers() == kShift ? 4 : 0;
    for (const TLRefPtr<TLLayer>& each : map->GetLayers(true)) {
        auto* layer = dynamic_cast<TLFeatureLayer*>(each.get());
        if (!layer || !layer->IsValid() || !layer->Selectable() || !layer->IsEditable()) continue;
        if (mode == 1 && current && layer != current) continue;
        const bool last = mode == 0 || (mode == 1 && !current);
        // The envelope is made in the map's system for each layer.
        TLRefPtr<TLGeoEnvelope> envelope(new TLGeoEnvelope(box));
        if (TLPickBox::Differ(mapReference.get(), layer->GetSpatialReference().get()))
            TLPickBox::ToLayer(envelope.get(), mapReference.get(),
                               layer->GetSpatialReference().get());
        TLQueryFilter filter = layer->query_filter();
        if (filter.IsSpatialFilter()) {
            const TLSpatialRelEnum relation = filter.GetSpatialRel();
            filter.SetFilterGeometry(
                filter.GetFilterGeometry()->Intersect(envelope.get(), distance * 0.1));
            filter.SetSpatialRel(relation);
        } else {
            filter.SetFilterGeometry(TLRefPtr<TLGeometry>(envelope.get()));
            filter.SetSpatialRel(TLSpatialRelEnum(1));
        }
        layer->SelectFeatures(filter, method, 0);
        const int count = layer->SelectedFeatureCount();
        TLTool::selectFeatureNum += count;
        std::vector<int> ids;
        for (int i = 0; i < count; ++i) ids.push_back(layer->Get_SelFeaIDs_Val(i));
        if (layer->GetLayerType() == TLLayer::AnnotationLayer) {
            mAnnoCount += count;
            if (count > 1) {
                mHasAnno = true;
                mSelection.push_back({layer->GetLayerId(), ids});
                break;
            }
            if (count == 0) continue;
            mHasAnno = true;
        } else {
            mHasVector = true;
            if (mHasAnno && mAnnoCount > 0) break;
        }
        mSelection.push_back({layer->GetLayerId(), ids});
        if (last) break;
    }
    if (TLTool::selectFeatureNum > 0) view->Refresh(nullptr, TLMapCache::CacheType(2), TLRect());
}

void TLToolEditAttributes::showEditVecAttributeDlg(TLMapView*) {
    if (mSelection.empty() || TLTool::selectFeatureNum == 0) {
        mSelection.clear();
        clearAllSelections();
        return;
    }
    if (!mDialog) {
        mDialog = new TMDialogEditVectorAttributes;
        const Qt::WindowFlags flags = mDialog->windowFlags();
        mDialog->setParent(QWidget::find(WId(mBuddy->MainWindowId())));
        mDialog->setWindowModality(Qt::NonModal);
        mDialog->setWindowFlags(flags);
        mDialog->move(250, 80);
        mDialog->setTool(this);
    }
    mDialog->askSaveEdits();
    const bool hidden = !mDialog->isVisible();
    if (mDialog->loadSelection(mSelection) && hidden) mDialog->show();
}

void TLToolEditAttributes::showEditAnnoAttributeDlg(TLMapView* view) {
    QWidget* window = QWidget::find(WId(mBuddy->MainWindowId()));
    if (mHasVector) {
        QMessageBox::warning(
            window, QObject::tr("Warning"),
            QObject::tr("Annotation and vector attributes can't be modified simultaneously"));
    } else if (mAnnoCount >= 2) {
        QMessageBox::warning(window, QObject::tr("Warning"),
                             QObject::tr("Don't modify many annotation at the same time!"));
    } else if (!mSelection.empty()) {
        TLRefPtr<TLLayer> layer = view->GetMap()->GetLayerByID(mSelection.front().layerId);
        if (auto* annotations = dynamic_cast<TLAnnotationLayer*>(layer.get()))
            TMDialogEditAnnoAttributes::editIn(this, mBuddy, annotations);
    }
    clearAllSelections();
}

}  // namespace TMObjects
