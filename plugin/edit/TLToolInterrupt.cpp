#include "edit/TLToolInterrupt.h"

namespace TMObjects {

TLToolInterrupt::TLToolInterrupt() = default;

TLToolInterrupt::TLToolInterrupt(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolInterrupt::~TLToolInterrupt() = default;

}  // namespace TMObjects
