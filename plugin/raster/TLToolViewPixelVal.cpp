#include "raster/TLToolViewPixelVal.h"

namespace TMObjects {

TLToolViewPixelVal::TLToolViewPixelVal() = default;

TLToolViewPixelVal::TLToolViewPixelVal(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolViewPixelVal::~TLToolViewPixelVal() = default;

}  // namespace TMObjects
