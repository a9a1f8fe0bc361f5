#include "digitize/TLCmdDigitizeCircle.h"

namespace TMObjects {

TLCmdDigitizeCircle::TLCmdDigitizeCircle() = default;

TLCmdDigitizeCircle::TLCmdDigitizeCircle(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeCircle::~TLCmdDigitizeCircle() = default;

}  // namespace TMObjects
