#include "digitize/TLCmdDigitizeRightDoubleLine.h"

namespace TMObjects {

TLCmdDigitizeRightDoubleLine::TLCmdDigitizeRightDoubleLine() = default;

TLCmdDigitizeRightDoubleLine::TLCmdDigitizeRightDoubleLine(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeRightDoubleLine::~TLCmdDigitizeRightDoubleLine() = default;

}  // namespace TMObjects
