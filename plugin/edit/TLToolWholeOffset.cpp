#include "edit/TLToolWholeOffset.h"

namespace TMObjects {

TLToolWholeOffset::TLToolWholeOffset() = default;

TLToolWholeOffset::TLToolWholeOffset(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolWholeOffset::~TLToolWholeOffset() = default;

}  // namespace TMObjects
