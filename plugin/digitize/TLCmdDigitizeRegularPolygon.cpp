#include "digitize/TLCmdDigitizeRegularPolygon.h"

namespace TMObjects {

TLCmdDigitizeRegularPolygon::TLCmdDigitizeRegularPolygon() = default;

TLCmdDigitizeRegularPolygon::TLCmdDigitizeRegularPolygon(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeRegularPolygon::~TLCmdDigitizeRegularPolygon() = default;

}  // namespace TMObjects
