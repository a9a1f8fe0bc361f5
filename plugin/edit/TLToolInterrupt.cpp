#include "edit/TLToolInterrupt.h"

#include <cfloat>
#include <cstdint>

#include "TLToolText.h"
#include "data/CRvLayer.h"
#include "data/CvectorEntityData.h"
#include "edit/TLAttributeCopy.h"
#include "edit/TLClickQuery.h"
#include "edit/TLSnipPackage.h"
#include "tlgeo/TLGeoEnvelope.h"
#include "tlmap/TLEventSignal.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLMathUtil.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLSnap.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

namespace {

const char* const kMenuPrompt =
    "1.Break at single point 2.Break at two points 3.Break at intersection:";
const char* const kOnePointPrompt = "Please select one point:";
const char* const kFirstPointPrompt = "Please select the first point:";
const char* const kAnotherPointPrompt = "Please select another point:";
const char* const kDrawPrompt = "Please draw a cutting line,double click to end:";
const char* const kSelectFirst = "Please select a line feature first!";
const TLColor kRed(255, 0, 0);

void layerRemovedHandler() {}

}  // namespace

TLToolInterrupt::TLToolInterrupt() = default;

TLToolInterrupt::TLToolInterrupt(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolInterrupt::~TLToolInterrupt() {
    delete mBand;
}

// The receiver and the handler, as every binding of the map's signals is keyed.
TLString TLToolInterrupt::signalKey() const {
    TLString key;
    key.Format("%x %x", unsigned(reinterpret_cast<std::uintptr_t>(this)),
               unsigned(reinterpret_cast<std::uintptr_t>(&layerRemovedHandler)));
    return key;
}

void TLToolInterrupt::activate() {
    mActive = true;
    mStep = 0;
    mMethod = 1;
    mDragging = false;
    mPoints.clear();
    delete mBand;
    mBand = nullptr;
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view || !view->GetMap()) return;
    mBuddy->RegisterTool("Interrupt", this, true);
    mBuddy->SetPrompt(toolText(kMenuPrompt));
    if (!CanEdit(true)) {
        mBuddy->ShowMessage(Trans("Please select a line feature!"));
        mBuddy->AppendMessage(toolText(kSelectFirst));
        mBuddy->SetPrompt(toolText(kMenuPrompt));
        return;
    }
    view->GetMap()->layerRemoved.bind(
        signalKey(), [this](void* sender, TLEvent* event) { OnLayerRemoved(sender, event); });
    mBand = new TLRubberBand(view, TLRubberBand::LineBand);
    mBand->SetPenStyle(TLPen::SolidLine, 1.0, kRed);
}

void TLToolInterrupt::deactivate() {
    delete mBand;
    mBand = nullptr;
    mStep = 0;
    mMethod = 1;
    mSelecting = false;
    if (mBuddy) {
        mBuddy->SetPrompt(TLString());
        mBuddy->UnregisterTool(this, false);
        TLMapView* view = mBuddy->GetMapView();
        if (view && view->GetMap()) view->GetMap()->layerRemoved.unbind(signalKey());
    }
    mLayer = nullptr;
    mFeature = nullptr;
    mBuddy = nullptr;
    mPoints.clear();
    TLTool::deactivate();
}

void TLToolInterrupt::OnLayerRemoved(void*, TLEvent* event) {
    if (mLayer && event && event->GetData().GetInt32() == mLayer->GetLayerId()) {
        mLayer = nullptr;
        mFeature = nullptr;
    }
}

bool TLToolInterrupt::CanEdit(bool update) {
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    TLMap* map = view ? view->GetMap() : nullptr;
    if (!map) return false;
    mEditor = map->editor();
    TLRefPtr<TLFeatureSelectionSet> selection = map->GetAllSelection();
    if (!selection || selection->GetCount() != 1) return false;
    TLRefPtr<TLSelectFeature> feature = selection->GetFeature(0);
    TLLayer* layer = feature ? feature->GetLayer() : nullptr;
    if (!layer || layer->GetLayerType() != TLLayer::LineLayer) return false;
    if (update) {
        mLayer = layer;
        mFeature = feature;
    }
    mEditor->set_edit_layer(layer);
    return true;
}

