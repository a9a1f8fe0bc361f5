#include "digitize/TLCmdDigitizeSquare.h"

namespace TMObjects {

TLCmdDigitizeSquare::TLCmdDigitizeSquare() = default;

TLCmdDigitizeSquare::TLCmdDigitizeSquare(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeSquare::~TLCmdDigitizeSquare() = default;

}  // namespace TMObjects
