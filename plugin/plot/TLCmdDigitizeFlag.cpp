#include "plot/TLCmdDigitizeFlag.h"

namespace TMObjects {

TLCmdDigitizeFlag::TLCmdDigitizeFlag() = default;

TLCmdDigitizeFlag::TLCmdDigitizeFlag(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeFlag::~TLCmdDigitizeFlag() = default;

}  // namespace TMObjects