void TLToolInterrupt::refuseSelection() {
    mBuddy->AppendMessage(toolText(kSelectFirst));
    mBuddy->SetPrompt(toolText("Layer error"));
    mStep = 0;
    mMethod = 1;
    mPoints.clear();
    delete mBand;
    mBand = nullptr;
}

bool TLToolInterrupt::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy) return false;
    if (mSelecting) {
        if (button == TLLeftButton) {
            mDragging = true;
            const TLPoint map = ToMapCoordinates(TLPoint(x, y), nullptr);
            mDownMapX = map.x;
            mDownMapY = map.y;
            mDownDevX = x;
            mDownDevY = y;
        }
        return true;
    }
    if (!CanEdit(false)) {
        refuseSelection();
        return true;
    }
    if (mMethod == 3)
        mPoints.push_back(ToMapCoordinates(TLPoint(x, y), nullptr));
    else
        breakAt(x, y);
    return true;
}

// The feature's geometry in map coordinates: a copy when projected.
TLRefPtr<TLGeometry> TLToolInterrupt::featureInMap() {
    TLRefPtr<TLGeometry> geometry = mFeature ? mFeature->GetGeometry() : nullptr;
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    auto* layer = dynamic_cast<TLFeatureLayer*>(mLayer.get());
    if (!geometry || !view || !view->GetMap() || !layer) return geometry;
    TLRefPtr<TLCoordinateSystem> mapReference = view->GetMap()->GetSpatialReference();
    TLRefPtr<TLCoordinateSystem> layerReference = layer->GetSpatialReference();
    if (TLClickQuery::SystemsDiffer(mapReference.get(), layerReference.get())) {
        geometry = geometry->Clone();
        TLClickQuery::Project(geometry.get(), layerReference.get(), mapReference.get());
    }
    return geometry;
}

void TLToolInterrupt::breakAt(int x, int y) {
    TLMapView* view = mBuddy->GetMapView();
    const double tolerance = TLClickQuery::Tolerance(view);
    auto* layer = dynamic_cast<TLFeatureLayer*>(mLayer.get());
    if (!layer || !mFeature) return;
    if (!layer->IsEditable()) {
        mBuddy->AppendMessage(Trans("The current  layer  is not editable!"));
        return;
    }
    TLRefPtr<TLGeometry> geometry = featureInMap();
    const int id = mFeature->GetOID();
    if (!geometry) return;
    const TLPoint click = ToMapCoordinates(TLPoint(x, y), nullptr);
    const double snapTolerance =
        ToMapDistance(TLSnapEnvironment::Instance()->getTolerance(), nullptr);
    TLPoint point;
    TLSnap snap;
    if (snap.snap(click, geometry.get(), snapTolerance, point.x, point.y) == 0) return;
    int part = -1, segment = -1;
    geometry->HitTest(point, tolerance, GeoHitBoundary, part, segment);

    if (mMethod == 2 && mPoints.empty()) {
        mPoints.push_back(point);
        mBuddy->SetPrompt(toolText(kAnotherPointPrompt));
        mStep = 2;
        return;
    }
    mEditor->StartOperation(TLString("interrupt"));
    std::vector<TLRefPtr<TLGeoPolyline>> pieces;
    if (mMethod == 1) {
        if (auto* line = dynamic_cast<TLGeoPolyline*>(geometry.get()))
            SplitLineByPoint(line, point, segment, tolerance, pieces);
    } else {
        int firstPart = -1, firstSegment = -1;
        geometry->HitTest(mPoints[0], tolerance, GeoHitBoundary, firstPart, firstSegment);
        SplitLineByPoint(geometry.get(), mPoints[0], point, tolerance, pieces);
    }
    writePieces(pieces, id);
}

