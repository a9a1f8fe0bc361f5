#include "measure/TLToolMeasureGirth.h"

namespace TMObjects {

TLToolMeasureGirth::TLToolMeasureGirth() = default;

TLToolMeasureGirth::TLToolMeasureGirth(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolMeasureGirth::~TLToolMeasureGirth() = default;

}  // namespace TMObjects
