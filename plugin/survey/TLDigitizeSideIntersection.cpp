#include "survey/TLDigitizeSideIntersection.h"

namespace TMObjects {

TLDigitizeSideIntersection::TLDigitizeSideIntersection() = default;

TLDigitizeSideIntersection::TLDigitizeSideIntersection(TLToolBuddy* buddy) : TLTool(buddy) {}

TLDigitizeSideIntersection::~TLDigitizeSideIntersection() = default;

}  // namespace TMObjects
