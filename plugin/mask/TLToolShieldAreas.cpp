#include "mask/TLToolShieldAreas.h"

namespace TMObjects {

TLToolShieldAreas::TLToolShieldAreas() = default;

TLToolShieldAreas::TLToolShieldAreas(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolShieldAreas::~TLToolShieldAreas() = default;

}  // namespace TMObjects
