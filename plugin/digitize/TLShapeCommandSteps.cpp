#include "digitize/TLShapeCommandSteps.h"

#include "TLToolText.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLTool.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

// ---- layer ----

bool TLShapeCommandSteps::FindEditLayer(TLToolBuddy* buddy, TLEditor*& editor,
                                        TLFeatureLayer*& layer) {
    editor = buddy->GetMapView()->GetMap()->editor();
    layer = editor ? dynamic_cast<TLFeatureLayer*>(editor->edit_layer()) : nullptr;
    return layer != nullptr;
}

bool TLShapeCommandSteps::CanEdit(const TLEditor* editor, const TLFeatureLayer* layer) {
    return editor && layer && layer->IsValid() && layer->IsEditable();
}

bool TLShapeCommandSteps::IsPolygonLayer(const TLFeatureLayer* layer) {
    return layer->GetLayerType() == TLLayer::PolygonLayer;
}

// ---- life cycle ----

TLRubberBand* TLShapeCommandSteps::MakeBand(TLMapView* view) {
    auto* band = new TLRubberBand(view, TLRubberBand::PolygonBand);
    band->SetPenStyle(TLPen::SolidLine, 1.0, TLColor(255, 0, 0));
    band->SetBrushStyle(TLBrush::SolidPattern, TLColor(255, 0, 0, 50));
    return band;
}

void TLShapeCommandSteps::DropBand(TLRubberBand*& band) {
    if (!band) return;
    band->Clear();
    band->Update();
    delete band;
    band = nullptr;
}

TLSnapTool* TLShapeCommandSteps::MakeSnapTool(TLToolBuddy* buddy) {
    auto* snapTool = new TLSnapTool;
    snapTool->Init(buddy);
    return snapTool;
}

void TLShapeCommandSteps::DropSnapTool(TLSnapTool*& snapTool) {
    delete snapTool;
    snapTool = nullptr;
}

void TLShapeCommandSteps::Announce(TLToolBuddy* buddy, const TLFeatureLayer* layer,
                                   const char* layerLine, const char* commandLine,
                                   const char* firstPrompt) {
    if (IsPolygonLayer(layer)) {
        Message(buddy, layerLine);
        Message(buddy, commandLine);
        Prompt(buddy, firstPrompt);
    } else {
        Prompt(buddy, "Command:");
        Message(buddy,
                "The current layer is not polygon layer. Please select the polygon layer editor!");
    }
}

void TLShapeCommandSteps::Leave(TLTool* tool, TLToolBuddy*& buddy) {
    if (!buddy) return;
    buddy->SetPrompt("");
    buddy->UnregisterTool(tool, false);
    buddy = nullptr;
}

// ---- texts ----

void TLShapeCommandSteps::Prompt(TLToolBuddy* buddy, const char* text) {
    buddy->SetPrompt(toolText(text));
}

void TLShapeCommandSteps::Message(TLToolBuddy* buddy, const char* text) {
    buddy->AppendMessage(toolText(text));
}

void TLShapeCommandSteps::RefusePress(TLToolBuddy* buddy) {
    Message(buddy,
            "The current layer is not a Polygon layer. Please select the Polygon layer editor!");
    Prompt(buddy, "Layer error");
}

void TLShapeCommandSteps::RefuseTypedLine(TLToolBuddy* buddy) {
    Message(buddy, "The current layer is not a line layer. Please select the line layer editor!");
    Prompt(buddy, "Layer error");
}

// ---- pointer ----

TLPoint TLShapeCommandSteps::MovePoint(TLTool& tool, TLToolBuddy* buddy, TLSnapTool*& snapTool,
                                       int x, int y) {
    bool snapped = false;
    return MovePoint(tool, buddy, snapTool, x, y, snapped);
}

TLPoint TLShapeCommandSteps::MovePoint(TLTool& tool, TLToolBuddy* buddy, TLSnapTool*& snapTool,
                                       int x, int y, bool& snapped) {
    TLPoint point = tool.ToMapCoordinates(TLPoint(x, y), nullptr);
    if (!snapTool) snapTool = MakeSnapTool(buddy);
    snapped = false;
    if (snapTool->CanSnap()) {
        snapTool->Snap(point.x, point.y, nullptr);
        snapped = snapTool->GetSnapXY(point.x, point.y);
    }
    return point;
}

