#include "survey/TLDigitizeOffsetDistance.h"

namespace TMObjects {

TLDigitizeOffsetDistance::TLDigitizeOffsetDistance() = default;

TLDigitizeOffsetDistance::TLDigitizeOffsetDistance(TLToolBuddy* buddy) : TLTool(buddy) {}

TLDigitizeOffsetDistance::~TLDigitizeOffsetDistance() = default;

}  // namespace TMObjects
