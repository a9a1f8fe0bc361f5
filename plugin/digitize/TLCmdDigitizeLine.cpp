#include "digitize/TLCmdDigitizeLine.h"

namespace TMObjects {

TLCmdDigitizeLine::TLCmdDigitizeLine() = default;

TLCmdDigitizeLine::TLCmdDigitizeLine(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeLine::~TLCmdDigitizeLine() = default;

}  // namespace TMObjects
