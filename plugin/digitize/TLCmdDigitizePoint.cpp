#include "digitize/TLCmdDigitizePoint.h"

#include "TLToolText.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlmap/TLDrawCommonTool.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

const char* const kPrompt = "Specify point or input point coordinates:";
const char* const kCommandLine = "Command:Drawing Point";
const char* const kWrongLayer =
    "The current layer is not a point layer. Please select the point layer editor!";
const char* const kBadText = "Point coordinate or command input error, please re-enter!";

bool isPointLayer(TLFeatureLayer* layer) {
    const auto type = layer->GetLayerType();
    return type == TLLayer::PointLayer || type == TLLayer::MultiPointLayer;
}

}  // namespace

TLCmdDigitizePoint::TLCmdDigitizePoint() = default;

TLCmdDigitizePoint::TLCmdDigitizePoint(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizePoint::~TLCmdDigitizePoint() {
    delete snapTool;
}

void TLCmdDigitizePoint::Reset() {
    state = 0;
    if (snapTool) snapTool->Reset();
}

void TLCmdDigitizePoint::activate() {
    mActive = true;
    Reset();
    if (!mBuddy || !mBuddy->GetMapView()) return;

    editor = mBuddy->GetMapView()->GetMap()->editor();
    layer = dynamic_cast<TLFeatureLayer*>(editor->edit_layer());
    if (!layer) {
        ready = 0;
        deactivate();
        ready = 1;
        return;
    }

    delete snapTool;
    snapTool = new TLSnapTool;
    snapTool->Init(mBuddy);
    mBuddy->RegisterTool("DigitizePoint", this, true);

    if (isPointLayer(layer)) {
        mBuddy->AppendMessage(toolText("The current input layer is:*******point*******"));
        mBuddy->AppendMessage(toolText(kCommandLine));
        mBuddy->SetPrompt(toolText(kPrompt));
    } else {
        mBuddy->SetPrompt(toolText("Command:"));
        mBuddy->AppendMessage(toolText(kWrongLayer));
    }
}

void TLCmdDigitizePoint::deactivate() {
    Reset();
    if (mBuddy) {
        mBuddy->SetPrompt("");
        mBuddy->UnregisterTool(this, false);
        mBuddy = nullptr;
    }
    delete snapTool;
    snapTool = nullptr;
    TLTool::deactivate();
}

bool TLCmdDigitizePoint::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mBuddy) return true;
    TLMapView* view = mBuddy->GetMapView();
    if (!view) return true;
    TLDisplayTransform* transform = view->GetDisplayTransform();
    TLPoint point = ToMapCoordinates(TLPoint(x, y), nullptr);
    if (!snapTool) {
        snapTool = new TLSnapTool;
        snapTool->Init(mBuddy);
    }
    if (snapTool->CanSnap()) {
        snapTool->Snap(point.x, point.y, nullptr);
        snapTool->GetSnapXY(point.x, point.y);
        snapTool->Draw(transform, TLSnapEnvironment::Instance());
    }
    return true;
}

bool TLCmdDigitizePoint::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy) return false;
    if (!editor) return false;
    layer = dynamic_cast<TLFeatureLayer*>(editor->edit_layer());
    if (!layer) return true;
    if (!layer->IsValid() || !layer->IsEditable()) return false;
    if (!isPointLayer(layer)) {
        mBuddy->SetPrompt(toolText("Command:"));
        mBuddy->AppendMessage(toolText(kWrongLayer));
        return false;
    }
    if (button != TLLeftButton) return true;

    TLMapView* view = mBuddy->GetMapView();
    TLRefPtr<TLCoordinateSystem> reference = layer->GetSpatialReference();
    TLPoint point = ToMapCoordinates(TLPoint(x, y), nullptr);
    if (snapTool && snapTool->CanSnap()) snapTool->GetSnappedPoint(point);
    // The clicked point goes into the layer's system here and once more in EndEntity: a clicked
    // point on a layer in another system passes the conversion twice, a typed point once.
    view->GetDisplay()->ToPoint(reference.get(), point);

    points.push_back(point);
    TLRect rect;
    if (EndEntity(points[0], rect)) {
        points.clear();
        view->GetDisplay()->ToMapRect(reference.get(), rect);
        view->RefreshMap(false, rect);
    }
    Reset();
    mBuddy->SetPrompt(toolText(kPrompt));
    mBuddy->AppendMessage(toolText(kCommandLine));
    return true;
}

bool TLCmdDigitizePoint::OnMouseUp(TLMouseButton, int, int) {
    return true;
}

bool TLCmdDigitizePoint::OnDblClick(TLMouseButton, int, int) {
    return true;
}

bool TLCmdDigitizePoint::EndEntity(TLPoint& point, TLRect& rect) {
    TLLayerEditBuffer* buffer = layer->layer_edit_buffer();
    TLRefPtr<TLCoordinateSystem> reference = layer->GetSpatialReference();
    editor->StartOperation("add feature");

    TLRefPtr<TLGeoPoint> geoPoint(new TLGeoPoint);
    geoPoint->PutCoords(point.x, point.y);
    rect.Union(geoPoint->GetBound());
    mBuddy->GetMapView()->GetDisplay()->ToGeometry(reference.get(), geoPoint.get());

    TLFeature feature;
    feature.SetGeometry(geoPoint);
    buffer->AddFeature(feature, true, true);
    // Unlike the line and polygon commands, the selection of the layer is left as it is.
    editor->CommitOperation(true);
    return true;
}

bool TLCmdDigitizePoint::processChildCmd(TLString text) {
    if (!mBuddy) return false;
    if (!editor || !layer || !layer->IsValid() || !layer->IsEditable()) {
        mBuddy->AppendMessage(toolText(kWrongLayer));
        mBuddy->SetPrompt(toolText("Layer error"));
        return false;
    }
    if (text.isEmpty()) {
        mBuddy->AppendMessage(toolText(kBadText));
        mBuddy->SetPrompt(toolText(kPrompt));
        return false;
    }
    // The kind of layer is not looked at here: a typed point goes into any editable layer.
    if (state == 0) {
        double x = 0, y = 0;
        if (TLDrawCommonTool::ReadInputPoint(text, x, y)) {
            TLRefPtr<TLCoordinateSystem> reference = layer->GetSpatialReference();
            TLMapView* view = mBuddy->GetMapView();
            points.push_back(TLPoint(x, y));
            TLRect rect;
            if (EndEntity(points[0], rect)) {
                view->GetDisplay()->ToMapRect(reference.get(), rect);
                points.clear();
                view->RefreshMap(false, rect);
            }
            Reset();
            mBuddy->AppendMessage(toolText(kCommandLine));
        } else {
            mBuddy->AppendMessage(toolText(kBadText));
        }
        mBuddy->SetPrompt(toolText(kPrompt));
    }
    return true;
}

}  // namespace TMObjects
