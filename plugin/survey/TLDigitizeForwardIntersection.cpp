#include "survey/TLDigitizeForwardIntersection.h"

#include "survey/TMForwardIntersection.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

constexpr int kPickAngle1 = 3;
constexpr int kPickAngle2 = 4;
constexpr int kDrawP = 5;

}  // namespace

TLDigitizeForwardIntersection::TLDigitizeForwardIntersection() = default;

TLDigitizeForwardIntersection::TLDigitizeForwardIntersection(TLToolBuddy* buddy)
    : TLSurveyIntersectionTool(buddy) {}

TLDigitizeForwardIntersection::~TLDigitizeForwardIntersection() {
    delete rubberBand;
}

TMIntersectionDialog* TLDigitizeForwardIntersection::createDialog() {
    return new TMForwardIntersection;
}

int TLDigitizeForwardIntersection::drawCode() const {
    return kDrawP;
}

bool TLDigitizeForwardIntersection::anglePending() const {
    return pickCode == kPickAngle1 || pickCode == kPickAngle2;
}

void TLDigitizeForwardIntersection::dropBand() {
    delete rubberBand;
    rubberBand = nullptr;
}

void TLDigitizeForwardIntersection::activate() {
    dropBand();
    TLSurveyIntersectionTool::activate();
}

void TLDigitizeForwardIntersection::onLayerFound() {
    rubberBand = makeBand();
}

void TLDigitizeForwardIntersection::deactivate() {
    if (rubberBand) {
        rubberBand->Reset(TLRubberBand::LineBand);
        rubberBand->Update();
    }
    dropBand();
    TLSurveyIntersectionTool::deactivate();
}

// The angle being picked is shown at the vertex it is observed at: B, A, pointer for a1 and
// A, B, pointer for a2.
bool TLDigitizeForwardIntersection::OnMouseMove(TLMouseButton, int x, int y) {
    if (!canEdit() || !rubberBand) return true;
    const TLPoint cursor = mapPoint(x, y);
    rubberBand->Reset(TLRubberBand::LineBand);
    if (pickCode == kPickAngle1) drawLine(rubberBand, pointB, pointA, cursor);
    if (pickCode == kPickAngle2) drawLine(rubberBand, pointA, pointB, cursor);
    return true;
}

void TLDigitizeForwardIntersection::onPicked(const TLPoint&) {
    if (anglePending() && rubberBand) rubberBand->Reset(TLRubberBand::LineBand);
}

bool TLDigitizeForwardIntersection::setMultipleInformation(TLArray<TLString> texts) {
    if (anglePending()) return takeKnownPoints(texts);
    if (pickCode != kDrawP) return false;
    return drawP(texts);
}

void TLDigitizeForwardIntersection::afterDraw(bool drawn, const TLRect& rect) {
    if (drawn) {
        if (rubberBand) rubberBand->Reset(TLRubberBand::LineBand);
        mBuddy->GetMapView()->RefreshMap(false, rect);
    }
    Reset();
}

}  // namespace TMObjects
