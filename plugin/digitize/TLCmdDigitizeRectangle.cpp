#include "digitize/TLCmdDigitizeRectangle.h"

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
    "1. according to the two rectangle /2. according to the three point rectangular /3. "
    "according to two and the width of rectangle /4. according to the length and width of "
    "rectangle:";
const char* const kFirstPointPrompt =
    "Specify the first point of the rectangle / manually enter the first point (x, y):";
const char* const kNextPointPrompt =
    "Please specify the next point / manually enter the next point (x, y):";
const char* const kSecondPointPrompt =
    "Please specify the second point / manually enter the second point (x, y):";
const char* const kThirdPointPrompt =
    "Please specify the third point / manually enter the third point (x, y):";
// Asked again after a bad third point; it says "second", and users know it so.
const char* const kThirdPointAgainPrompt =
    "Please specify the third point / manually enter the second point (x, y):";
const char* const kLengthWidthPrompt =
    "Please enter the rectangle length and width (length, width):";
const char* const kWidthPrompt = "width:";
const char* const kSideHint =
    "You can enter positive or negative values, positive for one side, and negative on the other "
    "side";
const char* const kTypedDone = "Command: Draw Rectangle";
const char* const kInputError = "Input error!";
const char* const kPointError = "Input point error!";

enum Construction { ByCorners = 1, ByThreePoints = 2, ByWidth = 3, ByLengthAndWidth = 4 };

}  // namespace

TLCmdDigitizeRectangle::TLCmdDigitizeRectangle() = default;

TLCmdDigitizeRectangle::TLCmdDigitizeRectangle(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeRectangle::~TLCmdDigitizeRectangle() {
    delete band;
    delete snapTool;
}

void TLCmdDigitizeRectangle::Reset() {
    step = 0;
    mode = ByCorners;
    points.clear();
    if (snapTool) snapTool->Reset();
}

// ---- life cycle ----

void TLCmdDigitizeRectangle::activate() {
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
    mBuddy->RegisterTool("DigitizeRectangle", this, true);
    Steps::Announce(mBuddy, layer, "The current layer is:*******polygon*******",
                    "Command:Drawing Rectangle", kMenu);
}

void TLCmdDigitizeRectangle::deactivate() {
    Reset();
    points.clear();
    // The band outlives the command, emptied; the next activation or the destructor drops it.
    if (band) {
        band->Reset(TLRubberBand::PolygonBand);
        band->Update();
    }
    Steps::DropSnapTool(snapTool);
    Steps::Leave(this, mBuddy);
    TLTool::deactivate();
}

// ---- pointer ----

bool TLCmdDigitizeRectangle::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy || !Steps::CanEdit(editor, layer)) return false;
    if (!Steps::IsPolygonLayer(layer)) {
        Steps::RefusePress(mBuddy);
        return false;
    }
    if (button != TLLeftButton) return true;

    const TLPoint point = Steps::PressPoint(*this, snapTool, x, y);
    if (points.empty())
        pressFirstPoint(point);
    else if (points.size() == 1)
        pressSecondPoint(point);
    else
        pressOnTwoPoints();
    Steps::CacheDrawnShape(snapTool, band);
    return true;
}

void TLCmdDigitizeRectangle::pressFirstPoint(const TLPoint& p) {
    points.push_back(p);
    firstPoint = p;
    switch (mode) {
        case ByCorners:
            Steps::AddToBand(band, p);
            band->Update();
            break;
        case ByThreePoints:
            band->Reset(TLRubberBand::LineBand);
            Steps::AddToBand(band, p);
            band->Update();
            break;
        default:
            // Nothing to show yet: the width construction draws its edge from the next move
            // on, the length-and-width one only once the numbers are typed.
            break;
    }
    Steps::Prompt(mBuddy, mode == ByLengthAndWidth ? kLengthWidthPrompt : secondPointPrompt());
    step = 2;
}

