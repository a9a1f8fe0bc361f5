#include "mask/TLToolShieldAreasClear.h"

namespace TMObjects {

TLToolShieldAreasClear::TLToolShieldAreasClear() = default;

TLToolShieldAreasClear::TLToolShieldAreasClear(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolShieldAreasClear::~TLToolShieldAreasClear() = default;

bool TLToolShieldAreasClear::IsCmd() {
    return true;
}

}  // namespace TMObjects
