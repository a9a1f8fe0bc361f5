#include "survey/TLDigitizeVerticalDistance.h"

namespace TMObjects {

TLDigitizeVerticalDistance::TLDigitizeVerticalDistance() = default;

TLDigitizeVerticalDistance::TLDigitizeVerticalDistance(TLToolBuddy* buddy) : TLTool(buddy) {}

TLDigitizeVerticalDistance::~TLDigitizeVerticalDistance() = default;

}  // namespace TMObjects
