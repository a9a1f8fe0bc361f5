#include "digitize/TLCmdDigitizeCircle.h"

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
    "1. according to the center and radius of circle diameter of both ends of /2. according to "
    "the diameters of both ends of the circle /3. according to the three point circle arc on the "
    "dotted ends of the circle:";
const char* const kCentrePrompt =
    "Please specify the first point / Manually enter first points (point coordinate format "
    "comma separation x, y):";
const char* const kRadiusPrompt = "Please specify the second point / Manually enter the radius:";
const char* const kFirstPointPrompt =
    "Please enter first points (point coordinate format comma separation x, y):";
const char* const kSecondPointPrompt =
    "Please enter second points (point coordinate format comma separation x, y):";
const char* const kThirdPointPrompt =
    "Please enter third points (point coordinate format comma separation x, y):";
// The second end of a diameter is asked for more briefly after a click.
const char* const kClickedSecondPointPrompt = "Please enter second points (x, y):";
const char* const kDrawn = "Command:Drawing Circle";

enum Construction { ByCentre = 1, ByDiameter = 2, ByThreePoints = 3 };

TLPoint midpoint(const TLPoint& a, const TLPoint& b) {
    return TLPoint((a.x + b.x) * 0.5, (a.y + b.y) * 0.5);
}

}  // namespace

TLCmdDigitizeCircle::TLCmdDigitizeCircle() = default;

TLCmdDigitizeCircle::TLCmdDigitizeCircle(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeCircle::~TLCmdDigitizeCircle() {
    delete rubberBand;
}

// Each finished circle goes back to mode 1 for clicks and to no mode for typed text.
void TLCmdDigitizeCircle::Reset() {
    step = -1;
    awaitingMode = 1;
    previewActive = 0;
    mode = TLString("");
    mouseMode = TLString("1");
}

// ---- life cycle ----

void TLCmdDigitizeCircle::activate() {
    mActive = true;
    Reset();
    points.clear();
    Steps::DropBand(rubberBand);
    if (!Curve::Attach(mBuddy, editor, layer)) {
        if (mBuddy && mBuddy->GetMapView()) deactivate();
        return;
    }
    rubberBand = Steps::MakeBand(mBuddy->GetMapView());
    mBuddy->RegisterTool("DigitizeCircle", this, true);
    Curve::Announce(mBuddy, layer, kDrawn, kMenu);
}

void TLCmdDigitizeCircle::deactivate() {
    Reset();
    points.clear();
    Steps::DropBand(rubberBand);
    Steps::Leave(this, mBuddy);
    TLTool::deactivate();
}

// ---- pointer ----

bool TLCmdDigitizeCircle::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!Curve::PressAllowed(mBuddy, editor, layer) || !rubberBand) return false;
    // Any press drops the preview; only the left button goes on.
    rubberBand->Reset(TLRubberBand::PolygonBand);
    if (button != TLLeftButton) {
        rubberBand->Update();
        return true;
    }
    const TLPoint click = ToMapCoordinates(TLPoint(x, y), nullptr);
    switch (mouseMode.ToInt()) {
        case ByCentre:
            return pressByCentre(click);
        case ByDiameter:
            return pressByDiameter(click);
        case ByThreePoints:
            return pressByThreePoints(click);
        default:
            // A menu number the clicks have no construction for: the press does nothing.
            return true;
    }
}

bool TLCmdDigitizeCircle::pressByCentre(const TLPoint& click) {
    mode = TLString("1");
    const int at = step < 0 ? 0 : step;
    if (at == 0) {
        firstPoint = click;
        center = click;
        previewActive = 1;
        step = 1;
        Steps::Prompt(mBuddy, kRadiusPrompt);
    } else if (at == 1) {
        radius = Samples::SinglePrecisionDistance(click, center);
        if (!showCircle(Samples::Circle(center, radius), radius)) return false;
        commit();
    } else {
        Steps::Prompt(mBuddy, kMenu);
    }
    return true;
}