void TLShapeCommandSteps::DrawSnapMarker(TLToolBuddy* buddy, TLSnapTool* snapTool) {
    if (!snapTool || !snapTool->CanSnap()) return;
    snapTool->Draw(buddy->GetMapView()->GetDisplayTransform(), TLSnapEnvironment::Instance());
}

TLPoint TLShapeCommandSteps::PressPoint(TLTool& tool, TLSnapTool* snapTool, int x, int y) {
    TLPoint point = tool.ToMapCoordinates(TLPoint(x, y), nullptr);
    if (snapTool && snapTool->CanSnap()) snapTool->GetSnapXY(point.x, point.y);
    return point;
}

void TLShapeCommandSteps::CacheDrawnShape(TLSnapTool* snapTool, TLRubberBand* band) {
    if (!snapTool || !band || !snapTool->CanSnap()) return;
    if (band->GetCount() == 1) {
        const TLPoint only = band->GetPoint(0, 0);
        TLRefPtr<TLGeoPoint> point(new TLGeoPoint);
        point->PutCoords(only.x, only.y);
        snapTool->CacheShapes(point.get());
    } else if (band->GetCount() > 1) {
        TLRefPtr<TLGeometry> shape = band->AsGeometry();
        if (shape) snapTool->CacheShapes(shape.get());
    }
}

// ---- band ----

void TLShapeCommandSteps::ShowRing(TLRubberBand* band, const std::vector<TLPoint>& ring) {
    band->Reset(TLRubberBand::PolygonBand);
    for (const TLPoint& p : ring) AddToBand(band, p);
}

void TLShapeCommandSteps::ShowSegment(TLRubberBand* band, const TLPoint& a, const TLPoint& b) {
    band->Reset(TLRubberBand::LineBand);
    AddToBand(band, a);
    AddToBand(band, b);
}

void TLShapeCommandSteps::AddToBand(TLRubberBand* band, const TLPoint& p) {
    // Index 0 opens the first part on an empty band and appends to it afterwards.
    band->AddPoint(p, 0);
}

// ---- commit ----

void TLShapeCommandSteps::AddBandFeature(TLToolBuddy* buddy, TLEditor* editor,
                                         TLFeatureLayer* layer, TLRubberBand* band, TLRect& rect) {
    WriteBandFeature(buddy, editor, layer, band, rect);
    layer->ClearSelect(false);
}

void TLShapeCommandSteps::WriteBandFeature(TLToolBuddy* buddy, TLEditor* editor,
                                           TLFeatureLayer* layer, TLRubberBand* band,
                                           TLRect& rect) {
    TLLayerEditBuffer* buffer = layer->layer_edit_buffer();
    TLRefPtr<TLCoordinateSystem> reference = layer->GetSpatialReference();
    editor->StartOperation("add feature");
    TLRefPtr<TLGeometry> geometry = band->AsGeometry();
    if (geometry) {
        // The bound is taken before the projection: the view refreshes in map coordinates.
        rect.Union(geometry->GetBound());
        buddy->GetMapView()->GetDisplay()->ToGeometry(reference.get(), geometry.get());
        TLFeature feature;
        feature.SetGeometry(geometry);
        buffer->AddFeature(feature, true, true);
    }
    editor->CommitOperation(true);
}

void TLShapeCommandSteps::RefreshMap(TLToolBuddy* buddy, const TLRect& rect) {
    buddy->GetMapView()->RefreshMap(false, rect);
}

bool TLShapeCommandSteps::DiscardOnDoubleClick(TLToolBuddy* buddy, TLEditor* editor,
                                               TLFeatureLayer* layer, std::vector<TLPoint>& points,
                                               TLRubberBand* band) {
    if (!buddy || !CanEdit(editor, layer)) return false;
    if (layer->GetLayerType() == TLLayer::PointLayer) return false;
    points.clear();
    if (band) {
        band->Reset(TLRubberBand::PolygonBand);
        // Repainted at once, so that the dropped shape does not linger until the next move.
        band->Update();
    }
    return true;
}

}  // namespace TMObjects
