#include "edit/TLToolCollectCut.h"

#include "TLToolText.h"
#include "data/CHelper.h"
#include "data/CRvLayer.h"
#include "data/CvectorEntityData.h"
#include "edit/TLAttributeCopy.h"
#include "edit/TLClickQuery.h"
#include "edit/TLSnipPackage.h"
#include "edit/TLVertexHit.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

namespace {

const char* const kFirstPrompt = "Please select cut line/Press Space or Enter after selection:";
const char* const kCutLinePrompt =
    "Please select a cutting line/press Space or Enter after selection:";
const char* const kTargetPrompt =
    "Please select feature to be cut/Press Space or Enter after selection:";
const char* const kDropPrompt = "Please select the line to cut off/End(E):";

// Selects exactly the feature `id` of `layer`.
void selectOnly(TLFeatureLayer* layer, int id) {
    layer->ClearSelect(false);
    TLRefPtr<TLFeature> feature = layer->GetFeature(id);
    if (feature) layer->AddSelect(feature.get(), false);
}

}  // namespace

TLToolCollectCut::TLToolCollectCut() = default;

TLToolCollectCut::TLToolCollectCut(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolCollectCut::~TLToolCollectCut() = default;

void TLToolCollectCut::clearMembers() {
    mStep = 0;
    mFinished = false;
    mCandidateLayer = mCutLineLayer = mTargetLayer = nullptr;
    mCandidateId = mCutLineId = mTargetId = -1;
}

void TLToolCollectCut::activate() {
    mActive = true;
    clearMembers();
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view || !view->GetMap()) return;
    mBuddy->RegisterTool("Trimline", this, true);
    mBuddy->SetPrompt(toolText(kFirstPrompt));
}

void TLToolCollectCut::deactivate() {
    clearMembers();
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    TLTool::deactivate();
}

void TLToolCollectCut::promptStep() {
    const char* prompt = mStep == 0 ? kCutLinePrompt : mStep == 1 ? kTargetPrompt : kDropPrompt;
    mBuddy->SetPrompt(toolText(prompt));
}

bool TLToolCollectCut::processChildCmd(TLString text) {
    if (!mBuddy) return false;
    if (text.toStdWString() == L"E" || text.toStdWString() == L"e") {
        clearMembers();
        mFinished = true;
        mBuddy->SetPrompt(TLString());
        return true;
    }
    if (text.isEmpty() && mCandidateLayer && mCandidateId >= 0) {
        if (mStep == 0) {
            mCutLineLayer = mCandidateLayer;
            mCutLineId = mCandidateId;
        } else {
            mTargetLayer = mCandidateLayer;
            mTargetId = mCandidateId;
        }
        mCandidateLayer = nullptr;
        mCandidateId = -1;
        ++mStep;
    }
    promptStep();
    return true;
}

bool TLToolCollectCut::OnMouseDown(TLMouseButton, int x, int y) {
    if (mFinished || !mBuddy) return false;
    TLMapView* view = mBuddy->GetMapView();
    if (!view || !view->GetMap()) return false;
    const TLPoint click = TLClickQuery::ClickPoint(view, x, y);
    const double tolerance = TLClickQuery::Tolerance(view);
    for (const TLRefPtr<TLLayer>& layer : view->GetMap()->GetLayers(true))
        if (auto* features = dynamic_cast<TLFeatureLayer*>(layer.get()))
            features->ClearSelect(false);
    if (mStep == 2)
        cut(click, tolerance);
    else
        pick(click, tolerance);
    return true;
}

void TLToolCollectCut::pick(const TLPoint& click, double tolerance) {
    TLMapView* view = mBuddy->GetMapView();
    mCandidateLayer = nullptr;
    mCandidateId = -1;
    for (const TLRefPtr<TLLayer>& layer : view->GetMap()->GetLayers(true)) {
        auto* features = dynamic_cast<TLFeatureLayer*>(layer.get());
        if (!features || !features->IsValid() || !features->IsEditable() ||
            features->GetLayerType() == TLLayer::PointLayer)
            continue;
        if (mStep == 1 && features->GetLayerType() != TLLayer::LineLayer) continue;
        for (const TLClickQuery::Candidate& candidate :
             TLClickQuery::Select(view, features, click.x, click.y)) {
            if (hitSegment(candidate.geometry.get(), click.x, click.y, tolerance) < 0) continue;
            mCandidateLayer = features;
            mCandidateId = candidate.id;
            break;
        }
        if (mCandidateLayer) {
            selectOnly(features, mCandidateId);
            break;
        }
        features->ClearSelect(false);
    }
    if (mStep == 1 && mCutLineLayer && mCutLineId >= 0) {
        TLRefPtr<TLFeature> cutLine = mCutLineLayer->GetFeature(mCutLineId);
        if (cutLine) mCutLineLayer->AddSelect(cutLine.get(), false);
    }
    view->Refresh(nullptr, TLMapCache::SelectionCache, TLRect());
}

