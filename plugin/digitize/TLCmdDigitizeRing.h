#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Digitizes an annulus from a centre and two typed radii.
class TL_ACTIONEX_EXPORT TLCmdDigitizeRing : public TLTool {
public:
    TLCmdDigitizeRing();
    explicit TLCmdDigitizeRing(TLToolBuddy* buddy);
    ~TLCmdDigitizeRing() override;
};

}  // namespace TMObjects
