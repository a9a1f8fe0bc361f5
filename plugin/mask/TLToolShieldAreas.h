#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Shared base of the shield tools that mask the view to one polygon; not registered by itself.
class TL_ACTIONEX_EXPORT TLToolShieldAreas : public TLTool {
public:
    TLToolShieldAreas();
    explicit TLToolShieldAreas(TLToolBuddy* buddy);
    ~TLToolShieldAreas() override;
};

}  // namespace TMObjects
