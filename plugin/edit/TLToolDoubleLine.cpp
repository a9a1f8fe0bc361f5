#include "edit/TLToolDoubleLine.h"

namespace TMObjects {

TLToolDoubleLine::TLToolDoubleLine() = default;

TLToolDoubleLine::TLToolDoubleLine(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolDoubleLine::~TLToolDoubleLine() = default;

}  // namespace TMObjects
