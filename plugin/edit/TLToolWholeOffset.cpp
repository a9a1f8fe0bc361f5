#include "edit/TLToolWholeOffset.h"

#include <vector>

#include "TLToolText.h"
#include "edit/TLPartEdit.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLDrawCommonTool.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLSelection.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

// The valid feature layer with a selection, or null.
TLFeatureLayer* selectedLayer(const TLRefPtr<TLLayer>& layer) {
    auto* features = dynamic_cast<TLFeatureLayer*>(layer.get());
    if (!features || !features->IsValid() || !features->HasSelectedFeatures()) return nullptr;
    return features;
}

void shift(TLGeometry* geometry, double dx, double dy) {
    double* raw = nullptr;
    int count = 0;
    if (!geometry->GetRawPoints(&raw, count) || !raw) return;
    std::vector<double> xy(raw, raw + 2 * std::size_t(count));
    for (int i = 0; i < count; ++i) {
        xy[2 * std::size_t(i)] += dx;
        xy[2 * std::size_t(i) + 1] += dy;
    }
    geometry->UpdateRawPoints(xy.data());
    if (auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry))
        polygon->EndEntity();
    else if (auto* line = dynamic_cast<TLGeoPolyline*>(geometry))
        line->EndEntity();
}

}  // namespace

TLToolWholeOffset::TLToolWholeOffset() = default;

TLToolWholeOffset::TLToolWholeOffset(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolWholeOffset::~TLToolWholeOffset() = default;

void TLToolWholeOffset::activate() {
    mActive = true;
    mOffsetX = mOffsetY = 0.0;
    mStep = 0;
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view || !view->GetMap()) return;
    mBuddy->RegisterTool(TLString("Whole Offset"), this, true);
    for (const TLRefPtr<TLLayer>& layer : view->GetMap()->GetLayers(true)) {
        if (!selectedLayer(layer)) continue;
        mBuddy->SetPrompt(toolText("Please enter X offset distance:"));
        mStep = 1;
        return;
    }
    mBuddy->ShowMessage(toolText("Please select feature to offset!"));
    mBuddy->AppendMessage(toolText("Please select feature to offset"));
    mBuddy->SetPrompt(TLString());
}

void TLToolWholeOffset::deactivate() {
    mOffsetX = mOffsetY = 0.0;
    mStep = 0;
    if (mBuddy) {
        mBuddy->SetPrompt(TLString());
        mBuddy->UnregisterTool(this, false);
        mBuddy = nullptr;
    }
    TLTool::deactivate();
}

bool TLToolWholeOffset::processChildCmd(TLString text) {
    if (!mBuddy || mStep < 1) return false;
    if (TLDrawCommonTool::CheckStrIsDouble(text)) {
        const double value = text.ToDouble();
        if (mStep == 1) {
            mOffsetX = value;
            mStep = 2;
        } else if (mStep == 2) {
            mOffsetY = value;
            offsetSelection(mBuddy->GetMapView());
        }
    }
    if (mStep == 1)
        mBuddy->SetPrompt(toolText("Please enter X offset distance:"));
    else if (mStep == 2)
        mBuddy->SetPrompt(toolText("Please enter Y offset distance:"));
    else
        mBuddy->SetPrompt(TLString());
    return true;
}

// One step for every layer: the label goes in as it stands, untranslated. A 0,0 offset commits a
// step that changed nothing; the editor still tells its listeners of it.
void TLToolWholeOffset::offsetSelection(TLMapView* view) {
    TLEditor* editor = view && view->GetMap() ? view->GetMap()->editor() : nullptr;
    if (!editor) {
        mStep = 0;
        return;
    }
    editor->StartOperation(TLString("WholeOffset"));
    bool moved = false;
    TLRect rect;
    for (const TLRefPtr<TLLayer>& each : view->GetMap()->GetLayers(true)) {
        TLFeatureLayer* layer = selectedLayer(each);
        if (!layer) continue;
        moved = true;
        editor->set_edit_layer(layer);
        TLLayerEditBuffer* buffer = layer->layer_edit_buffer();
        TLRefPtr<TLFeatureSelectionSet> selection = layer->GetSelection();
        for (int i = 0; i < selection->GetCount(); ++i) {
            TLRefPtr<TLSelectFeature> feature = selection->GetFeature(i);
            TLRefPtr<TLGeometry> geometry = feature ? feature->GetGeometry() : nullptr;
            if (!geometry || !TLPartEdit::ToMap(view, layer, geometry.get())) continue;
            rect.Union(geometry->GetBound());
            shift(geometry.get(), mOffsetX, mOffsetY);
            rect.Union(geometry->GetBound());
            if (!TLPartEdit::ToLayer(view, layer, geometry.get())) continue;
            buffer->changeGeometry(feature->GetOID(), geometry, true);
        }
    }
    editor->CommitOperation(true);
    mOffsetX = mOffsetY = 0.0;
    if (moved) view->RefreshMap(false, rect);
    mStep = moved ? 1 : 0;
}

}  // namespace TMObjects
