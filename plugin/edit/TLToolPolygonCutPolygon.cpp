#include "edit/TLToolPolygonCutPolygon.h"

#include <algorithm>
#include <set>

#include "TLToolText.h"
#include "data/CHelper.h"
#include "data/CdataManager.h"
#include "digitize/TLShapeCommandSteps.h"
#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLSelection.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsde/TLQueryFilter.h"

namespace TMObjects {

namespace {

const int kShiftModifier = 0x2000000;
const int kCutByPolygons = 13;

// The three prompts, translated once when the plugin is loaded.
const TLString promptCutPolygon =
    toolText("Please select cut polygon/Press enter after selection:");
const TLString promptMethod = toolText(
    "1.Cut all intersecting features in the current layer 2.Cuts the intersection "
    "features specified in the current layer:");
const TLString promptTargets =
    toolText("Please select polygons to be cutted/Press enter after selection:");

TLQueryFilter meeting(TLRefPtr<TLGeometry> geometry) {
    TLQueryFilter filter;
    filter.SetFilterGeometry(geometry);
    filter.SetSpatialRel(TLSpatialRelIntersects);
    return filter;
}

// The feature's polygon as an entity of the package, standing for the feature by its id.
void addEntity(CvectorPackageData* package, TLGeometry* geometry, int id) {
    CvectorEntityData* entity = package->entity_GetAt(package->entity_Add(1));
    CHelper::TmPolygonToChunkData(geometry, entity, false);
    entity->entity_SetHandle(id);
}

// A new feature's values: the target's, but for geometry and system fields and null values.
void copyAttributes(const TLFeature& target, TLFeature& feature) {
    const TLFields* fields = target.GetFields();
    for (int i = 0; fields && i < fields->GetFieldCount(); ++i) {
        const TLField* field = fields->GetField(i);
        if (field->IsGeoField() || field->IsSystemField()) continue;
        const TLVariant value = target.GetValue(field->GetName());
        if (!value.IsNull()) feature.SetValue(field->GetName(), value);
    }
}

}  // namespace

int TLToolPolygonCutPolygon::pickCycleIndex = 0;

TLToolPolygonCutPolygon::TLToolPolygonCutPolygon() = default;

TLToolPolygonCutPolygon::TLToolPolygonCutPolygon(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolPolygonCutPolygon::~TLToolPolygonCutPolygon() {
    delete band;
}

bool TLToolPolygonCutPolygon::IsCmd() {
    return false;
}

// ---- life cycle ----

void TLToolPolygonCutPolygon::activate() {
    TLTool::activate();
    if (!mBuddy || !mBuddy->GetMapView()) return;
    if (!band) band = TLShapeCommandSteps::MakeBand(mBuddy->GetMapView());
    TLEditor* editor = mBuddy->GetMapView()->GetMap()->editor();
    layer = editor ? dynamic_cast<TLFeatureLayer*>(editor->edit_layer()) : nullptr;
    if (!layer) {
        deactivate();
        return;
    }
    mBuddy->RegisterTool("Polygon cut polygon", this, true);
    if (layer->GetLayerType() == TLLayer::PolygonLayer) {
        mBuddy->SetPrompt(promptCutPolygon);
    } else {
        mBuddy->AppendMessage(toolText(
            "The current layer is not a Polygon layer. Please select the Polygon layer editor!"));
        mBuddy->SetPrompt(toolText("Command:"));
    }
    stage = 0;
}

void TLToolPolygonCutPolygon::deactivate() {
    resetInfo();
    TLShapeCommandSteps::DropBand(band);
    if (mBuddy) mBuddy->SetPrompt(toolText("Command:"));
    layer = nullptr;
    dragButton = 0;
    TLTool::deactivate();
}

void TLToolPolygonCutPolygon::resetInfo() {
    stage = 0;
    method = 0;
    cutFeature = nullptr;
    if (mBuddy) mBuddy->SetPrompt(promptCutPolygon);
}

// ---- pointer ----

bool TLToolPolygonCutPolygon::OnMouseDown(TLMouseButton button, int x, int y) {
    if (button != TLLeftButton || stage == 1) return true;
    dragButton = button;
    anchor = ToMapCoordinates(TLPoint(x, y), nullptr);
    return true;
}

bool TLToolPolygonCutPolygon::OnMouseMove(TLMouseButton, int x, int y) {
    if (dragButton) drawBox(ToMapCoordinates(TLPoint(x, y), nullptr));
    return true;
}

void TLToolPolygonCutPolygon::drawBox(const TLPoint& corner) {
    if (!band) return;
    const double x0 = std::min(anchor.x, corner.x), x1 = std::max(anchor.x, corner.x);
    const double y0 = std::min(anchor.y, corner.y), y1 = std::max(anchor.y, corner.y);
    band->Reset(TLRubberBand::PolygonBand);
    for (const TLPoint& p :
         {TLPoint(x0, y0), TLPoint(x0, y1), TLPoint(x1, y1), TLPoint(x1, y0), TLPoint(x0, y0)})
        band->AddPoint(p, 0);
    band->Update();
}

bool TLToolPolygonCutPolygon::OnMouseUp(TLMouseButton, int x, int y) {
    if (!dragButton) return true;
    dragButton = 0;
    if (band) {
        band->Reset(TLRubberBand::PolygonBand);
        band->Update();
    }
    if (!layer || !mBuddy || !mBuddy->GetMapView()) return true;
    selectInBox(ToMapCoordinates(TLPoint(x, y), nullptr));
    if (stage == 0) keepOneSelected();
    mBuddy->GetMapView()->Refresh(layer, TLMapCache::SelectionCache, TLRect());
    return true;
}

void TLToolPolygonCutPolygon::selectInBox(const TLPoint& corner) {
    const double t = ToMapDistance(TLSelectionEnvironment::Instance()->GetTolerance(), nullptr);
    double x0 = std::min(anchor.x, corner.x), x1 = std::max(anchor.x, corner.x);
    double y0 = std::min(anchor.y, corner.y), y1 = std::max(anchor.y, corner.y);
    // A click is a box of the pick tolerance around the press.
    if (x1 - x0 < 2.220446049250313e-16) {
        x0 = anchor.x - t / 2;
        x1 = anchor.x + t / 2;
    }
    if (y1 - y0 < 2.220446049250313e-16) {
        y0 = anchor.y - t / 2;
        y1 = anchor.y + t / 2;
    }
    TLRefPtr<TLGeometry> envelope(new TLGeoEnvelope(x0, y0, x1, y1));
    mBuddy->GetMapView()->GetDisplay()->ToGeometry(layer->GetSpatialReference().get(),
                                                   envelope.get());
    layer->SelectFeatures(meeting(envelope), 0, 0);
}

void TLToolPolygonCutPolygon::keepOneSelected() {
    const std::vector<int> ids = layer->GetSelectedIds();
    if (ids.empty()) return;
    const int count = int(ids.size());
    const int index =
        mBuddy->KeyboardModifiers() == kShiftModifier ? (pickCycleIndex + 1) % count : 0;
    pickCycleIndex = index;
    layer->ClearSelect(true);
    TLRefPtr<TLFeature> feature = layer->GetFeature(ids[std::size_t(index)]);
    if (feature) layer->AddSelect(feature.get(), false);
}

// ---- typed lines ----

bool TLToolPolygonCutPolygon::processChildCmd(TLString text) {
    if (!mBuddy) return false;
    if (text.CompareNoCase("E") == 0) {
        resetInfo();
        return true;
    }
    if (stage == 0) {
        if (operationPolygonValid()) {
            mBuddy->SetPrompt(promptMethod);
            stage = 1;
        } else {
            mBuddy->SetPrompt(promptCutPolygon);
        }
    } else if (stage == 1) {
        if (text == TLString("1")) {
            method = 1;
            if (execCutOperation1()) resetInfo();
        } else if (text == TLString("2")) {
            method = 2;
            stage = 2;
            if (layer) layer->ClearSelect(false);
            mBuddy->SetPrompt(promptTargets);
        } else {
            mBuddy->SetPrompt(promptMethod);
        }
    } else if (stage == 2) {
        if (specifiedPolygonValid() && execCutOperation2(layer->GetSelectedIds())) resetInfo();
    }
    return true;
}

bool TLToolPolygonCutPolygon::operationPolygonValid() {
    const std::vector<int> ids = layer ? layer->GetSelectedIds() : std::vector<int>();
    if (ids.size() == 1) {
        cutFeature = layer->GetFeature(ids.front());
        return true;
    }
    mBuddy->AppendMessage(toolText("Please select 1 feature"));
    return false;
}

bool TLToolPolygonCutPolygon::specifiedPolygonValid() {
    const std::vector<int> ids = layer ? layer->GetSelectedIds() : std::vector<int>();
    // A polygon cannot cut itself alone.
    if (ids.empty() || (ids.size() == 1 && cutFeature && ids.front() == cutFeature->GetId())) {
        mBuddy->AppendMessage(toolText("Please select features to be cutted"));
        return false;
    }
    return true;
}

// ---- the cut ----

bool TLToolPolygonCutPolygon::execCutOperation1() {
    if (!cutFeature || !layer) return false;
    std::vector<int> ids;
    TLRefPtr<TLFeatureCursor> cursor = layer->Search(meeting(cutFeature->GetGeometry()));
    while (TLRefPtr<TLFeature> feature = cursor ? cursor->NextFeature() : nullptr)
        ids.push_back(feature->GetId());
    if (ids.empty()) return false;
    return execCutOperation2(ids);
}

bool TLToolPolygonCutPolygon::execCutOperation2(const std::vector<int>& ids) {
    if (!cutFeature || !layer) return false;
    const std::set<int> wanted(ids.begin(), ids.end());
    const int cutId = cutFeature->GetId();
    TLRefPtr<TLGeometry> cutGeometry = cutFeature->GetGeometry();
    CdataManager manager;
    const int first = manager.package_Add();

    TLRefPtr<TLFeatureCursor> cursor = layer->Search(meeting(cutGeometry));
    if (!cursor) return false;
    std::vector<TLRefPtr<TLFeature>> targets;
    while (TLRefPtr<TLFeature> feature = cursor->NextFeature())
        if (wanted.count(feature->GetId())) targets.push_back(feature);

    const int second = manager.package_Add();
    addEntity(manager.package_GetAt(second), cutGeometry.get(), cutId);

    TLLayerEditBuffer* buffer = layer->layer_edit_buffer();
    TLEditor* editor = mBuddy->GetMapView()->GetMap()->editor();
    TLRect rect;
    bool started = false;
    for (const TLRefPtr<TLFeature>& target : targets) {
        TLRefPtr<TLGeometry> geometry = target->GetGeometry();
        if (!geometry) continue;
        CvectorPackageData* sources = manager.package_GetAt(first);
        sources->GetEntities().removeAll();
        rect.Union(geometry->GetBound());
        addEntity(sources, geometry.get(), target->GetId());
        manager.twoBoolOperate(first, second, kCutByPolygons, 0, 111);
        CvectorPackageData* result = manager.package_GetAt(manager.package_GetUpperBound());
        std::set<int> replaced;
        if (result->entity_GetSize() > 0 && !started) {
            editor->StartOperation("cut feature");
            started = true;
        }
        for (int i = 0; i < result->entity_GetSize(); ++i) {
            const CvectorEntityData* piece = result->entity_GetAt(i);
            if (piece->GetSourceIds().GetSize() != 1) continue;
            const int s = piece->GetSourceIds().GetAt(0);
            const CvectorEntityData* source = s >= 1 ? sources->entity_GetAt(s - 1) : nullptr;
            if (!source) continue;
            TLRefPtr<TLGeometry> polygon =
                CHelper::ChunkDataToTmGeometry(piece, TLGeometry::GeoPolygon, false, false, false);
            if (!replaced.count(s)) {
                buffer->changeGeometry(source->entity_GetHandle(), polygon, true);
                replaced.insert(s);
            } else {
                TLFeature feature(1);
                feature.SetGeometry(polygon);
                copyAttributes(*target, feature);
                buffer->AddFeature(feature, true, true);
            }
        }
    }
    if (started) {
        editor->CommitOperation(true);
        mBuddy->GetMapView()->GetDisplay()->ToMapRect(layer->GetSpatialReference().get(), rect);
        mBuddy->GetMapView()->RefreshMap(false, rect);
    }
    return started;
}

}  // namespace TMObjects
