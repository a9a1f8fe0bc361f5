#include "raster/TLSlopeCalculation.h"

namespace TMObjects {

TLSlopeCalculation::TLSlopeCalculation() = default;

TLSlopeCalculation::TLSlopeCalculation(TLToolBuddy* buddy) : TLTool(buddy) {}

TLSlopeCalculation::~TLSlopeCalculation() = default;

}  // namespace TMObjects
