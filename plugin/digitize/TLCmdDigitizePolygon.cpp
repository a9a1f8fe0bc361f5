#include "digitize/TLCmdDigitizePolygon.h"

namespace TMObjects {

TLCmdDigitizePolygon::TLCmdDigitizePolygon() = default;

TLCmdDigitizePolygon::TLCmdDigitizePolygon(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizePolygon::~TLCmdDigitizePolygon() = default;

}  // namespace TMObjects
