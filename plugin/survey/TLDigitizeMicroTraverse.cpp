#include "survey/TLDigitizeMicroTraverse.h"

namespace TMObjects {

TLDigitizeMicroTraverse::TLDigitizeMicroTraverse() = default;

TLDigitizeMicroTraverse::TLDigitizeMicroTraverse(TLToolBuddy* buddy) : TLTool(buddy) {}

TLDigitizeMicroTraverse::~TLDigitizeMicroTraverse() = default;

}  // namespace TMObjects
