#include "raster/TLSurfaceAreaMeasurement.h"

namespace TMObjects {

TLSurfaceAreaMeasurement::TLSurfaceAreaMeasurement() = default;

TLSurfaceAreaMeasurement::TLSurfaceAreaMeasurement(TLToolBuddy* buddy) : TLTool(buddy) {}

TLSurfaceAreaMeasurement::~TLSurfaceAreaMeasurement() = default;

}  // namespace TMObjects
