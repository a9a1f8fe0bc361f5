#include "measure/TLToolMeasureAngle.h"

namespace TMObjects {

TLToolMeasureAngle::TLToolMeasureAngle() = default;

TLToolMeasureAngle::TLToolMeasureAngle(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolMeasureAngle::~TLToolMeasureAngle() = default;

}  // namespace TMObjects
