#include "digitize/TLCmdDigitizeRectangle.h"

namespace TMObjects {

TLCmdDigitizeRectangle::TLCmdDigitizeRectangle() = default;

TLCmdDigitizeRectangle::TLCmdDigitizeRectangle(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeRectangle::~TLCmdDigitizeRectangle() = default;

}  // namespace TMObjects
