#include "digitize/TLCmdDigitizeEllipse.h"

#include "digitize/TLCurveCommandSteps.h"
#include "digitize/TLCurveSamples.h"
#include "digitize/TLShapeCommandSteps.h"
#include "tlmap/TLDrawCommonTool.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

using Steps = TLShapeCommandSteps;
using Curve = TLCurveCommandSteps;
using Samples = TLCurveSamples;

const char* const kMenu =
    "1. draw ellipses by specifying the central point of the ellipse, the ends of the horizontal "
    "axis and the end of the long axis /2. is drawn by specifying the center of the ellipse, the "
    "ends of the horizontal axis and the end of the long axis, and the ellipse is drawn by "
    "specifying the center of the ellipse and the length of the two axes:";
// Clicks and typed lines are asked for with slightly different texts, down to a blank.
const char* const kClickedFirstAxisPrompt = "Please specify the end of the horizontal axis (x, y):";
const char* const kClickedSecondAxisPrompt = "Specify the end of the vertical axis (x, y):";
const char* const kClickedLengthsPrompt =
    "Please input the length of the transverse axis and the longitudinal axis:";
const char* const kCentrePrompt =
    "Please enter the first point (point coordinate format comma separated x, y):";
const char* const kFirstAxisPrompt = "Specify the end of the horizontal axis (x,y):";
const char* const kSecondAxisPrompt = "Specify the end of the vertical axis (x,y):";
const char* const kLengthsCentrePrompt =
    "Enter the coordinates of the center of the ellipse (point coordinate format, comma "
    "segmentation x, y):";
const char* const kLengthsPrompt =
    "Please enter the length of the horizontal axis and the longitudinal axis:";
const char* const kDrawn = "Command:Drawing Ellipse";

enum Construction { ByAxisEnds = 1, ByAxisLengths = 2 };

}  // namespace

TLCmdDigitizeEllipse::TLCmdDigitizeEllipse() = default;

TLCmdDigitizeEllipse::TLCmdDigitizeEllipse(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeEllipse::~TLCmdDigitizeEllipse() {
    delete rubberBand;
}

// Each finished ellipse goes back to mode 1 for clicks and to no mode for typed text.
void TLCmdDigitizeEllipse::Reset() {
    step = -1;
    awaitingMode = 1;
    previewActive = 0;
    mode = TLString("");
    mouseMode = TLString("1");
}

// ---- life cycle ----

void TLCmdDigitizeEllipse::activate() {
    mActive = true;
    Reset();
    points.clear();
    Steps::DropBand(rubberBand);
    if (!Curve::Attach(mBuddy, editor, layer)) {
        if (mBuddy && mBuddy->GetMapView()) deactivate();
        return;
    }
    rubberBand = Steps::MakeBand(mBuddy->GetMapView());
    mBuddy->RegisterTool("DigitizeEllipse", this, true);
    Curve::Announce(mBuddy, layer, kDrawn, kMenu);
}

void TLCmdDigitizeEllipse::deactivate() {
    Reset();
    points.clear();
    Steps::DropBand(rubberBand);
    Steps::Leave(this, mBuddy);
    TLTool::deactivate();
}

// ---- pointer ----

bool TLCmdDigitizeEllipse::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!Curve::PressAllowed(mBuddy, editor, layer) || !rubberBand) return false;
    // Any press drops the preview, a line or an ellipse, and leaves a polygon band to commit.
    rubberBand->Reset(TLRubberBand::PolygonBand);
    if (button != TLLeftButton) {
        rubberBand->Update();
        return true;
    }
    const TLPoint click = ToMapCoordinates(TLPoint(x, y), nullptr);
    switch (mouseMode.ToInt()) {
        case ByAxisEnds:
            return pressByAxisEnds(click);
        case ByAxisLengths:
            return pressByAxisLengths(click);
        default:
            // A menu number the clicks have no construction for: the press does nothing.
            return true;
    }
}

bool TLCmdDigitizeEllipse::pressByAxisEnds(const TLPoint& click) {
    mode = TLString("1");
    const int at = step < 0 ? 0 : step;
    if (at == 0) {
        firstPoint = click;
        previewActive = 1;
        step = 1;
        Steps::Prompt(mBuddy, kClickedFirstAxisPrompt);
    } else if (at == 1) {
        secondPoint = click;
        step = 2;
        Steps::Prompt(mBuddy, kClickedSecondAxisPrompt);
    } else if (at == 2) {
        thirdPoint = click;
        finish();
    } else {
        Steps::Prompt(mBuddy, kMenu);
    }
    return true;
}

// Only the centre can be clicked; the lengths are typed.
bool TLCmdDigitizeEllipse::pressByAxisLengths(const TLPoint& click) {
    if (step > 0) return true;
    firstPoint = click;
    step = 1;
    Steps::Prompt(mBuddy, kClickedLengthsPrompt);
    return true;
}

bool TLCmdDigitizeEllipse::OnMouseUp(TLMouseButton, int, int) {
    return true;
}

