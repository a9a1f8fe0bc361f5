#include "survey/TLDigitizeBackwardIntersection.h"

#include "survey/TMBackwardIntersection.h"

namespace TMObjects {

namespace {

constexpr int kPickC = 3;
constexpr int kDrawP = 4;

}  // namespace

TLDigitizeBackwardIntersection::TLDigitizeBackwardIntersection() = default;

TLDigitizeBackwardIntersection::TLDigitizeBackwardIntersection(TLToolBuddy* buddy)
    : TLSurveyIntersectionTool(buddy) {}

TLDigitizeBackwardIntersection::~TLDigitizeBackwardIntersection() = default;

void TLDigitizeBackwardIntersection::Reset() {
    TLSurveyIntersectionTool::Reset();
    pointC = TLPoint();
}

TMIntersectionDialog* TLDigitizeBackwardIntersection::createDialog() {
    return new TMBackwardIntersection;
}

int TLDigitizeBackwardIntersection::drawCode() const {
    return kDrawP;
}

void TLDigitizeBackwardIntersection::onPicked(const TLPoint& p) {
    if (pickCode == kPickC) pointC = p;
}

}  // namespace TMObjects
