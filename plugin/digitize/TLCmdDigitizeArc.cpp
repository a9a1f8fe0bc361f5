#include "digitize/TLCmdDigitizeArc.h"

namespace TMObjects {

TLCmdDigitizeArc::TLCmdDigitizeArc() = default;

TLCmdDigitizeArc::TLCmdDigitizeArc(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeArc::~TLCmdDigitizeArc() = default;

}  // namespace TMObjects
