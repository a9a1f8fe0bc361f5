#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Reports the slope of an elevation raster at a clicked point.
class TL_ACTIONEX_EXPORT TLSlopeCalculation : public TLTool {
public:
    TLSlopeCalculation();
    explicit TLSlopeCalculation(TLToolBuddy* buddy);
    ~TLSlopeCalculation() override;
};

}  // namespace TMObjects
