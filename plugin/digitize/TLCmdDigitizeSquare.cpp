#include "digitize/TLCmdDigitizeSquare.h"

#include <cmath>

#include "digitize/TLShapeCommandSteps.h"
#include "digitize/TLShapeRings.h"
#include "tlmap/TLDrawCommonTool.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

using Steps = TLShapeCommandSteps;

const char* const kMenu =
    "1. draw a square with the known center and the length of the side. /2. knows the square of "
    "the two points:";
const char* const kCentrePrompt = "Specify the center of the square:";
const char* const kFirstPointPrompt = "First point:";
const char* const kHalfSidePrompt = "Please specify the 1/2 side length of a square:";
const char* const kSecondPointPrompt = "Another point:";
const char* const kPointError = "Input point error!";

enum Construction { AboutCentre = 1, OnEdge = 2 };

}  // namespace

TLCmdDigitizeSquare::TLCmdDigitizeSquare() = default;

TLCmdDigitizeSquare::TLCmdDigitizeSquare(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeSquare::~TLCmdDigitizeSquare() {
    delete band;
    delete snapTool;
}

void TLCmdDigitizeSquare::Reset() {
    step = 0;
    mode = AboutCentre;
    firstPoint = TLPoint();
}

// ---- life cycle ----

void TLCmdDigitizeSquare::activate() {
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
    mBuddy->RegisterTool("DigitizeSquare", this, true);
    Steps::Announce(mBuddy, layer, "The current input layer is:*******polygon*******",
                    "Command:Drawing Square", kMenu);
}

void TLCmdDigitizeSquare::deactivate() {
    Reset();
    points.clear();
    Steps::DropBand(band);
    Steps::DropSnapTool(snapTool);
    Steps::Leave(this, mBuddy);
    TLTool::deactivate();
}

// ---- pointer ----

bool TLCmdDigitizeSquare::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy || !Steps::CanEdit(editor, layer)) return false;
    if (!Steps::IsPolygonLayer(layer)) {
        Steps::RefusePress(mBuddy);
        return false;
    }
    if (button != TLLeftButton) return true;

    const TLPoint point = Steps::PressPoint(*this, snapTool, x, y);
    if (points.empty()) {
        firstPoint = point;
        points.push_back(point);
        Steps::AddToBand(band, point);
        band->Update();
        promptAfterFirstPoint();
        step = 2;
    } else {
        // The square is the one the last move drew: the press only confirms it.
        EndEntity();
        Reset();
        Steps::Prompt(mBuddy, kMenu);
    }
    Steps::CacheDrawnShape(snapTool, band);
    return true;
}

bool TLCmdDigitizeSquare::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mBuddy || !Steps::CanEdit(editor, layer) || !Steps::IsPolygonLayer(layer)) return false;
    const TLPoint point = Steps::MovePoint(*this, mBuddy, snapTool, x, y);
    if (points.size() == 1 && band) {
        Steps::ShowRing(band, ringTo(point));
        band->Update();
    }
    Steps::DrawSnapMarker(mBuddy, snapTool);
    return true;
}

std::vector<TLPoint> TLCmdDigitizeSquare::ringTo(const TLPoint& p) const {
    // About a centre only the horizontal distance to the pointer sets the half side.
    if (mode == AboutCentre)
        return TLShapeRings::SquareAboutCentre(firstPoint, std::fabs(p.x - firstPoint.x));
    return TLShapeRings::SquareOnEdge(firstPoint, p);
}

bool TLCmdDigitizeSquare::OnDblClick(TLMouseButton, int, int) {
    return Steps::DiscardOnDoubleClick(mBuddy, editor, layer, points, band);
}

// ---- typed input ----

bool TLCmdDigitizeSquare::processChildCmd(TLString text) {
    if (!mBuddy) return false;
    if (!Steps::CanEdit(editor, layer)) {
        Steps::RefuseTypedLine(mBuddy);
        return false;
    }
    if (text.isEmpty()) {
        Steps::Prompt(mBuddy, kMenu);
        return true;
    }
    if (step == 0) {
        chooseConstruction(text);
    } else if (step == 1) {
        takeFirstPoint(text);
    } else if (step == 2) {
        if (mode == AboutCentre)
            takeHalfSide(text);
        else
            takeSecondPoint(text);
    }
    return true;
}

void TLCmdDigitizeSquare::chooseConstruction(const TLString& text) {
    const int choice = text.ToInt();
    if (choice == AboutCentre || choice == OnEdge) {
        mode = choice;
        step = 1;
        Steps::Prompt(mBuddy, mode == AboutCentre ? kCentrePrompt : kFirstPointPrompt);
    } else {
        Steps::Message(mBuddy, "Command input error,please re-enter!");
        Steps::Prompt(mBuddy, kMenu);
    }
}

void TLCmdDigitizeSquare::takeFirstPoint(const TLString& text) {
    double x = 0, y = 0;
    if (!TLDrawCommonTool::ReadInputPoint(text, x, y)) {
        Steps::Message(mBuddy, kPointError);
        Steps::Prompt(mBuddy, mode == AboutCentre ? kCentrePrompt : kFirstPointPrompt);
        return;
    }
    promptAfterFirstPoint();
    firstPoint = TLPoint(x, y);
    points.push_back(firstPoint);
    Steps::AddToBand(band, firstPoint);
    step = 2;
}

void TLCmdDigitizeSquare::promptAfterFirstPoint() {
    Steps::Prompt(mBuddy, mode == AboutCentre ? kHalfSidePrompt : kSecondPointPrompt);
}

void TLCmdDigitizeSquare::takeHalfSide(const TLString& text) {
    // Text that is no number reads as 0 and is refused like a zero half side.
    const double halfSide = std::fabs(text.ToDouble());
    if (halfSide == 0) {
        band->Reset(TLRubberBand::PolygonBand);
        Steps::Message(mBuddy, kPointError);
        Steps::Prompt(mBuddy, kHalfSidePrompt);
        return;
    }
    finishTypedRing(TLShapeRings::SquareAboutCentre(firstPoint, halfSide));
}

void TLCmdDigitizeSquare::takeSecondPoint(const TLString& text) {
    double x = 0, y = 0;
    if (!TLDrawCommonTool::ReadInputPoint(text, x, y)) {
        Steps::Message(mBuddy, kPointError);
        Steps::Prompt(mBuddy, kSecondPointPrompt);
        return;
    }
    finishTypedRing(TLShapeRings::SquareOnEdge(firstPoint, TLPoint(x, y)));
}

void TLCmdDigitizeSquare::finishTypedRing(const std::vector<TLPoint>& ring) {
    Steps::ShowRing(band, ring);
    band->Update();
    Steps::Message(mBuddy, "Command: draw square");
    Steps::Prompt(mBuddy, kMenu);
    EndEntity();
    Reset();
}

// ---- commit ----

bool TLCmdDigitizeSquare::EndEntity() {
    if (!band || band->GetCount() <= 3 || !editor || !editor->edit_layer() || !layer ||
        !Steps::IsPolygonLayer(layer))
        return false;
    TLRect rect;
    Steps::AddBandFeature(mBuddy, editor, layer, band, rect);
    points.clear();
    band->Reset(TLRubberBand::PolygonBand);
    Steps::RefreshMap(mBuddy, rect);
    Steps::Message(mBuddy, "Command:Drawing Square");
    return true;
}

}  // namespace TMObjects
