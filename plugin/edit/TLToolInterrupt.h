#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Breaks a selected line at one point, two points or a drawn line.
class TL_ACTIONEX_EXPORT TLToolInterrupt : public TLTool {
public:
    TLToolInterrupt();
    explicit TLToolInterrupt(TLToolBuddy* buddy);
    ~TLToolInterrupt() override;
};

}  // namespace TMObjects
