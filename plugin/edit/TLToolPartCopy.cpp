#include "edit/TLToolPartCopy.h"

namespace TMObjects {

TLToolPartCopy::TLToolPartCopy() = default;

TLToolPartCopy::TLToolPartCopy(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolPartCopy::~TLToolPartCopy() = default;

}  // namespace TMObjects
