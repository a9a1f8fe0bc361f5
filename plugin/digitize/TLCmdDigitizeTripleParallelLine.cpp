#include "digitize/TLCmdDigitizeTripleParallelLine.h"

namespace TMObjects {

TLCmdDigitizeTripleParallelLine::TLCmdDigitizeTripleParallelLine() = default;

TLCmdDigitizeTripleParallelLine::TLCmdDigitizeTripleParallelLine(TLToolBuddy* buddy)
    : TLTool(buddy) {}

TLCmdDigitizeTripleParallelLine::~TLCmdDigitizeTripleParallelLine() = default;

}  // namespace TMObjects
