#include "raster/TLToolPixelInspector.h"

namespace TMObjects {

TLToolPixelInspector::TLToolPixelInspector() = default;

TLToolPixelInspector::TLToolPixelInspector(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolPixelInspector::~TLToolPixelInspector() = default;

}  // namespace TMObjects
