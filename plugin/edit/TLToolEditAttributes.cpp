#include "edit/TLToolEditAttributes.h"

namespace TMObjects {

TLToolEditAttributes::TLToolEditAttributes() = default;

TLToolEditAttributes::TLToolEditAttributes(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolEditAttributes::~TLToolEditAttributes() = default;

}  // namespace TMObjects
