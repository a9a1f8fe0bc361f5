#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Measures the distance along the terrain between two clicked points.
class TL_ACTIONEX_EXPORT TLMeasurementForSurfaceDistance : public TLTool {
public:
    TLMeasurementForSurfaceDistance();
    explicit TLMeasurementForSurfaceDistance(TLToolBuddy* buddy);
    ~TLMeasurementForSurfaceDistance() override;
};

}  // namespace TMObjects
