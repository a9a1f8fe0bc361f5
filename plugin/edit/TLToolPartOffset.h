#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Moves a vertex, a stretch or a whole feature by the mouse.
class TL_ACTIONEX_EXPORT TLToolPartOffset : public TLTool {
public:
    TLToolPartOffset();
    explicit TLToolPartOffset(TLToolBuddy* buddy);
    ~TLToolPartOffset() override;
};

}  // namespace TMObjects
