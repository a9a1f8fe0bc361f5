#include "raster/TLMeasurementForSurfaceDistance.h"

namespace TMObjects {

TLMeasurementForSurfaceDistance::TLMeasurementForSurfaceDistance() = default;

TLMeasurementForSurfaceDistance::TLMeasurementForSurfaceDistance(TLToolBuddy* buddy)
    : TLTool(buddy) {}

TLMeasurementForSurfaceDistance::~TLMeasurementForSurfaceDistance() = default;

}  // namespace TMObjects
