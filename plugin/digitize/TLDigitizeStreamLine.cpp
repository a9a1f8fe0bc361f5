#include "digitize/TLDigitizeStreamLine.h"

namespace TMObjects {

TLDigitizeStreamLine::TLDigitizeStreamLine() = default;

TLDigitizeStreamLine::TLDigitizeStreamLine(TLToolBuddy* buddy) : TLTool(buddy) {}

TLDigitizeStreamLine::~TLDigitizeStreamLine() = default;

}  // namespace TMObjects
