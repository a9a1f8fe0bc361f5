#include "digitize/TLCmdDigitizeEllipse.h"

namespace TMObjects {

TLCmdDigitizeEllipse::TLCmdDigitizeEllipse() = default;

TLCmdDigitizeEllipse::TLCmdDigitizeEllipse(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeEllipse::~TLCmdDigitizeEllipse() = default;

}  // namespace TMObjects