bool TLCmdDigitizeCircle::pressByDiameter(const TLPoint& click) {
    mode = TLString("2");
    const int at = step < 0 ? 0 : step;
    if (at == 0) {
        firstPoint = click;
        previewActive = 1;
        step = 1;
        Steps::Prompt(mBuddy, kClickedSecondPointPrompt);
    } else if (at == 1) {
        secondPoint = click;
        center = midpoint(firstPoint, secondPoint);
        radius = Samples::SinglePrecisionDistance(secondPoint, center);
        // Clicked diameters have always started one degree past west; typed ones at west.
        if (!showCircle(Samples::CircleFromOneDegree(center, radius), radius)) return false;
        commit();
    } else {
        Steps::Prompt(mBuddy, kMenu);
    }
    return true;
}

bool TLCmdDigitizeCircle::pressByThreePoints(const TLPoint& click) {
    mode = TLString("3");
    const int at = step < 0 ? 0 : step;
    if (at == 0) {
        firstPoint = click;
        previewActive = 1;
        step = 1;
        Steps::Prompt(mBuddy, kSecondPointPrompt);
    } else if (at == 1) {
        secondPoint = click;
        step = 2;
        Steps::Prompt(mBuddy, kThirdPointPrompt);
    } else if (at == 2) {
        thirdPoint = click;
        center = Samples::ThreePointCentre(firstPoint, secondPoint, thirdPoint);
        radius = Samples::SinglePrecisionDistance(thirdPoint, center);
        if (!showCircle(Samples::Circle(center, radius), radius)) return false;
        commit();
    } else {
        Steps::Prompt(mBuddy, kMenu);
    }
    return true;
}

bool TLCmdDigitizeCircle::OnMouseUp(TLMouseButton, int, int) {
    return true;
}

bool TLCmdDigitizeCircle::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mBuddy) return false;
    Curve::FollowEditLayer(editor, layer);
    if (!Curve::CanDrawOn(layer)) return false;
    if (previewActive && rubberBand) showPreview(ToMapCoordinates(TLPoint(x, y), nullptr));
    return true;
}

// The circle the next press would make, starting at the pointer, with the radius or the chords
// drawn inside it.
void TLCmdDigitizeCircle::showPreview(const TLPoint& cursor) {
    const int construction = mode.ToInt();
    TLPoint centre;
    std::vector<TLPoint> marks;
    if (construction == ByCentre && step == 1) {
        centre = firstPoint;
        marks = {cursor, firstPoint};
    } else if ((construction == ByDiameter || construction == ByThreePoints) && step == 1) {
        centre = midpoint(firstPoint, cursor);
        if (construction == ByDiameter) secondPoint = cursor;
        marks = {cursor, firstPoint};
    } else if (construction == ByThreePoints && step == 2) {
        centre = Samples::ThreePointCentre(firstPoint, secondPoint, cursor);
        marks = {firstPoint, secondPoint, cursor};
    } else {
        return;
    }
    radius = Samples::SinglePrecisionDistance(cursor, centre);
    if (Samples::IsTooSmall(radius)) return;
    std::vector<TLPoint> ring = Samples::CircleThrough(centre, radius, cursor);
    ring.insert(ring.end(), marks.begin(), marks.end());
    Steps::ShowRing(rubberBand, ring);
    rubberBand->Update();
}

bool TLCmdDigitizeCircle::OnDblClick(TLMouseButton, int, int) {
    if (!mBuddy) return false;
    if (!Steps::CanEdit(editor, layer)) return false;
    Reset();
    if (!Steps::IsPolygonLayer(layer) || !rubberBand) return true;
    // Whatever the band still holds is written; after the press of the double click that is
    // nothing, so a half-made circle is left behind.
    TLRect rect;
    EndEntity(rect);
    Curve::AfterCommit(mBuddy, rubberBand, points, rect);
    Steps::Prompt(mBuddy, kMenu);
    return true;
}

// ---- typed input ----

bool TLCmdDigitizeCircle::processChildCmd(TLString text) {
    if (!Curve::TypedLineAllowed(mBuddy, editor, layer) || !rubberBand) return false;
    if (text.isEmpty()) return false;
    Curve::TakeMenuChoice(text, awaitingMode, mode, mouseMode);
    switch (mode.ToInt()) {
        case ByCentre:
            return typeByCentre(text);
        case ByDiameter:
            return typeByDiameter(text);
        case ByThreePoints:
            return typeByThreePoints(text);
        default:
            Curve::RefuseCommand(mBuddy, kMenu);
            return true;
    }
}

