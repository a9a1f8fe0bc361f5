#include "survey/TLDigitizeForwardIntersection.h"

namespace TMObjects {

TLDigitizeForwardIntersection::TLDigitizeForwardIntersection() = default;

TLDigitizeForwardIntersection::TLDigitizeForwardIntersection(TLToolBuddy* buddy) : TLTool(buddy) {}

TLDigitizeForwardIntersection::~TLDigitizeForwardIntersection() = default;

}  // namespace TMObjects
