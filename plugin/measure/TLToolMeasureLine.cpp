#include "measure/TLToolMeasureLine.h"

namespace TMObjects {

TLToolMeasureLine::TLToolMeasureLine() = default;

TLToolMeasureLine::TLToolMeasureLine(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolMeasureLine::~TLToolMeasureLine() = default;

}  // namespace TMObjects