bool TLCmdDigitizeCircle::typeByCentre(const TLString& text) {
    if (step == -1) {
        step = 0;
        Steps::Prompt(mBuddy, kCentrePrompt);
    } else if (step == 0) {
        double x = 0, y = 0;
        if (!TLDrawCommonTool::ReadInputPoint(text, x, y)) {
            Curve::RefuseCommand(mBuddy, kCentrePrompt);
            return true;
        }
        center = TLPoint(x, y);
        step = 1;
        Steps::Prompt(mBuddy, kRadiusPrompt);
    } else if (step == 1) {
        // A typed radius is taken as it reads, without the narrowing of a clicked one.
        const double typed = text.ToDouble();
        if (!(typed > 0)) {
            Steps::Message(mBuddy, "Length input error,please re-enter!");
            Steps::Prompt(mBuddy, kRadiusPrompt);
            return true;
        }
        rubberBand->Reset(TLRubberBand::PolygonBand);
        points.clear();
        radius = typed;
        if (!showCircle(Samples::Circle(center, radius), radius)) return false;
        commit();
    } else {
        Steps::Prompt(mBuddy, kMenu);
    }
    return true;
}

bool TLCmdDigitizeCircle::typeByDiameter(const TLString& text) {
    if (step == -1) {
        step = 0;
        Steps::Prompt(mBuddy, kFirstPointPrompt);
    } else if (step == 0) {
        if (!Curve::ReadPoint(mBuddy, text, firstPoint, kFirstPointPrompt)) return true;
        step = 1;
        Steps::Prompt(mBuddy, kSecondPointPrompt);
    } else if (step == 1) {
        if (!Curve::ReadPoint(mBuddy, text, secondPoint, kSecondPointPrompt)) return true;
        center = midpoint(firstPoint, secondPoint);
        radius = Samples::SinglePrecisionDistance(secondPoint, center);
        if (!showCircle(Samples::Circle(center, radius), radius)) return false;
        commit();
    } else {
        Steps::Prompt(mBuddy, kMenu);
    }
    return true;
}

bool TLCmdDigitizeCircle::typeByThreePoints(const TLString& text) {
    // The line that picked this mode is read as the first point as well, and refused as one.
    if (step == -1) {
        step = 0;
        Steps::Prompt(mBuddy, kFirstPointPrompt);
    }
    if (step == 0) {
        if (!Curve::ReadPoint(mBuddy, text, firstPoint, kFirstPointPrompt)) return true;
        step = 1;
        Steps::Prompt(mBuddy, kSecondPointPrompt);
    } else if (step == 1) {
        if (!Curve::ReadPoint(mBuddy, text, secondPoint, kSecondPointPrompt)) return true;
        step = 2;
        Steps::Prompt(mBuddy, kThirdPointPrompt);
    } else if (step == 2) {
        if (!Curve::ReadPoint(mBuddy, text, thirdPoint, kThirdPointPrompt)) return true;
        center = Samples::ThreePointCentre(firstPoint, secondPoint, thirdPoint);
        radius = Samples::SinglePrecisionDistance(thirdPoint, center);
        if (!showCircle(Samples::Circle(center, radius), radius)) return false;
        commit();
    } else {
        Steps::Prompt(mBuddy, kMenu);
    }
    return true;
}

// ---- commit ----

bool TLCmdDigitizeCircle::showCircle(const std::vector<TLPoint>& ring, double size) {
    if (Samples::IsTooSmall(size)) return false;
    firstPoint = ring.front();
    points.assign(ring.begin(), ring.end() - 1);
    Steps::ShowRing(rubberBand, ring);
    return true;
}

void TLCmdDigitizeCircle::commit() {
    TLRect rect;
    EndEntity(rect);
    Curve::AfterCommit(mBuddy, rubberBand, points, rect);
    Reset();
    Steps::Prompt(mBuddy, kMenu);
}

bool TLCmdDigitizeCircle::EndEntity(TLRect& rect) {
    if (!mBuddy || !editor || !layer || !rubberBand) return false;
    Steps::WriteBandFeature(mBuddy, editor, layer, rubberBand, rect);
    Steps::Message(mBuddy, kDrawn);
    return true;
}

}  // namespace TMObjects
