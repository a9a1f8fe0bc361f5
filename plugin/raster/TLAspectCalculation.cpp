#include "raster/TLAspectCalculation.h"

namespace TMObjects {

TLAspectCalculation::TLAspectCalculation() = default;

TLAspectCalculation::TLAspectCalculation(TLToolBuddy* buddy) : TLTool(buddy) {}

TLAspectCalculation::~TLAspectCalculation() = default;

}  // namespace TMObjects
