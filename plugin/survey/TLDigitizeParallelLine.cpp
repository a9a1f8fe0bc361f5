#include "survey/TLDigitizeParallelLine.h"

namespace TMObjects {

TLDigitizeParallelLine::TLDigitizeParallelLine() = default;

TLDigitizeParallelLine::TLDigitizeParallelLine(TLToolBuddy* buddy) : TLTool(buddy) {}

TLDigitizeParallelLine::~TLDigitizeParallelLine() = default;

}  // namespace TMObjects
