#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Digitizes a plotted flag on a pole as a computed polygon outline.
class TL_ACTIONEX_EXPORT TLCmdDigitizeFlag : public TLTool {
public:
    TLCmdDigitizeFlag();
    explicit TLCmdDigitizeFlag(TLToolBuddy* buddy);
    ~TLCmdDigitizeFlag() override;
};

}  // namespace TMObjects