bool TLCmdDigitizeEllipse::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mBuddy) return false;
    Curve::FollowEditLayer(editor, layer);
    if (!Curve::CanDrawOn(layer)) return false;
    if (previewActive && rubberBand) showPreview(ToMapCoordinates(TLPoint(x, y), nullptr));
    return true;
}

// First the axis from the centre to the pointer, then the ellipse whose second axis reaches the
// pointer, with a spoke back to the centre.
void TLCmdDigitizeEllipse::showPreview(const TLPoint& cursor) {
    if (step == 1) {
        secondPoint = cursor;
        Steps::ShowSegment(rubberBand, firstPoint, cursor);
    } else if (step == 2) {
        std::vector<TLPoint> ring = samples(secondPoint, cursor);
        ring.insert(ring.begin(), ring.front());
        ring.push_back(firstPoint);
        Steps::ShowRing(rubberBand, ring);
    } else {
        return;
    }
    rubberBand->Update();
}

bool TLCmdDigitizeEllipse::OnDblClick(TLMouseButton, int, int) {
    return true;
}

// ---- typed input ----

bool TLCmdDigitizeEllipse::processChildCmd(TLString text) {
    if (!Curve::TypedLineAllowed(mBuddy, editor, layer) || !rubberBand) return false;
    if (text.isEmpty()) return false;
    Curve::TakeMenuChoice(text, awaitingMode, mode, mouseMode);
    switch (mode.ToInt()) {
        case ByAxisEnds:
            return typeByAxisEnds(text);
        case ByAxisLengths:
            return typeByAxisLengths(text);
        default:
            Curve::RefuseCommand(mBuddy, kMenu);
            return true;
    }
}

bool TLCmdDigitizeEllipse::typeByAxisEnds(const TLString& text) {
    if (step == -1) {
        step = 0;
        Steps::Prompt(mBuddy, kCentrePrompt);
    } else if (step == 0) {
        if (!Curve::ReadPoint(mBuddy, text, firstPoint, kCentrePrompt)) return true;
        // From a typed centre on, the pointer shows the ellipse under way as well.
        previewActive = 1;
        step = 1;
        Steps::Prompt(mBuddy, kFirstAxisPrompt);
    } else if (step == 1) {
        if (!Curve::ReadPoint(mBuddy, text, secondPoint, kFirstAxisPrompt)) return true;
        step = 2;
        Steps::Prompt(mBuddy, kSecondAxisPrompt);
    } else if (step == 2) {
        if (!Curve::ReadPoint(mBuddy, text, thirdPoint, kSecondAxisPrompt)) return true;
        finish();
    } else {
        Steps::Prompt(mBuddy, kMenu);
    }
    return true;
}

bool TLCmdDigitizeEllipse::typeByAxisLengths(const TLString& text) {
    if (step == -1) {
        step = 0;
        Steps::Prompt(mBuddy, kLengthsCentrePrompt);
    } else if (step == 0) {
        if (!Curve::ReadPoint(mBuddy, text, firstPoint, kLengthsCentrePrompt)) return true;
        step = 1;
        Steps::Prompt(mBuddy, kLengthsPrompt);
    } else if (step == 1) {
        double along = 0, across = 0;
        if (!TLDrawCommonTool::ReadInputPoint(text, along, across)) {
            Curve::RefuseCommand(mBuddy, kLengthsPrompt);
            return true;
        }
        // The lengths become axis ends along x and y; a negative length points the other way.
        secondPoint = TLPoint(firstPoint.x + along, firstPoint.y);
        thirdPoint = TLPoint(firstPoint.x, firstPoint.y + across);
        finish();
    } else {
        Steps::Prompt(mBuddy, kMenu);
    }
    return true;
}

// ---- commit ----

std::vector<TLPoint> TLCmdDigitizeEllipse::samples(const TLPoint& axisEnd,
                                                   const TLPoint& across) const {
    const double a = Samples::SinglePrecisionDistance(firstPoint, axisEnd);
    const double b = Samples::SinglePrecisionDistance(firstPoint, across);
    return Samples::Ellipse(firstPoint, a, b, Samples::AxisAngle(firstPoint, axisEnd));
}

void TLCmdDigitizeEllipse::finish() {
    const std::vector<TLPoint> ring = samples(secondPoint, thirdPoint);
    points.assign(ring.begin(), ring.end());
    Steps::ShowRing(rubberBand, ring);
    TLRect rect;
    EndEntity(rect);
    Curve::AfterCommit(mBuddy, rubberBand, points, rect);
    Reset();
    Steps::Prompt(mBuddy, kMenu);
}

bool TLCmdDigitizeEllipse::EndEntity(TLRect& rect) {
    if (!mBuddy || !editor || !layer || !rubberBand) return false;
    Steps::WriteBandFeature(mBuddy, editor, layer, rubberBand, rect);
    Steps::Message(mBuddy, kDrawn);
    return true;
}

}  // namespace TMObjects
