#include "digitize/TLCmdDigitizeRing.h"

namespace TMObjects {

TLCmdDigitizeRing::TLCmdDigitizeRing() = default;

TLCmdDigitizeRing::TLCmdDigitizeRing(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeRing::~TLCmdDigitizeRing() = default;

}  // namespace TMObjects