void TLCmdDigitizeRectangle::pressSecondPoint(const TLPoint& p) {
    switch (mode) {
        case ByCorners:
            // The rectangle is the one the last move drew: the press only confirms it.
            Steps::Prompt(mBuddy, kMenu);
            EndEntity();
            Reset();
            break;
        case ByThreePoints:
            Steps::Prompt(mBuddy, kThirdPointPrompt);
            keepEdgeEnd(p);
            break;
        case ByWidth:
            Steps::Message(mBuddy, kSideHint);
            Steps::Prompt(mBuddy, kWidthPrompt);
            keepEdgeEnd(p);
            break;
        default:
            // Length and width are typed; a second click is not kept.
            Steps::Message(mBuddy, "Please enter the rectangle length and width (length, width)!");
            Steps::Prompt(mBuddy, kLengthWidthPrompt);
            step = 2;
            break;
    }
}

void TLCmdDigitizeRectangle::keepEdgeEnd(const TLPoint& p) {
    points.push_back(p);
    Steps::AddToBand(band, p);
    band->Update();
    step = 3;
}

void TLCmdDigitizeRectangle::pressOnTwoPoints() {
    if (mode == ByWidth) {
        Steps::Message(mBuddy, "Please enter the width!");
        Steps::Message(mBuddy, kSideHint);
        Steps::Prompt(mBuddy, kWidthPrompt);
        return;
    }
    Steps::Message(mBuddy, "Command: Draw a rectangle");
    Steps::Prompt(mBuddy, kMenu);
    EndEntity();
    Reset();
}

bool TLCmdDigitizeRectangle::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mBuddy || !Steps::CanEdit(editor, layer) || !Steps::IsPolygonLayer(layer)) return false;
    const TLPoint point = Steps::MovePoint(*this, mBuddy, snapTool, x, y);
    if (band && mode != ByLengthAndWidth) {
        if (points.size() == 1) {
            if (mode == ByCorners)
                Steps::ShowRing(band, TLShapeRings::RectangleByCorners(firstPoint, point));
            else
                Steps::ShowSegment(band, points[0], point);
            band->Update();
        } else if (points.size() == 2 && mode == ByThreePoints) {
            Steps::ShowRing(band, TLShapeRings::RectangleThrough(points[0], points[1], point));
            band->Update();
        }
    }
    Steps::DrawSnapMarker(mBuddy, snapTool);
    return true;
}

bool TLCmdDigitizeRectangle::OnDblClick(TLMouseButton, int, int) {
    if (!mBuddy || !Steps::CanEdit(editor, layer) || !Steps::IsPolygonLayer(layer)) return false;
    EndEntity();
    Steps::Prompt(mBuddy, kMenu);
    Reset();
    if (band) band->Reset(TLRubberBand::PolygonBand);
    return true;
}

// ---- typed input ----

bool TLCmdDigitizeRectangle::processChildCmd(TLString text) {
    if (!mBuddy) return false;
    if (!Steps::CanEdit(editor, layer)) {
        Steps::RefuseTypedLine(mBuddy);
        return false;
    }
    if (text.isEmpty()) {
        Steps::Prompt(mBuddy, kMenu);
        return true;
    }
    switch (step) {
        case 0:
            chooseConstruction(text);
            break;
        case 1:
            takeFirstPoint(text);
            break;
        case 2:
            if (mode == ByLengthAndWidth)
                takeLengthAndWidth(text);
            else
                takeSecondInput(text);
            break;
        case 3:
            takeThirdInput(text);
            break;
        default:
            break;
    }
    return true;
}

void TLCmdDigitizeRectangle::chooseConstruction(const TLString& text) {
    // The first-point prompt goes out before the choice is read; a bad choice replaces it.
    Steps::Prompt(mBuddy, kFirstPointPrompt);
    const int choice = text.ToInt();
    if (choice >= ByCorners && choice <= ByLengthAndWidth) {
        mode = choice;
        step = 1;
    } else {
        Steps::Message(mBuddy, "Command input error,please re-enter!");
        Steps::Prompt(mBuddy, kMenu);
    }
}

void TLCmdDigitizeRectangle::takeFirstPoint(const TLString& text) {
    double x = 0, y = 0;
    if (!TLDrawCommonTool::ReadInputPoint(text, x, y)) {
        Steps::Message(mBuddy, kPointError);
        Steps::Prompt(mBuddy, kFirstPointPrompt);
        return;
    }
    firstPoint = TLPoint(x, y);
    Steps::AddToBand(band, firstPoint);
    points.push_back(firstPoint);
    Steps::Prompt(mBuddy, mode == ByLengthAndWidth ? kLengthWidthPrompt : secondPointPrompt());
    step = 2;
}

