#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Measures the terrain surface area inside a polygon on an elevation raster.
class TL_ACTIONEX_EXPORT TLSurfaceAreaMeasurement : public TLTool {
public:
    TLSurfaceAreaMeasurement();
    explicit TLSurfaceAreaMeasurement(TLToolBuddy* buddy);
    ~TLSurfaceAreaMeasurement() override;
};

}  // namespace TMObjects
