#include "digitize/TLCmdDigitizeLeftDoubleLine.h"

namespace TMObjects {

TLCmdDigitizeLeftDoubleLine::TLCmdDigitizeLeftDoubleLine() = default;

TLCmdDigitizeLeftDoubleLine::TLCmdDigitizeLeftDoubleLine(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeLeftDoubleLine::~TLCmdDigitizeLeftDoubleLine() = default;

}  // namespace TMObjects
