#include "edit/TLToolExtension.h"

#include "TLToolText.h"
#include "data/CcurrencyFunc.h"
#include "edit/TLClickQuery.h"
#include "edit/TLExtensionGeometry.h"
#include "edit/TLVertexHit.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLDrawCommonTool.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

namespace {

const char* const kOpeningPrompt =
    "Please select target line[1.Extend to target line/2.Extension distance/(E)End]:";
const char* const kTargetPrompt = "Please select target line:";
const char* const kObjectsPrompt = "Please select objects to extend:";
const char* const kDistancePrompt = "Please enter extension distance:";

TLPoint rawPoint(const double* xy, int i) {
    return TLPoint(xy[2 * i], xy[2 * i + 1]);
}

// One step of the editor writing a new shape for a feature.
void writeGeometry(TLMap* map, TLFeatureLayer* layer, int id, TLRefPtr<TLGeometry> geometry) {
    TLEditor* editor = map->editor();
    editor->StartOperation(TLString("Extension"));
    editor->set_edit_layer(layer);
    layer->layer_edit_buffer()->changeGeometry(id, geometry, false);
    editor->CommitOperation(true);
}

}  // namespace

TLToolExtension::TLToolExtension() = default;

TLToolExtension::TLToolExtension(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolExtension::~TLToolExtension() = default;

void TLToolExtension::reset() {
    mStep = 0;
    mMode = 1;
    mFinished = false;
    mLayer = nullptr;
    mFeatureId = -1;
    mExtendAtStart = false;
}

void TLToolExtension::activate() {
    mActive = true;
    reset();
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view || !view->GetMap()) return;
    mBuddy->SetPrompt(toolText(kOpeningPrompt));
    mBuddy->RegisterTool("Extension", this, true);
}

void TLToolExtension::deactivate() {
    reset();
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    TLTool::deactivate();
}

bool TLToolExtension::OnMouseDown(TLMouseButton, int x, int y) {
    if (mFinished || !mBuddy || (mMode == 2 && mStep != 1)) return false;
    TLMapView* view = mBuddy->GetMapView();
    if (!view || !view->GetMap()) return false;
    if (mMode == 1 && mStep == 0) mStep = 1;
    for (const TLRefPtr<TLLayer>& layer : view->GetMap()->GetLayers(true))
        if (auto* features = dynamic_cast<TLFeatureLayer*>(layer.get()))
            features->ClearSelect(false);
    const TLPoint click = TLClickQuery::ClickPoint(view, x, y);
    const Hit hit = pickLine(click, TLClickQuery::Tolerance(view));
    if (hit.layer) {
        if (mMode == 2) decideEnd(hit);
        if (mStep == 1) {
            mLayer = hit.layer;
            mFeatureId = hit.id;
            mBuddy->SetPrompt(toolText(mMode == 1 ? kObjectsPrompt : kDistancePrompt));
            ++mStep;
        } else if (mMode == 1) {
            extendToTarget(hit.layer, hit.id);
        }
    } else if (mMode == 1 && mStep > 1 && mLayer && mFeatureId >= 0) {
        mLayer->ClearSelect(false);
        selectTarget();
    }
    view->Refresh(nullptr, TLMapCache::SelectionCache, TLRect());
    return true;
}

TLToolExtension::Hit TLToolExtension::pickLine(const TLPoint& click, double tolerance) {
    TLMapView* view = mBuddy->GetMapView();
    const bool linesOnly = mMode == 2 || mStep >= 2;
    for (const TLRefPtr<TLLayer>& layer : view->GetMap()->GetLayers(true)) {
        auto* features = dynamic_cast<TLFeatureLayer*>(layer.get());
        if (!features || !features->IsValid() || features->GetLayerType() == TLLayer::PointLayer)
            continue;
        if (linesOnly && features->GetLayerType() != TLLayer::LineLayer) continue;
        for (const TLClickQuery::Candidate& candidate :
             TLClickQuery::Select(view, features, click.x, click.y)) {
            const int segment = hitSegment(candidate.geometry.get(), click.x, click.y, tolerance);
            if (segment < 0) continue;
            features->ClearSelect(false);
            TLRefPtr<TLFeature> feature = features->GetFeature(candidate.id);
            if (feature) features->AddSelect(feature.get(), false);
            return {features, candidate.id, segment, candidate.geometry};
        }
        features->ClearSelect(false);
    }
    return {};
}

// The end nearer the click along the line is extended; on a tie the last one.
void TLToolExtension::decideEnd(const Hit& hit) {
    double* xy = nullptr;
    int count = 0;
    double before = 0.0, after = 0.0;
    if (hit.geometry->GetRawPoints(&xy, count)) {
        for (int j = 0; j + 1 < count; ++j) {
            const double length = CcurrencyFunc::calcPointSpace(xy[2 * j], xy[2 * j + 1],
                                                                xy[2 * j + 2], xy[2 * j + 3]);
            if (hit.segment < j)
                after += length;
            else
                before += length;
        }
    }
    mExtendAtStart = !(after <= before);
}

void TLToolExtension::selectTarget() {
    TLRefPtr<TLFeature> target = mLayer->GetFeature(mFeatureId);
    if (target) mLayer->AddSelect(target.get(), false);
}

