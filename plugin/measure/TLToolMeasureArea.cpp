#include "measure/TLToolMeasureArea.h"

namespace TMObjects {

TLToolMeasureArea::TLToolMeasureArea() = default;

TLToolMeasureArea::TLToolMeasureArea(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolMeasureArea::~TLToolMeasureArea() = default;

}  // namespace TMObjects
