#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// An exported editing tool that the plugin does not register.
class TL_ACTIONEX_EXPORT TLToolEditFeature : public TLTool {
public:
    TLToolEditFeature();
    explicit TLToolEditFeature(TLToolBuddy* buddy);
    ~TLToolEditFeature() override;
};

}  // namespace TMObjects
