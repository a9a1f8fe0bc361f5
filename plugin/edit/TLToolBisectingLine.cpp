#include "edit/TLToolBisectingLine.h"

namespace TMObjects {

TLToolBisectingLine::TLToolBisectingLine() = default;

TLToolBisectingLine::TLToolBisectingLine(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolBisectingLine::~TLToolBisectingLine() = default;

}  // namespace TMObjects