void TLToolInterrupt::writePieces(std::vector<TLRefPtr<TLGeoPolyline>>& pieces, int id) {
    TLMapView* view = mBuddy->GetMapView();
    auto* layer = static_cast<TLFeatureLayer*>(mLayer.get());
    TLRefPtr<TLCoordinateSystem> mapReference = view->GetMap()->GetSpatialReference();
    TLRefPtr<TLCoordinateSystem> layerReference = layer->GetSpatialReference();
    TLRect rect;
    if (TLClickQuery::SystemsDiffer(mapReference.get(), layerReference.get())) {
        for (TLRefPtr<TLGeoPolyline>& piece : pieces) {
            rect.Union(piece->GetBound());
            TLClickQuery::Project(piece.get(), mapReference.get(), layerReference.get());
        }
    }
    // The feature is gone: the pieces are dropped and the step stays open.
    if (!layer->GetFeature(id)) return;
    for (const TLRefPtr<TLGeoPolyline>& piece : pieces) TLAttributeCopy::AddPiece(layer, id, piece);
    layer->layer_edit_buffer()->DeleteFeature(id, true, true);
    mEditor->CommitOperation(true);
    if (mMethod == 1) {
        mBuddy->SetPrompt(toolText("Continue to break at single point?(Y/N):"));
        mSelecting = true;
        mStep = 0;
    } else {
        deactivate();
    }
    view->RefreshMap(false, rect);
}

bool TLToolInterrupt::OnMouseMove(TLMouseButton button, int x, int y) {
    if (!mBuddy || !mBuddy->GetMapView()) return false;
    TLMapView* view = mBuddy->GetMapView();
    if (mSelecting) {
        if (button == TLLeftButton && mDragging) dragBox(x, y);
        return true;
    }
    if (!mBand) mBand = new TLRubberBand(view, TLRubberBand::LineBand);
    TLRefPtr<TLGeometry> geometry = featureInMap();
    const TLPoint cursor = ToMapCoordinates(TLPoint(x, y), nullptr);
    if ((mStep == 1 && mMethod == 1) || mMethod == 2) {
        showSnap(view, geometry.get(), cursor);
        if (mMethod == 2 && mStep == 2 && !mPoints.empty()) {
            mBand->Reset(TLRubberBand::PointBand);
            mBand->AddPoint(mPoints[0], -1);
        }
    } else if (mPoints.empty()) {
        return true;
    } else {
        mBand->Reset(TLRubberBand::LineBand);
        for (const TLPoint& p : mPoints) mBand->AddPoint(p, -1);
        mBand->AddPoint(cursor, -1);
    }
    view->RefreshOverlay();
    return true;
}

// The snapped point under the cursor, marked for this event only.
void TLToolInterrupt::showSnap(TLMapView* view, TLGeometry* geometry, const TLPoint& cursor) {
    if (!geometry) return;
    TLPoint point;
    TLSnap snap;
    const double tolerance = ToMapDistance(TLSnapEnvironment::Instance()->getTolerance(), nullptr);
    if (snap.snap(cursor, geometry, tolerance, point.x, point.y) == 0) return;
    TLRubberBand mark(view, TLRubberBand::LineBand);
    mark.Reset(TLRubberBand::PointBand);
    mark.AddPoint(point, -1);
    mark.Update();
}

// The selection box from the press to the cursor, for this event only.
void TLToolInterrupt::dragBox(int x, int y) {
    TLRubberBand box(mBuddy->GetMapView(), TLRubberBand::PolygonBand);
    box.SetPenStyle(TLPen::SolidLine, 1.0, kRed);
    box.SetBrushStyle(TLBrush::SolidPattern, TLColor(255, 0, 0, 50));
    const TLPoint corners[] = {{mDownDevX, mDownDevY},
                               {double(x), mDownDevY},
                               {double(x), double(y)},
                               {mDownDevX, double(y)},
                               {mDownDevX, mDownDevY}};
    for (const TLPoint& corner : corners) box.AddPoint(ToMapCoordinates(corner, nullptr), -1);
    box.Update();
}

bool TLToolInterrupt::OnMouseUp(TLMouseButton button, int x, int y) {
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!mSelecting || !view || !view->GetDisplay() || !view->GetDisplayTransform()) return false;
    if (button == TLLeftButton && mDragging) selectInBox(x, y);
    if (!CanEdit(true)) {
        mBuddy->AppendMessage(toolText(kSelectFirst));
        return true;
    }
    mBuddy->SetPrompt(toolText(kOnePointPrompt));
    mSelecting = false;
    return true;
}

