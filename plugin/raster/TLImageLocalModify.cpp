#include "raster/TLImageLocalModify.h"

namespace TMObjects {

TLImageLocalModify::TLImageLocalModify() = default;

TLImageLocalModify::TLImageLocalModify(TLToolBuddy* buddy) : TLTool(buddy) {}

TLImageLocalModify::~TLImageLocalModify() = default;

}  // namespace TMObjects
