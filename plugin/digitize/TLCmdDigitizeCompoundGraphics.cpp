#include "digitize/TLCmdDigitizeCompoundGraphics.h"

namespace TMObjects {

TLCmdDigitizeCompoundGraphics::TLCmdDigitizeCompoundGraphics() = default;

TLCmdDigitizeCompoundGraphics::TLCmdDigitizeCompoundGraphics(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeCompoundGraphics::~TLCmdDigitizeCompoundGraphics() = default;

}  // namespace TMObjects
