#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Reshapes a line or polygon with a drawn connect line.
class TL_ACTIONEX_EXPORT TLToolPartConnect : public TLTool {
public:
    TLToolPartConnect();
    explicit TLToolPartConnect(TLToolBuddy* buddy);
    ~TLToolPartConnect() override;
};

}  // namespace TMObjects
