#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Shows the 5 by 5 block of raster pixels around the click, band by band; read-only.
class TL_ACTIONEX_EXPORT TLToolPixelInspector : public TLTool {
public:
    TLToolPixelInspector();
    explicit TLToolPixelInspector(TLToolBuddy* buddy);
    ~TLToolPixelInspector() override;
};

}  // namespace TMObjects