void TLToolCollectCut::cut(const TLPoint& clickOnMap, double tolerance) {
    TLMapView* view = mBuddy->GetMapView();
    TLMap* map = view->GetMap();
    if (!mCutLineLayer || mCutLineId < 0 || !mTargetLayer || mTargetId < 0) {
        clearMembers();
        view->UpdateView(true);
        mBuddy->SetPrompt(toolText(kCutLinePrompt));
        return;
    }
    TLRefPtr<TLFeature> target = mTargetLayer->GetFeature(mTargetId);
    TLRefPtr<TLGeometry> targetGeometry = target ? target->GetGeometry() : nullptr;
    TLRect rect = targetGeometry ? targetGeometry->GetBound() : TLRect();
    TLRefPtr<TLCoordinateSystem> targetReference = mTargetLayer->GetSpatialReference();

    TLRefPtr<TLFeature> cutter = mCutLineLayer->GetFeature(mCutLineId);
    TLRefPtr<TLGeometry> cutterGeometry = cutter ? cutter->GetGeometry() : nullptr;
    TLRefPtr<TLCoordinateSystem> cutterReference = mCutLineLayer->GetSpatialReference();
    if (cutterGeometry &&
        TLClickQuery::SystemsDiffer(cutterReference.get(), targetReference.get())) {
        cutterGeometry = cutterGeometry->Clone();
        TLClickQuery::Project(cutterGeometry.get(), cutterReference.get(), targetReference.get());
    }

    std::vector<TLRefPtr<TLGeometry>> pieces;
    geoCutPolyine(targetGeometry, cutterGeometry, pieces);
    if (!pieces.empty()) {
        TLPoint click = clickOnMap;
        TLRefPtr<TLCoordinateSystem> mapReference = map->GetSpatialReference();
        if (TLClickQuery::SystemsDiffer(mapReference.get(), targetReference.get())) {
            TLGeometryProject project;
            project.SetPrj(mapReference.get(), targetReference.get(), nullptr);
            project.ProjPoint(click);
        }
        TLEditor* editor = map->editor();
        editor->StartOperation(TLString("Trim line"));
        editor->set_edit_layer(mTargetLayer);
        for (const TLRefPtr<TLGeometry>& piece : pieces) {
            if (hitSegment(piece.get(), click.x, click.y, tolerance) >= 0) continue;
            // The old feature is gone: the step stays open, as far as it went.
            if (!TLAttributeCopy::AddPiece(mTargetLayer, mTargetId, piece)) return;
        }
        mTargetLayer->layer_edit_buffer()->DeleteFeature(mTargetId, true, true);
        editor->CommitOperation(true);
    }
    clearMembers();
    if (view->GetDisplay()) view->GetDisplay()->ToMapRect(targetReference.get(), rect);
    view->RefreshMap(false, rect);
    mBuddy->SetPrompt(toolText(kCutLinePrompt));
}

void TLToolCollectCut::geoCutPolyine(TLRefPtr<TLGeometry> target, TLRefPtr<TLGeometry> cutter,
                                     std::vector<TLRefPtr<TLGeometry>>& pieces) {
    if (!target || !cutter || target->GetType() != TLGeometry::GeoPolyline ||
        cutter->GetType() == TLGeometry::GeoPolygon)
        return;
    TLSnipPackage package(*this);
    package.SetTarget(target.get());
    CvectorEntityData* entity = package.AddCutterEntity();
    CHelper::TmGeometryToChunkData(cutter.get(), entity, false);
    package.CutterLayer()->StandEbField(entity);
    std::vector<TLRefPtr<TLGeoPolyline>> lines;
    package.Snip(lines);
    pieces.insert(pieces.end(), lines.begin(), lines.end());
}

}  // namespace TMObjects
