#include "digitize/TLCmdDigitizeRegularPolygon.h"

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

const char* const kEdgesPrompt = "Number of input edges:";
const char* const kTooFewEdges =
    "The number of edges is at least 3. Please re-enter the number of edges!";
const char* const kCentreOrEdgePrompt = "The center / designated side of the polygon (E)]:";
const char* const kRadiusPrompt = "Please specify the radius of circumcircle:";
const char* const kFirstEndpointPrompt = "The first endpoint of the specified edge:";
const char* const kSecondEndpointPrompt = "Please specify the second endpoint of the edge:";
const char* const kPointError = "Input point error!";

constexpr int kMinEdges = 3;
constexpr int kMaxEdges = 360;

enum Construction { AboutCentre = 1, OnEdge = 2 };

}  // namespace

TLCmdDigitizeRegularPolygon::TLCmdDigitizeRegularPolygon() = default;

TLCmdDigitizeRegularPolygon::TLCmdDigitizeRegularPolygon(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeRegularPolygon::~TLCmdDigitizeRegularPolygon() {
    delete band;
    delete snapTool;
}

// The number of edges stays: a reset only goes back to asking for it.
void TLCmdDigitizeRegularPolygon::Reset() {
    step = 0;
    mode = AboutCentre;
    points.clear();
    if (snapTool) snapTool->Reset();
}

// ---- life cycle ----

void TLCmdDigitizeRegularPolygon::activate() {
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
    mBuddy->RegisterTool("DigitizeRegularPolygon", this, true);
    Steps::Announce(mBuddy, layer, "The current layer is:*******polygon******",
                    "Command:Drawing RegularPolygon", kEdgesPrompt);
}

void TLCmdDigitizeRegularPolygon::deactivate() {
    Reset();
    points.clear();
    Steps::DropBand(band);
    Steps::DropSnapTool(snapTool);
    Steps::Leave(this, mBuddy);
    TLTool::deactivate();
}

// ---- pointer ----

bool TLCmdDigitizeRegularPolygon::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy || !Steps::CanEdit(editor, layer)) return false;
    if (!Steps::IsPolygonLayer(layer)) {
        Steps::RefusePress(mBuddy);
        return false;
    }
    // Nothing can be drawn before the number of edges is known.
    if (step == 0) {
        Steps::Message(mBuddy, kTooFewEdges);
        Steps::Prompt(mBuddy, kEdgesPrompt);
        return false;
    }
    if (button != TLLeftButton) return true;

    const TLPoint point = Steps::PressPoint(*this, snapTool, x, y);
    if (points.empty()) {
        points.push_back(point);
        if (mode == OnEdge) {
            Steps::Prompt(mBuddy, kSecondEndpointPrompt);
            step = 3;
        } else {
            centre = point;
            Steps::Prompt(mBuddy, kRadiusPrompt);
            step = 2;
        }
    } else {
        // The polygon is the one the last move drew: the press only confirms it.
        EndEntity();
        Reset();
        Steps::Prompt(mBuddy, kEdgesPrompt);
    }
    Steps::CacheDrawnShape(snapTool, band);
    return true;
}

bool TLCmdDigitizeRegularPolygon::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mBuddy || !Steps::CanEdit(editor, layer) || !Steps::IsPolygonLayer(layer)) return false;
    const TLPoint point = Steps::MovePoint(*this, mBuddy, snapTool, x, y);
    if (points.size() == 1 && band) {
        // Both previews are true regular polygons through the pointer.
        if (mode == AboutCentre)
            Steps::ShowRing(band, TLShapeRings::PolygonThroughVertex(centre, point, edgeCount));
        else
            Steps::ShowRing(band, TLShapeRings::PolygonOnEdge(points[0], point, edgeCount));
        band->Update();
    }
    Steps::DrawSnapMarker(mBuddy, snapTool);
    return true;
}

bool TLCmdDigitizeRegularPolygon::OnDblClick(TLMouseButton, int, int) {
    if (!mBuddy || !Steps::CanEdit(editor, layer)) return false;
    if (layer->GetLayerType() == TLLayer::PointLayer) return false;
    EndEntity();
    Reset();
    if (band) band->Reset(TLRubberBand::PolygonBand);
    return true;
}

// ---- typed input ----

bool TLCmdDigitizeRegularPolygon::processChildCmd(TLString text) {
    if (!mBuddy) return false;
    if (!Steps::CanEdit(editor, layer)) {
        Steps::RefuseTypedLine(mBuddy);
        return false;
    }
    if (text.isEmpty()) {
        Steps::Prompt(mBuddy, kEdgesPrompt);
        return true;
    }
    switch (step) {
        case 0:
            takeEdgeCount(text);
            break;
        case 1:
            return takeCentreOrEdge(text);
        case 2:
            if (mode == AboutCentre)
                takeRadius(text);
            else
                takeFirstEndpoint(text);
            break;
        case 3:
            takeSecondEndpoint(text);
            break;
        default:
            break;
    }
    return true;
}

