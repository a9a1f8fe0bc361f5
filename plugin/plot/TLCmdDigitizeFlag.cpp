#include "plot/TLCmdDigitizeFlag.h"

#include "digitize/TLShapeCommandSteps.h"
#include "plot/TLCmdArrowHelper.h"
#include "tlmap/TLDrawCommonTool.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

using Steps = TLShapeCommandSteps;

const char* const kTypeMenu =
    "Please enter the flag type [Pennant (1) / square flag (2) / float flag (3) / end (E)]:";
const char* const kPointPrompt = "Please enter a point [end (E)]:";
const char* const kNotPolygonLayer =
    "The current layer is not a polygon layer. Please select the polygon layer editor!";
const char* const kPointError = "Input point error!";
const char* const kDrawn = "Command:Drawing Flag";

enum FlagType { Pennant = 1, SquareFlag = 2, FloatFlag = 3 };

enum InputState { AwaitingType = 0, AwaitingFirstPoint = 1, AwaitingSecondPoint = 2 };

}  // namespace

TLCmdDigitizeFlag::TLCmdDigitizeFlag() = default;

TLCmdDigitizeFlag::TLCmdDigitizeFlag(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeFlag::~TLCmdDigitizeFlag() {
    delete rubberBand;
}

void TLCmdDigitizeFlag::Reset() {
    inputState = AwaitingType;
    flagType = Pennant;
    firstPoint = TLPoint(0, 0);
    points.clear();
}

// ---- life cycle ----

void TLCmdDigitizeFlag::activate() {
    mActive = true;
    Reset();
    points.clear();
    Steps::DropBand(rubberBand);
    if (!mBuddy || !mBuddy->GetMapView()) return;
    if (!Steps::FindEditLayer(mBuddy, editor, layer)) {
        deactivate();
        return;
    }
    rubberBand = Steps::MakeBand(mBuddy->GetMapView());
    mBuddy->RegisterTool("DigitizeFlag", this, true);
    if (Steps::IsPolygonLayer(layer)) {
        Steps::Message(mBuddy, "The current input layer is:*******polygon*******");
        Steps::Message(mBuddy, kDrawn);
        Steps::Prompt(mBuddy, kTypeMenu);
    } else {
        Steps::Prompt(mBuddy, "Command:");
        Steps::Message(mBuddy, kNotPolygonLayer);
    }
}

void TLCmdDigitizeFlag::deactivate() {
    Reset();
    points.clear();
    Steps::DropBand(rubberBand);
    Steps::Leave(this, mBuddy);
    TLTool::deactivate();
}

// ---- outline ----

void TLCmdDigitizeFlag::makeUpEntity(int type, const TLPoint& first, const TLPoint& second,
                                     std::vector<TLPoint>& outline) {
    TLCmdArrowHelper helper;
    switch (type) {
        case Pennant:
            helper.getTriangelFlagPoints(first, second, outline);
            break;
        case SquareFlag:
            helper.getStraightFlagPoints(first, second, outline);
            break;
        case FloatFlag:
            helper.getCurveFlagPoints(first, second, outline);
            break;
        default:
            break;
    }
}

// Points level with or plumb to the first one give no flag, and the band stays empty.
void TLCmdDigitizeFlag::showFlag(const TLPoint& second) {
    std::vector<TLPoint> outline;
    makeUpEntity(flagType, firstPoint, second, outline);
    rubberBand->Reset(TLRubberBand::PolygonBand);
    for (const TLPoint& p : outline) Steps::AddToBand(rubberBand, p);
    rubberBand->Update();
}

// ---- pointer ----

bool TLCmdDigitizeFlag::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy || !Steps::CanEdit(editor, layer)) return false;
    if (!Steps::IsPolygonLayer(layer)) {
        Steps::RefusePress(mBuddy);
        return false;
    }
    if (button != TLLeftButton || !rubberBand) return true;
    if (points.empty()) {
        firstPoint = ToMapCoordinates(TLPoint(x, y), nullptr);
        points.push_back(firstPoint);
        Steps::AddToBand(rubberBand, firstPoint);
        inputState = AwaitingSecondPoint;
        Steps::Prompt(mBuddy, kPointPrompt);
    } else {
        // The flag written is the one the last move drew; the press only confirms it.
        Steps::Prompt(mBuddy, kTypeMenu);
        EndEntity();
        Reset();
    }
    return true;
}