const char* TLCmdDigitizeRectangle::secondPointPrompt() const {
    return mode == ByCorners ? kNextPointPrompt : kSecondPointPrompt;
}

void TLCmdDigitizeRectangle::takeSecondInput(const TLString& text) {
    double x = 0, y = 0;
    if (!TLDrawCommonTool::ReadInputPoint(text, x, y)) {
        Steps::Message(mBuddy, kPointError);
        Steps::Prompt(mBuddy, secondPointPrompt());
        return;
    }
    const TLPoint p(x, y);
    if (mode == ByCorners) {
        finishTypedRing(TLShapeRings::RectangleByCorners(points.at(0), p));
        return;
    }
    if (mode == ByThreePoints) {
        Steps::Prompt(mBuddy, kThirdPointPrompt);
    } else {
        Steps::Message(mBuddy, kSideHint);
        Steps::Prompt(mBuddy, kWidthPrompt);
    }
    // The band shows the edge so far; the third input completes the ring.
    band->Reset(TLRubberBand::PolygonBand);
    Steps::AddToBand(band, points.at(0));
    Steps::AddToBand(band, p);
    points.push_back(p);
    step = 3;
}

void TLCmdDigitizeRectangle::takeThirdInput(const TLString& text) {
    if (mode == ByThreePoints) {
        double x = 0, y = 0;
        if (!TLDrawCommonTool::ReadInputPoint(text, x, y)) {
            Steps::Message(mBuddy, kPointError);
            Steps::Prompt(mBuddy, kThirdPointAgainPrompt);
            return;
        }
        finishTypedRing(TLShapeRings::RectangleThrough(points.at(0), points.at(1), TLPoint(x, y)));
    } else if (mode == ByWidth) {
        // The sign of the width chooses the side: positive left of the edge, negative right.
        const double width = text.ToDouble();
        if (width == 0) {
            Steps::Message(mBuddy, kInputError);
            Steps::Message(mBuddy, kSideHint);
            Steps::Prompt(mBuddy, kWidthPrompt);
            return;
        }
        finishTypedRing(TLShapeRings::RectangleOnEdge(points.at(0), points.at(1), width));
    }
}

void TLCmdDigitizeRectangle::takeLengthAndWidth(const TLString& text) {
    double length = 0, width = 0;
    if (!TLDrawCommonTool::ReadInputPoint(text, length, width) || length == 0 || width == 0) {
        Steps::Message(mBuddy, kInputError);
        Steps::Prompt(mBuddy, kLengthWidthPrompt);
        return;
    }
    Steps::ShowRing(band, TLShapeRings::RectangleOfLengthAndWidth(points.at(0), length, width));
    band->Update();
    EndEntity();
    Reset();
    Steps::Prompt(mBuddy, kMenu);
}

void TLCmdDigitizeRectangle::finishTypedRing(const std::vector<TLPoint>& ring) {
    Steps::ShowRing(band, ring);
    band->Update();
    Steps::Message(mBuddy, kTypedDone);
    Steps::Prompt(mBuddy, kMenu);
    EndEntity();
    Reset();
}

// ---- commit ----

bool TLCmdDigitizeRectangle::EndEntity() {
    if (!band || band->GetCount() <= 3 || !editor || !editor->edit_layer() || !layer ||
        !Steps::IsPolygonLayer(layer))
        return false;
    TLRect rect;
    Steps::AddBandFeature(mBuddy, editor, layer, band, rect);
    points.clear();
    band->Reset(TLRubberBand::PolygonBand);
    Steps::Message(mBuddy, "Command:Drawing Rectangle");
    Steps::RefreshMap(mBuddy, rect);
    // Points the snapper kept while this rectangle was drawn are of no use to the next one.
    if (snapTool && snapTool->CanSnap())
        TLSnapEnvironment::Instance()->getPointSnapper()->clearCache();
    return true;
}

}  // namespace TMObjects
