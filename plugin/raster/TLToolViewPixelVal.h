#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Shows the value, row and column of the raster pixel under the click; read-only.
class TL_ACTIONEX_EXPORT TLToolViewPixelVal : public TLTool {
public:
    TLToolViewPixelVal();
    explicit TLToolViewPixelVal(TLToolBuddy* buddy);
    ~TLToolViewPixelVal() override;
};

}  // namespace TMObjects