void TLToolInterrupt::selectInBox(int x, int y) {
    mDragging = false;
    TLMapView* view = mBuddy->GetMapView();
    const double tolerance = TLClickQuery::Tolerance(view);
    auto* layer = dynamic_cast<TLFeatureLayer*>(mLayer.get());
    if (!layer) return;
    const TLPoint up = ToMapCoordinates(TLPoint(x, y), nullptr);
    double xmin = std::min(mDownMapX, up.x), xmax = std::max(mDownMapX, up.x);
    double ymin = std::min(mDownMapY, up.y), ymax = std::max(mDownMapY, up.y);
    // A plain click selects by its pick box.
    if (xmax - xmin < DBL_EPSILON || ymax - ymin < DBL_EPSILON) {
        xmin -= tolerance;
        xmax += tolerance;
        ymin -= tolerance;
        ymax += tolerance;
    }
    TLRefPtr<TLGeometry> box(new TLGeoEnvelope(xmin, ymin, xmax, ymax));
    TLClickQuery::Project(box.get(), view->GetMap()->GetSpatialReference().get(),
                          layer->GetSpatialReference().get());
    TLQueryFilter filter = layer->query_filter();
    if (filter.IsSpatialFilter()) {
        filter.SetFilterGeometry(filter.GetFilterGeometry()->Intersect(box.get(), 0.1 * tolerance));
    } else {
        filter.SetFilterGeometry(box);
        filter.SetSpatialRel(TLSpatialRelIntersects);
    }
    layer->SelectFeatures(filter, 0, 0);
    view->Refresh(layer, TLMapCache::SelectionCache, TLRect());
}

bool TLToolInterrupt::OnDblClick(TLMouseButton, int x, int y) {
    if (!mBuddy || mMethod != 3 || mPoints.empty()) return false;
    TLMapView* view = mBuddy->GetMapView();
    if (!view || !view->GetMap() || !mEditor) return false;
    mPoints.push_back(ToMapCoordinates(TLPoint(x, y), nullptr));
    TLRefPtr<TLCoordinateSystem> mapReference = view->GetMap()->GetSpatialReference();
    auto* layer = dynamic_cast<TLFeatureLayer*>(mEditor->edit_layer());
    TLRefPtr<TLFeatureSelectionSet> selection = layer ? layer->GetSelection() : nullptr;
    if (!selection || selection->GetCount() == 0) return false;
    TLRefPtr<TLSelectFeature> selected = selection->GetFeature(0);
    TLRefPtr<TLGeometry> geometry = selected->GetGeometry();
    const int id = selected->GetOID();
    TLRefPtr<TLCoordinateSystem> layerReference = layer->GetSpatialReference();

    TLSnipPackage package(*this);
    package.SetTarget(geometry.get());
    CvectorEntityData* entity = package.AddCutterEntity();
    entity->entity_BeginPath();
    entity->entity_BeginSegment(1);
    std::unique_ptr<TLGeometryProject> toLayer;
    if (TLClickQuery::SystemsDiffer(mapReference.get(), layerReference.get())) {
        toLayer = std::make_unique<TLGeometryProject>();
        toLayer->SetPrj(mapReference.get(), layerReference.get(), nullptr);
    }
    for (const TLPoint& p : mPoints) {
        const int index = entity->point_Add();
        double px = p.x, py = p.y;
        if (toLayer) toLayer->ProjXY(px, py);
        entity->point_SetXY(index, px, py);
    }
    package.CutterLayer()->StandEbField(entity);
    std::vector<TLRefPtr<TLGeoPolyline>> pieces;
    if (!package.Snip(pieces)) {
        deactivate();
        view->RefreshOverlay();
        return true;
    }
    mEditor->StartOperation(TLString("interrupt"));
    TLRect rect;
    for (const TLRefPtr<TLGeoPolyline>& piece : pieces) {
        rect.Union(piece->GetBound());
        if (!TLAttributeCopy::AddPiece(layer, id, piece)) return true;
    }
    layer->layer_edit_buffer()->DeleteFeature(id, false, false);
    mEditor->CommitOperation(true);
    deactivate();
    if (view->GetDisplay()) view->GetDisplay()->ToMapRect(layerReference.get(), rect);
    view->RefreshMap(false, rect);
    return true;
}

