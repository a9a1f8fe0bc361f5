#include "digitize/TLCmdDigitizeFreehandRectangle.h"

#include "digitize/TLShapeCommandSteps.h"
#include "digitize/TLShapeRings.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

using Steps = TLShapeCommandSteps;

const char* const kFirstPrompt = "Specify the first point:";
const char* const kFirstPromptAgain = "Please specify first point:";
const char* const kCommandLine = "Draw Arbitrary Rect";

}  // namespace

TLCmdDigitizeFreehandRectangle::TLCmdDigitizeFreehandRectangle() = default;

TLCmdDigitizeFreehandRectangle::TLCmdDigitizeFreehandRectangle(TLToolBuddy* buddy)
    : TLTool(buddy) {}

TLCmdDigitizeFreehandRectangle::~TLCmdDigitizeFreehandRectangle() {
    delete band;
    delete snapTool;
}

void TLCmdDigitizeFreehandRectangle::Reset() {
    points.clear();
    if (snapTool) snapTool->Reset();
}

// ---- life cycle ----

void TLCmdDigitizeFreehandRectangle::activate() {
    mActive = true;
    Reset();
    points.clear();
    Steps::DropBand(band);
    Steps::DropSnapTool(snapTool);
    if (!mBuddy || !mBuddy->GetMapView()) return;
    if (!Steps::FindEditLayer(mBuddy, editor, layer)) {
        deactivate();
        return;
    }
    band = Steps::MakeBand(mBuddy->GetMapView());
    snapTool = Steps::MakeSnapTool(mBuddy);
    mBuddy->RegisterTool("DigitizeFreehandRectangle", this, true);
    Steps::Announce(mBuddy, layer, "The current input layer is:*******polygon*******", kCommandLine,
                    kFirstPrompt);
}

void TLCmdDigitizeFreehandRectangle::deactivate() {
    Reset();
    points.clear();
    Steps::DropBand(band);
    Steps::DropSnapTool(snapTool);
    Steps::Leave(this, mBuddy);
    TLTool::deactivate();
}

// ---- pointer ----

bool TLCmdDigitizeFreehandRectangle::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy || !Steps::CanEdit(editor, layer)) return false;
    if (!Steps::IsPolygonLayer(layer)) {
        Steps::RefusePress(mBuddy);
        return false;
    }
    if (button != TLLeftButton) return true;

    const TLPoint point = Steps::PressPoint(*this, snapTool, x, y);
    if (points.empty()) {
        points.push_back(point);
        Steps::AddToBand(band, point);
        band->Update();
        Steps::Prompt(mBuddy, "Give up(U)/<Specify point>:");
    } else if (points.size() == 1) {
        points.push_back(point);
        secondPoint = point;
        // A preview left from an earlier rectangle must not be finished as this one: until a
        // move shows this rectangle, "E" has nothing to finish.
        previewRing.clear();
        Steps::Prompt(mBuddy, "Give up(U)/Finish(E)/<Specify point>:");
    } else {
        pressFarCorner(point);
    }
    Steps::CacheDrawnShape(snapTool, band);
    return true;
}

void TLCmdDigitizeFreehandRectangle::pressFarCorner(const TLPoint& corner) {
    // The list holds the rectangle of this press; the ring written is the one the last move
    // drew, which is the same one when the press comes where the pointer last moved.
    points = TLShapeRings::FreehandRectangle(points[0], secondPoint, corner);
    // Without a move since the second click the band still shows the first edge as a line,
    // which must not go into the polygon layer: the band shows this press's rectangle.
    if (previewRing.empty()) Steps::ShowRing(band, points);
    EndEntity();
    Reset();
    Steps::Message(mBuddy, kCommandLine);
    Steps::Prompt(mBuddy, kFirstPrompt);
}

bool TLCmdDigitizeFreehandRectangle::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mBuddy || !Steps::CanEdit(editor, layer) || !Steps::IsPolygonLayer(layer)) return false;
    const TLPoint point = Steps::MovePoint(*this, mBuddy, snapTool, x, y);
    if (band && points.size() == 1) {
        Steps::ShowSegment(band, points[0], point);
        band->Update();
    } else if (band && points.size() >= 2) {
        previewRing = TLShapeRings::FreehandRectangle(points[0], secondPoint, point);
        Steps::ShowRing(band, previewRing);
        band->Update();
    }
    Steps::DrawSnapMarker(mBuddy, snapTool);
    return true;
}

bool TLCmdDigitizeFreehandRectangle::OnDblClick(TLMouseButton, int, int) {
    return Steps::DiscardOnDoubleClick(mBuddy, editor, layer, points, band);
}

// ---- typed input ----

bool TLCmdDigitizeFreehandRectangle::processChildCmd(TLString text) {
    if (!mBuddy) return false;
    if (!Steps::CanEdit(editor, layer) || !Steps::IsPolygonLayer(layer)) {
        Steps::Message(
            mBuddy,
            "The current layer is not a polygon layer. Please select the polygon layer editor!");
        Steps::Prompt(mBuddy, "Layer error");
        return false;
    }
    if (text.isEmpty()) {
        Steps::Message(mBuddy, "Command input error, please re-enter!");
        Steps::Prompt(mBuddy, kFirstPromptAgain);
        return true;
    }
    // Points are clicked only; other lines than these keys are ignored.
    const bool giveUpKey = text.CompareNoCase("U") == 0;
    const bool finishKey = text.CompareNoCase("E") == 0;
    if (giveUpKey && (points.size() == 1 || points.size() == 2))
        giveUp();
    else if (finishKey && points.size() == 2)
        finishWithPreview();
    return true;
}

void TLCmdDigitizeFreehandRectangle::giveUp() {
    points.clear();
    band->Reset(TLRubberBand::PolygonBand);
    band->Update();
    Steps::Prompt(mBuddy, kFirstPromptAgain);
}

// The rectangle is the last one a move showed; without one there is nothing to finish.
void TLCmdDigitizeFreehandRectangle::finishWithPreview() {
    if (previewRing.empty()) {
        giveUp();
        return;
    }
    points = previewRing;
    EndEntity();
    Steps::Message(mBuddy, kCommandLine);
}

// ---- commit ----

bool TLCmdDigitizeFreehandRectangle::EndEntity() {
    if (!band || points.size() <= 2 || !editor || !editor->edit_layer() || !layer ||
        !Steps::IsPolygonLayer(layer))
        return false;
    TLRect rect;
    Steps::AddBandFeature(mBuddy, editor, layer, band, rect);
    points.clear();
    band->Reset(TLRubberBand::PolygonBand);
    Steps::RefreshMap(mBuddy, rect);
    return true;
}

}  // namespace TMObjects
