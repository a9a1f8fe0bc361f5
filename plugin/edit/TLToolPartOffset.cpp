#include "edit/TLToolPartOffset.h"

namespace TMObjects {

TLToolPartOffset::TLToolPartOffset() = default;

TLToolPartOffset::TLToolPartOffset(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolPartOffset::~TLToolPartOffset() = default;

}  // namespace TMObjects
