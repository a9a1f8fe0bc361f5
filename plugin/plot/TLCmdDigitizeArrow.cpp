#include "plot/TLCmdDigitizeArrow.h"

namespace TMObjects {

TLCmdDigitizeArrow::TLCmdDigitizeArrow() = default;

TLCmdDigitizeArrow::TLCmdDigitizeArrow(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeArrow::~TLCmdDigitizeArrow() = default;

}  // namespace TMObjects
