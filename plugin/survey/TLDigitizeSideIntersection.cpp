#include "survey/TLDigitizeSideIntersection.h"

#include "survey/TMSideIntersection.h"
#include "tlmap/TLRubberBand.h"

namespace TMObjects {

namespace {

constexpr int kPickAP = 3;
constexpr int kPickBP = 4;
constexpr int kDrawP = 5;

}  // namespace

TLDigitizeSideIntersection::TLDigitizeSideIntersection() = default;

TLDigitizeSideIntersection::TLDigitizeSideIntersection(TLToolBuddy* buddy)
    : TLSurveyIntersectionTool(buddy) {}

TLDigitizeSideIntersection::~TLDigitizeSideIntersection() {
    delete bandToA;
    delete bandToB;
}

void TLDigitizeSideIntersection::Reset() {
    TLSurveyIntersectionTool::Reset();
    delete bandToA;
    delete bandToB;
    bandToA = nullptr;
    bandToB = nullptr;
}

TMIntersectionDialog* TLDigitizeSideIntersection::createDialog() {
    return new TMSideIntersection;
}

int TLDigitizeSideIntersection::drawCode() const {
    return kDrawP;
}

void TLDigitizeSideIntersection::onLayerFound() {
    bandToA = makeBand();
    bandToB = makeBand();
}

// The tool knows A and B only as clicked: typed points are not handed to it.
void TLDigitizeSideIntersection::follow(const TLPoint& p) {
    if (pickCode == kPickAP) drawLine(bandToA, pointB, pointA, p);
    if (pickCode == kPickBP) drawLine(bandToB, pointA, pointB, p);
}

bool TLDigitizeSideIntersection::OnMouseMove(TLMouseButton, int x, int y) {
    if (pickCode == kPickAP || pickCode == kPickBP) follow(mapPoint(x, y));
    return true;
}

void TLDigitizeSideIntersection::onPicked(const TLPoint& p) {
    follow(p);
}

}  // namespace TMObjects
