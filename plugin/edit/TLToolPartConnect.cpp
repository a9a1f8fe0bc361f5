#include "edit/TLToolPartConnect.h"

#include "TLToolText.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLSelection.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsde/TLQueryFilter.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

namespace {

const int kEscape = 0x1000000;
const int kKeyZ = 0x5A;
const int kCtrlOnly = 0x4000000;

bool differ(TLCoordinateSystem* map, TLCoordinateSystem* layer) {
    return map && layer && !map->IsSame(layer);
}

// A layer the connect line may reshape: editable lines and polygons the user can pick.
bool candidate(TLFeatureLayer* layer) {
    return layer && layer->IsValid() && layer->Selectable() && layer->IsEditable() &&
           layer->GetLayerType() != TLLayer::PointLayer;
}

}  // namespace

TLToolPartConnect::TLToolPartConnect() = default;

TLToolPartConnect::TLToolPartConnect(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolPartConnect::~TLToolPartConnect() {
    delete mBand;
}

void TLToolPartConnect::activate() {
    mActive = true;
    if (!mBuddy || !mBuddy->GetMapView() || !mBuddy->GetMapView()->GetMap()) return;
    mPoints.clear();
    delete mBand;
    // Blue, unlike the other drawing bands.
    mBand = new TLRubberBand(mBuddy->GetMapView(), TLRubberBand::LineBand);
    mBand->SetPenStyle(TLPen::SolidLine, 1.0, TLColor(0, 0, 255));
    mSnapTool.Init(mBuddy);
}

void TLToolPartConnect::deactivate() {
    mPoints.clear();
    if (mBand) {
        mBand->Clear();
        mBand->Update();
    }
    delete mBand;
    mBand = nullptr;
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    TLTool::deactivate();
}

bool TLToolPartConnect::OnMouseDown(TLMouseButton button, int x, int y) {
    if (button != TLLeftButton) return true;
    TLPoint point = ToMapCoordinates(TLPoint(x, y), nullptr);
    if (mSnapTool.CanSnap()) {
        mSnapTool.Snap(point, nullptr);
        mSnapTool.GetSnappedPoint(point);
    }
    mPoints.push_back(point);
    return true;
}

bool TLToolPartConnect::OnMouseMove(TLMouseButton, int x, int y) {
    TLPoint point = ToMapCoordinates(TLPoint(x, y), nullptr);
    if (mSnapTool.CanSnap()) {
        mSnapTool.Snap(point, nullptr);
        mSnapTool.GetSnappedPoint(point);
        if (mBuddy && mBuddy->GetMapView())
            mSnapTool.Draw(mBuddy->GetMapView()->GetDisplayTransform(),
                           TLSnapEnvironment::Instance());
    }
    if (mPoints.empty() || !mBand) return false;
    mCursorPoint = point;
    redrawBand(true);
    return true;
}

void TLToolPartConnect::redrawBand(bool withCursor) {
    mBand->Reset(TLRubberBand::LineBand);
    for (const TLPoint& p : mPoints) mBand->AddPoint(p, 0);
    if (withCursor) mBand->AddPoint(mCursorPoint, 0);
    mBand->Update();
}

bool TLToolPartConnect::OnKeyDown(int key) {
    if (!mActive || !mBuddy || !mBand) return false;
    if (key == kEscape) {
        mPoints.clear();
        mBand->Clear();
        mBand->Update();
    } else if (key == kKeyZ && mBuddy->KeyboardModifiers() == kCtrlOnly) {
        if (!mPoints.empty()) mPoints.pop_back();
        if (mPoints.size() > 1) {
            mBand->Clear();
            redrawBand(true);
        } else {
            mBand->Clear();
            mBand->Update();
        }
    }
    return true;
}

bool TLToolPartConnect::OnDblClick(TLMouseButton, int, int) {
    if (!mBuddy || !mBand) return false;
    TLRefPtr<TLGeometry> line = mBand->AsGeometry();
    mPoints.clear();
    mBand->Reset(TLRubberBand::LineBand);
    TLMapView* view = mBuddy->GetMapView();
    if (!line || line->IsEmpty() || !view || !view->GetMap()) return true;
    TLMap* map = view->GetMap();
    TLRect rect = line->GetBound();
    const int mode = TLSelectionEnvironment::Instance()->GetMode();
    TLRefPtr<TLCoordinateSystem> mapReference = map->GetSpatialReference();
    TLRefPtr<TLLayer> current = map->GetCurrentLayer();

    TLFeatureLayer* found = nullptr;
    std::vector<TLRefPtr<TLFeature>> features;
    for (const TLRefPtr<TLLayer>& each : map->GetLayers(true)) {
        auto* layer = dynamic_cast<TLFeatureLayer*>(each.get());
        if (!candidate(layer)) continue;
        if (mode == 1 && dynamic_cast<TLFeatureLayer*>(current.get()) && current.get() != layer)
            continue;
        TLRefPtr<TLGeometry> filterLine = line->Clone();
        if (differ(mapReference.get(), layer->GetSpatialReference().get())) {
            TLGeometryProject project;
            project.SetPrj(mapReference.get(), layer->GetSpatialReference().get(), nullptr);
            project.ProjTmGeometry(filterLine.get());
        }
        TLQueryFilter filter;
        filter.SetFilterGeometry(filterLine);
        filter.SetSpatialRel(TLSpatialRelIntersects);
        std::vector<int> ids;
        TLRefPtr<TLFeatureCursor> cursor = layer->Search(filter);
        while (TLRefPtr<TLFeature> feature = cursor ? cursor->NextFeature() : nullptr)
            ids.push_back(feature->GetId());
        const int count = int(ids.size());
        if ((layer->GetLayerType() == TLLayer::LineLayer && count > 1) ||
            (layer->GetLayerType() == TLLayer::PolygonLayer && count > 2)) {
            mBuddy->ShowMessage(
                toolText("Connect line crosses with multiple line features, please draw again!"));
            return true;
        }
        if (count == 0) continue;
        for (int id : ids)
            if (TLRefPtr<TLFeature> feature = layer->GetFeature(id)) features.push_back(feature);
        found = layer;
        break;
    }
    if (!found) return true;
    TLRefPtr<TLCoordinateSystem> layerReference = found->GetSpatialReference();
    if (differ(mapReference.get(), layerReference.get())) {
        TLGeometryProject project;
        project.SetPrj(mapReference.get(), layerReference.get(), nullptr);
        project.ProjTmGeometry(line.get());
    }
    TLEditor* editor = map->editor();
    if (!editor) return true;
    for (const TLRefPtr<TLFeature>& feature : features) {
        if (!feature->GetGeometry()) continue;
        TLRect bound = feature->GetGeometry()->GetBound();
        view->GetDisplay()->ToMapRect(layerReference.get(), bound);
        rect.Union(bound);
    }

    editor->StartOperation("Part connect");
    editor->set_edit_layer(found);
    if (process(found, features, line.get()))
        for (const TLRefPtr<TLFeature>& feature : features)
            found->layer_edit_buffer()->changeGeometry(feature->GetId(), feature->GetGeometry(),
                                                       true);
    editor->CommitOperation(true);
    view->RefreshMap(false, rect);
    mSnapTool.Reset();
    return true;
}

}  // namespace TMObjects