bool TLCmdDigitizeFlag::OnMouseUp(TLMouseButton, int, int) {
    return mBuddy && Steps::CanEdit(editor, layer);
}

bool TLCmdDigitizeFlag::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mBuddy) return false;
    // The edit layer may have changed since the last event.
    layer = editor ? dynamic_cast<TLFeatureLayer*>(editor->edit_layer()) : nullptr;
    if (!layer) return true;
    if (!Steps::CanEdit(editor, layer) || !Steps::IsPolygonLayer(layer)) return false;
    TLMapView* view = mBuddy->GetMapView();
    if (!view) return false;
    if (!rubberBand) rubberBand = Steps::MakeBand(view);
    if (points.size() == 1) showFlag(ToMapCoordinates(TLPoint(x, y), nullptr));
    return true;
}

bool TLCmdDigitizeFlag::OnDblClick(TLMouseButton, int, int) {
    if (!mBuddy || !Steps::CanEdit(editor, layer)) return false;
    if (layer->GetLayerType() == TLLayer::PointLayer) return false;
    EndEntity();
    Reset();
    return true;
}

// ---- typed input ----

bool TLCmdDigitizeFlag::processChildCmd(TLString text) {
    if (!mBuddy) return false;
    if (!Steps::CanEdit(editor, layer) || !Steps::IsPolygonLayer(layer) || !rubberBand) {
        Steps::Message(mBuddy, kNotPolygonLayer);
        Steps::Prompt(mBuddy, "Layer error");
        return false;
    }
    if (text.isEmpty()) {
        Steps::Prompt(mBuddy, kTypeMenu);
        return false;
    }
    if (text.CompareNoCase("E") == 0) {
        dropInput();
        return true;
    }
    switch (inputState) {
        case AwaitingType:
            takeType(text);
            break;
        case AwaitingFirstPoint:
            takeFirstPoint(text);
            break;
        default:
            takeSecondPoint(text);
            break;
    }
    return true;
}

// An end at any stage drops what was given and writes nothing.
void TLCmdDigitizeFlag::dropInput() {
    Steps::Prompt(mBuddy, kTypeMenu);
    Reset();
    rubberBand->Reset(TLRubberBand::PolygonBand);
    rubberBand->Update();
}

void TLCmdDigitizeFlag::takeType(const TLString& text) {
    const int type = text.ToInt();
    if (type >= Pennant && type <= FloatFlag) {
        flagType = type;
        inputState = AwaitingFirstPoint;
        Steps::Prompt(mBuddy, kPointPrompt);
    } else {
        Steps::Prompt(mBuddy, kTypeMenu);
        Steps::Message(mBuddy, "Point coordinate or command input error, please re-enter!");
    }
}

void TLCmdDigitizeFlag::takeFirstPoint(const TLString& text) {
    double x = 0, y = 0;
    if (!TLDrawCommonTool::ReadInputPoint(text, x, y)) {
        Steps::Message(mBuddy, kPointError);
        Steps::Prompt(mBuddy, kPointPrompt);
        return;
    }
    const TLPoint point(x, y);
    Steps::AddToBand(rubberBand, point);
    points.push_back(point);
    firstPoint = point;
    Steps::Prompt(mBuddy, kPointPrompt);
    inputState = AwaitingSecondPoint;
}

void TLCmdDigitizeFlag::takeSecondPoint(const TLString& text) {
    double x = 0, y = 0;
    if (!TLDrawCommonTool::ReadInputPoint(text, x, y)) {
        Steps::Message(mBuddy, kPointError);
        Steps::Prompt(mBuddy, kPointPrompt);
        return;
    }
    showFlag(TLPoint(x, y));
    Steps::Prompt(mBuddy, kTypeMenu);
    EndEntity();
    Reset();
    rubberBand->Reset(TLRubberBand::PolygonBand);
    rubberBand->Update();
}

// ---- commit ----

bool TLCmdDigitizeFlag::EndEntity() {
    if (!rubberBand || rubberBand->GetCount() <= 3 || !editor || !editor->edit_layer() || !layer ||
        !Steps::IsPolygonLayer(layer))
        return false;
    TLRect rect;
    // The layer's selection is left as it stands.
    Steps::WriteBandFeature(mBuddy, editor, layer, rubberBand, rect);
    points.clear();
    rubberBand->Reset(TLRubberBand::PolygonBand);
    Steps::RefreshMap(mBuddy, rect);
    Steps::Message(mBuddy, kDrawn);
    return true;
}

}  // namespace TMObjects