bool TLToolInterrupt::processChildCmd(TLString text) {
    if (!mBuddy) return false;
    if (mSelecting && mStep == 0) {
        if (text.ToUpper().startsWith("Y")) {
            mMethod = 1;
            mBuddy->AppendMessage(toolText(kSelectFirst));
            mStep = 1;
        } else {
            mBuddy->SetPrompt(TLString());
            deactivate();
        }
        return true;
    }
    if (!CanEdit(false)) {
        refuseSelection();
        return true;
    }
    if (mStep != 0) {
        mSelecting = false;
        const char* prompt = mMethod == 1      ? kOnePointPrompt
                             : mMethod == 3    ? kDrawPrompt
                             : mPoints.empty() ? kFirstPointPrompt
                                               : kAnotherPointPrompt;
        mBuddy->SetPrompt(toolText(prompt));
        return true;
    }
    const int method = text.ToInt();
    if (method < 1 || method > 3) {
        mMethod = 1;
        mBuddy->SetPrompt(toolText(kMenuPrompt));
        return true;
    }
    const char* prompts[] = {kOnePointPrompt, kFirstPointPrompt, kDrawPrompt};
    mMethod = method;
    mSelecting = false;
    mBuddy->SetPrompt(toolText(prompts[method - 1]));
    mStep = 1;
    return true;
}

void TLToolInterrupt::SplitLineByPoint(TLGeoPolyline* line, const TLPoint& point, const int& index,
                                       const double&,
                                       std::vector<TLRefPtr<TLGeoPolyline>>& pieces) {
    TLRefPtr<TLGeoPolyline> front(new TLGeoPolyline);
    TLRefPtr<TLGeoPolyline> back(new TLGeoPolyline);
    int base = 0;
    for (int p = 0; p < line->GetPathCount(); ++p) {
        double* xy = nullptr;
        int count = 0;
        TLRefPtr<TLGeoPath> path = line->GetPath(p);
        if (!path || !path->GetRawPoints(&xy, count)) continue;
        if (index >= base + count) {
            front->CreatePath(xy, count);
        } else if (index < base) {
            back->CreatePath(xy, count);
        } else {
            const int start = index - base;
            front->BeginPath();
            front->AddPoints(xy, start + 1);
            front->AddXY(point.x, point.y);
            front->EndEntity();
            back->BeginPath();
            back->AddXY(point.x, point.y);
            if (count - start - 1 > 0) back->AddPoints(xy + 2 * (start + 1), count - start - 1);
        }
        base += count;
    }
    back->EndEntity();
    pieces.push_back(front);
    pieces.push_back(back);
}

void TLToolInterrupt::SplitLineByPoint(TLGeometry* line, const TLPoint& first,
                                       const TLPoint& second, const double& tolerance,
                                       std::vector<TLRefPtr<TLGeoPolyline>>& pieces) {
    auto* polyline = dynamic_cast<TLGeoPolyline*>(line);
    if (!polyline) return;
    int part = -1, firstSegment = -1, secondSegment = -1;
    if (!line->HitTest(first, tolerance, GeoHitBoundary, part, firstSegment) ||
        !line->HitTest(second, tolerance, GeoHitBoundary, part, secondSegment))
        return;
    const int low = std::min(firstSegment, secondSegment);
    const int high = std::max(firstSegment, secondSegment);
    bool firstComesFirst = firstSegment < secondSegment;
    if (firstSegment == secondSegment) {
        const TLPoint start = polyline->Parts().Point(low);
        firstComesFirst = TLMathUtil::Distance(first, start) < TLMathUtil::Distance(second, start);
    }
    const TLPoint& a = firstComesFirst ? first : second;
    const TLPoint& b = firstComesFirst ? second : first;
    std::vector<TLRefPtr<TLGeoPolyline>> halves;
    SplitLineByPoint(polyline, a, low, tolerance, halves);
    if (halves.size() != 2) return;
    pieces.push_back(halves[0]);
    SplitLineByPoint(halves[1].get(), b, high - low, tolerance, pieces);
}

}  // namespace TMObjects
