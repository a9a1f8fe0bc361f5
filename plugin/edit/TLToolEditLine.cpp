#include "edit/TLToolEditLine.h"

namespace TMObjects {

TLToolEditLine::TLToolEditLine() = default;

TLToolEditLine::TLToolEditLine(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolEditLine::~TLToolEditLine() = default;

}  // namespace TMObjects
