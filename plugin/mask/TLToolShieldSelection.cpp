#include "mask/TLToolShieldSelection.h"

namespace TMObjects {

TLToolShieldSelection::TLToolShieldSelection() = default;

TLToolShieldSelection::TLToolShieldSelection(TLToolBuddy* buddy) : TLToolShieldAreas(buddy) {}

TLToolShieldSelection::~TLToolShieldSelection() = default;

bool TLToolShieldSelection::IsCmd() {
    return true;
}

}  // namespace TMObjects