void TLToolExtension::extendToTarget(TLFeatureLayer* layer, int id) {
    TLMapView* view = mBuddy->GetMapView();
    TLRect rect;
    TLRefPtr<TLFeature> targetFeature = mLayer->GetFeature(mFeatureId);
    TLRefPtr<TLFeature> lineFeature = layer->GetFeature(id);
    TLRefPtr<TLGeometry> target = targetFeature ? targetFeature->GetGeometry() : nullptr;
    auto* line =
        lineFeature ? dynamic_cast<TLGeoPolyline*>(lineFeature->GetGeometry().get()) : nullptr;
    if (target && TLClickQuery::SystemsDiffer(mLayer->GetSpatialReference().get(),
                                              layer->GetSpatialReference().get())) {
        target = target->Clone();
        TLClickQuery::Project(target.get(), mLayer->GetSpatialReference().get(),
                              layer->GetSpatialReference().get());
    }
    double *t = nullptr, *l = nullptr;
    int m = 0, n = 0;
    if (target && line && target->GetRawPoints(&t, m) && line->GetRawPoints(&l, n) && n >= 2) {
        TLPoint out;
        int side = 0;
        for (int i = 0; i + 1 < m; ++i) {
            int found = 0;
            crossSegment(rawPoint(t, i), rawPoint(t, i + 1), rawPoint(l, n - 2), rawPoint(l, n - 1),
                         out, found);
            if (found) {
                side = 1;
                break;
            }
            found = 0;
            crossSegment(rawPoint(t, i), rawPoint(t, i + 1), rawPoint(l, 1), rawPoint(l, 0), out,
                         found);
            if (found) {
                side = -1;
                break;
            }
        }
        // A line that already reaches the target stays as it is.
        for (int i : {0, 1, n - 2, n - 1})
            if (out.x == l[2 * i] && out.y == l[2 * i + 1]) side = 0;
        if (side != 0) {
            TLRefPtr<TLGeoPolyline> extended = extendedLine(line, out, side == -1);
            writeGeometry(view->GetMap(), layer, id, extended);
            rect = extended->GetBound();
        }
    }
    layer->ClearSelect(false);
    mLayer->ClearSelect(false);
    selectTarget();
    mBuddy->SetPrompt(toolText(kObjectsPrompt));
    view->RefreshMap(false, rect);
}

bool TLToolExtension::processChildCmd(TLString text) {
    if (!mBuddy) return false;
    const std::wstring& typed = text.toStdWString();
    if (typed == L"E" || typed == L"e") {
        mStep = 0;
        mMode = 1;
        mFinished = true;
        mBuddy->SetPrompt(TLString());
        return true;
    }
    if (mStep == 0) {
        if (typed == L"2") {
            mMode = 2;
            mStep = 1;
            mBuddy->SetPrompt(toolText(kObjectsPrompt));
        } else if (typed == L"1") {
            mMode = 1;
            mStep = 1;
            mBuddy->SetPrompt(toolText(kTargetPrompt));
        } else {
            mMode = 1;
            mBuddy->SetPrompt(toolText(kOpeningPrompt));
        }
        return true;
    }
    if (mMode == 1) {
        mBuddy->SetPrompt(toolText(mStep == 1 ? kTargetPrompt : kObjectsPrompt));
        return true;
    }
    if (mStep == 1) {
        mBuddy->SetPrompt(toolText(kObjectsPrompt));
        return true;
    }
    if (!TLDrawCommonTool::CheckStrIsLength(text)) {
        mBuddy->SetPrompt(toolText(kDistancePrompt));
        return true;
    }
    double distance = 0.0;
    TLDrawCommonTool::GetLenFromStr(text, distance);
    if (distance > 0) extendByDistance(distance);
    mLayer = nullptr;
    mFeatureId = -1;
    mMode = 1;
    mStep = 0;
    mBuddy->SetPrompt(toolText(kOpeningPrompt));
    return true;
}

void TLToolExtension::extendByDistance(double distance) {
    TLMapView* view = mBuddy->GetMapView();
    TLMap* map = view ? view->GetMap() : nullptr;
    TLRefPtr<TLFeature> feature = mLayer && map ? mLayer->GetFeature(mFeatureId) : nullptr;
    TLRefPtr<TLGeometry> geometry = feature ? feature->GetGeometry() : nullptr;
    if (!geometry || geometry->GetType() != TLGeometry::GeoPolyline) return;
    TLRefPtr<TLCoordinateSystem> layerReference = mLayer->GetSpatialReference();
    TLRefPtr<TLCoordinateSystem> mapReference = map->GetSpatialReference();
    const bool project = TLClickQuery::SystemsDiffer(layerReference.get(), mapReference.get());
    if (project) {
        geometry = geometry->Clone();
        TLClickQuery::Project(geometry.get(), layerReference.get(), mapReference.get());
    }
    TLRect rect = geometry->GetBound();
    double* xy = nullptr;
    int n = 0;
    if (!geometry->GetRawPoints(&xy, n) || n < 2) return;
    const TLPoint a = mExtendAtStart ? rawPoint(xy, 1) : rawPoint(xy, n - 2);
    const TLPoint b = mExtendAtStart ? rawPoint(xy, 0) : rawPoint(xy, n - 1);
    TLPoint p;
    pointBeyond(a, b, distance, p);
    TLRefPtr<TLGeoPolyline> extended =
        extendedLine(static_cast<TLGeoPolyline*>(geometry.get()), p, mExtendAtStart);
    rect.Union(extended->GetBound());
    if (project) {
        TLGeometryProject toLayer;
        toLayer.SetPrj(mapReference.get(), layerReference.get(), nullptr);
        toLayer.ProjTmPolyline(extended.get());
    }
    writeGeometry(map, mLayer, mFeatureId, extended);
    view->RefreshMap(false, rect);
}

}  // namespace TMObjects
