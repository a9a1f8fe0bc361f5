#include "digitize/TLCmdDigitizeFreehandRectangle.h"

namespace TMObjects {

TLCmdDigitizeFreehandRectangle::TLCmdDigitizeFreehandRectangle() = default;

TLCmdDigitizeFreehandRectangle::TLCmdDigitizeFreehandRectangle(TLToolBuddy* buddy)
    : TLTool(buddy) {}

TLCmdDigitizeFreehandRectangle::~TLCmdDigitizeFreehandRectangle() = default;

}  // namespace TMObjects
