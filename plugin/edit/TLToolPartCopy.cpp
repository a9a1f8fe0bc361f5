#include "edit/TLToolPartCopy.h"

#include <QWidget>
#include <algorithm>

#include "TLToolText.h"
#include "edit/TLClickQuery.h"
#include "edit/TLPartEdit.h"
#include "edit/TLVertexHit.h"
#include "edit/TMSelectlayerDlg.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

const char* const kFirstPrompt = "Please select two points to partially copy:";

}  // namespace

TLToolPartCopy::TLToolPartCopy() = default;

TLToolPartCopy::TLToolPartCopy(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolPartCopy::~TLToolPartCopy() = default;

void TLToolPartCopy::reset() {
    mStep = 0;
    mLayer = nullptr;
    mFeatureId = -1;
    mVertexIndex = -1;
    mGeometry = nullptr;
    mCopyToLayer = nullptr;
}

void TLToolPartCopy::activate() {
    mActive = true;
    reset();
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view || !view->GetMap()) return;
    mBuddy->RegisterTool(TLString("Part Copy"), this, true);
    mBuddy->SetPrompt(toolText(kFirstPrompt));
}

void TLToolPartCopy::deactivate() {
    reset();
    if (mBuddy) {
        mBuddy->SetPrompt(TLString());
        mBuddy->UnregisterTool(this, false);
    }
    TLTool::deactivate();
}

void TLToolPartCopy::setParam(TLString key, TLString value) {
    TLTool::setParam(key, value);
    if (key.CompareNoCase("layerID") == 0) setCopytoLayerid(value.ToInt());
}

void TLToolPartCopy::setCopytoLayerid(int layerId) {
    mCopyToLayer = nullptr;
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view || !view->GetMap()) return;
    for (const TLRefPtr<TLLayer>& layer : view->GetMap()->GetLayers(true))
        if (layer->GetLayerId() == layerId)
            mCopyToLayer = dynamic_cast<TLFeatureLayer*>(layer.get());
}

void TLToolPartCopy::getbudyLayernames(TLLayer::LayerType type, std::vector<TLString>& names,
                                       std::vector<int>& ids) {
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view || !view->GetMap()) return;
    for (const TLRefPtr<TLLayer>& layer : view->GetMap()->GetLayers(true)) {
        if (type != TLLayer::UnknownLayer && layer->GetLayerType() != type) continue;
        names.push_back(layer->GetLayerName());
        ids.push_back(layer->GetLayerId());
    }
}

bool TLToolPartCopy::processChildCmd(TLString text) {
    if (!mBuddy) return false;
    if (text == TLString("e") || text == TLString("E") || mStep == 0) {
        reset();
        mBuddy->SetPrompt(toolText(kFirstPrompt));
    } else {
        mBuddy->SetPrompt(toolText("Please select another point:"));
    }
    return true;
}

bool TLToolPartCopy::OnMouseDown(TLMouseButton button, int x, int y) {
    if (button != TLLeftButton || !mBuddy) return false;
    TLMapView* view = mBuddy->GetMapView();
    if (!view || !view->GetMap() || !view->GetDisplay() || !view->GetDisplayTransform())
        return false;
    const TLPoint click = TLClickQuery::ClickPoint(view, x, y);
    const double tolerance = TLClickQuery::Tolerance(view);
    if (mStep == 0)
        pickFirst(view, click, tolerance);
    else
        pickSecond(view, click, tolerance);
    return true;
}

void TLToolPartCopy::pickFirst(TLMapView* view, const TLPoint& click, double tolerance) {
    const TLPartEdit::Pick pick = TLPartEdit::PickFeature(view, click, tolerance, true, false);
    if (pick.layer) {
        mLayer = pick.layer;
        mFeatureId = pick.id;
        mVertexIndex = pick.index;
        mGeometry = pick.geometry;
        mStep = 1;
    }
    processChildCmd(TLString());
    view->Refresh(nullptr, TLMapCache::SelectionCache, TLRect());
}

void TLToolPartCopy::pickSecond(TLMapView* view, const TLPoint& click, double tolerance) {
    double vx = 0.0, vy = 0.0;
    const int index = hitVertex(mGeometry.get(), click.x, click.y, tolerance, vx, vy);
    if (index < 0) {
        mBuddy->ShowMessage(toolText("Please select the point on the selected entity!"));
        processChildCmd(TLString());
        return;
    }
    mCopyToLayer = nullptr;
    {
        TMSelectlayerDlg dialog(QWidget::find(WId(mBuddy->MainWindowId())));
        dialog.setTool(this);
        dialog.setLayerType(TLLayer::LineLayer);
        dialog.exec();
    }
    // A layer that went while the dialog was up is no target.
    if (TLPartEdit::LiveLayer(view, mCopyToLayer) &&
        mCopyToLayer->GetLayerType() == TLLayer::LineLayer)
        copy(view, mVertexIndex, index);
    reset();
    processChildCmd(TLString());
}

void TLToolPartCopy::copy(TLMapView* view, int first, int second) {
    const int a = std::min(first, second);
    const int b = std::max(first, second);
    TLRect rect = mGeometry->GetBound();
    double* xy = nullptr;
    int count = 0;
    if (!mGeometry->GetRawPoints(&xy, count) || !xy) return;

    TLRefPtr<TLGeoPolyline> stretch(new TLGeoPolyline());
    for (const TLPartEdit::Part& part : TLPartEdit::Parts(mGeometry.get())) {
        bool opened = false;
        for (int i = std::max(part.first, a); i <= std::min(part.last, b) && i < count; ++i) {
            if (!opened) {
                stretch->BeginPath();
                stretch->BeginSegment();
                opened = true;
            }
            stretch->AddXY(xy[2 * i], xy[2 * i + 1]);
        }
    }
    stretch->EndEntity();
    if (!TLPartEdit::ToLayer(view, mCopyToLayer, stretch.get())) return;

    TLFeature feature;
    feature.SetGeometry(stretch);
    TLEditor* editor = view->GetMap()->editor();
    editor->set_edit_layer(mCopyToLayer);
    editor->StartOperation(toolText("part copy"));
    mCopyToLayer->layer_edit_buffer()->AddFeature(feature, true, true);
    editor->CommitOperation(true);
    view->RefreshMap(false, rect);
}

}  // namespace TMObjects
