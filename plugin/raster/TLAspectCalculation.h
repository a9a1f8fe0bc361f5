#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Reports the aspect of an elevation raster at a clicked point.
class TL_ACTIONEX_EXPORT TLAspectCalculation : public TLTool {
public:
    TLAspectCalculation();
    explicit TLAspectCalculation(TLToolBuddy* buddy);
    ~TLAspectCalculation() override;
};

}  // namespace TMObjects