void TLCmdDigitizeRegularPolygon::takeEdgeCount(const TLString& text) {
    // Text that is no number reads as 0 and gets the too-few answer.
    const int edges = text.ToInt();
    if (edges < kMinEdges) {
        Steps::Message(mBuddy, kTooFewEdges);
        Steps::Prompt(mBuddy, kEdgesPrompt);
    } else if (edges > kMaxEdges) {
        Steps::Message(mBuddy, "Please do not enter more than 360 edges!");
        Steps::Prompt(mBuddy, kEdgesPrompt);
    } else {
        edgeCount = edges;
        step = 1;
        Steps::Prompt(mBuddy, kCentreOrEdgePrompt);
    }
}

// A typed centre answers false, as this command always has.
bool TLCmdDigitizeRegularPolygon::takeCentreOrEdge(const TLString& text) {
    double x = 0, y = 0;
    if (TLDrawCommonTool::ReadInputPoint(text, x, y)) {
        centre = TLPoint(x, y);
        points.push_back(centre);
        mode = AboutCentre;
        step = 2;
        Steps::Prompt(mBuddy, kRadiusPrompt);
        return false;
    }
    if (text.CompareNoCase("E") == 0) {
        mode = OnEdge;
        step = 2;
        Steps::Prompt(mBuddy, kFirstEndpointPrompt);
    } else {
        Steps::Message(mBuddy, "Point coordinate or command input error, please re-enter!");
        Steps::Prompt(mBuddy, kCentreOrEdgePrompt);
    }
    return true;
}

void TLCmdDigitizeRegularPolygon::takeRadius(const TLString& text) {
    const double radius = std::fabs(text.ToDouble());
    if (radius == 0) {
        Steps::Message(mBuddy, "Input error!");
        Steps::Prompt(mBuddy, kRadiusPrompt);
        return;
    }
    Steps::ShowRing(band, TLShapeRings::PolygonAboutCentre(centre, radius, edgeCount));
    EndEntity();
    band->Update();
    finish();
}

void TLCmdDigitizeRegularPolygon::takeFirstEndpoint(const TLString& text) {
    double x = 0, y = 0;
    if (!TLDrawCommonTool::ReadInputPoint(text, x, y)) {
        Steps::Message(mBuddy, kPointError);
        Steps::Prompt(mBuddy, kFirstEndpointPrompt);
        return;
    }
    Steps::Prompt(mBuddy, kSecondEndpointPrompt);
    points.push_back(TLPoint(x, y));
    step = 3;
}

void TLCmdDigitizeRegularPolygon::takeSecondEndpoint(const TLString& text) {
    double x = 0, y = 0;
    if (!TLDrawCommonTool::ReadInputPoint(text, x, y)) {
        Steps::Message(mBuddy, kPointError);
        Steps::Prompt(mBuddy, kSecondEndpointPrompt);
        return;
    }
    const TLPoint first = points.at(0);
    const std::vector<TLPoint> ring = TLShapeRings::PolygonOnEdge(first, TLPoint(x, y), edgeCount);
    // The typed edge leaves its second endpoint out of the band, as it always has: the ring
    // holds the first endpoint and the constructed vertices only.
    band->Reset(TLRubberBand::PolygonBand);
    Steps::AddToBand(band, first);
    for (std::size_t i = 2; i < ring.size(); ++i) Steps::AddToBand(band, ring[i]);
    band->Update();
    EndEntity();
    finish();
}

void TLCmdDigitizeRegularPolygon::finish() {
    Reset();
    Steps::Prompt(mBuddy, kEdgesPrompt);
}

// ---- commit ----

bool TLCmdDigitizeRegularPolygon::EndEntity() {
    if (!band || band->GetCount() <= 3 || !editor || !editor->edit_layer() || !layer ||
        !Steps::IsPolygonLayer(layer))
        return false;
    TLRect rect;
    Steps::AddBandFeature(mBuddy, editor, layer, band, rect);
    points.clear();
    band->Reset(TLRubberBand::PolygonBand);
    Steps::Message(mBuddy, "Command:Drawing RegularPolygon");
    Steps::RefreshMap(mBuddy, rect);
    // Points the snapper kept while this polygon was drawn are of no use to the next one.
    if (snapTool && snapTool->CanSnap())
        TLSnapEnvironment::Instance()->getPointSnapper()->clearCache();
    return true;
}

}  // namespace TMObjects
