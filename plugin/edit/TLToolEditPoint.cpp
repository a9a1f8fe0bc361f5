#include "edit/TLToolEditPoint.h"

namespace TMObjects {

TLToolEditPoint::TLToolEditPoint() = default;

TLToolEditPoint::TLToolEditPoint(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolEditPoint::~TLToolEditPoint() = default;

}  // namespace TMObjects
