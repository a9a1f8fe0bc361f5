#include "survey/TLDigitizeBackwardIntersection.h"

namespace TMObjects {

TLDigitizeBackwardIntersection::TLDigitizeBackwardIntersection() = default;

TLDigitizeBackwardIntersection::TLDigitizeBackwardIntersection(TLToolBuddy* buddy)
    : TLTool(buddy) {}

TLDigitizeBackwardIntersection::~TLDigitizeBackwardIntersection() = default;

}  // namespace TMObjects
