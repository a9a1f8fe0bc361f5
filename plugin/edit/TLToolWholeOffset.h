#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Moves all selected features by a typed offset.
class TL_ACTIONEX_EXPORT TLToolWholeOffset : public TLTool {
public:
    TLToolWholeOffset();
    explicit TLToolWholeOffset(TLToolBuddy* buddy);
    ~TLToolWholeOffset() override;
};

}  // namespace TMObjects
