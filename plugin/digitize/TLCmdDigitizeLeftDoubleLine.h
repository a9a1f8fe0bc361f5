#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Digitizes a line together with a parallel line on its left.
class TL_ACTIONEX_EXPORT TLCmdDigitizeLeftDoubleLine : public TLTool {
public:
    TLCmdDigitizeLeftDoubleLine();
    explicit TLCmdDigitizeLeftDoubleLine(TLToolBuddy* buddy);
    ~TLCmdDigitizeLeftDoubleLine() override;
};

}  // namespace TMObjects
