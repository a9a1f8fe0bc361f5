#include "survey/TLDigitizeDirectionIntersection.h"

namespace TMObjects {

TLDigitizeDirectionIntersection::TLDigitizeDirectionIntersection() = default;

TLDigitizeDirectionIntersection::TLDigitizeDirectionIntersection(TLToolBuddy* buddy)
    : TLTool(buddy) {}

TLDigitizeDirectionIntersection::~TLDigitizeDirectionIntersection() = default;

}  // namespace TMObjects
