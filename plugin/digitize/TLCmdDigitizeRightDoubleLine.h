#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Digitizes a line together with a parallel line on its right.
class TL_ACTIONEX_EXPORT TLCmdDigitizeRightDoubleLine : public TLTool {
public:
    TLCmdDigitizeRightDoubleLine();
    explicit TLCmdDigitizeRightDoubleLine(TLToolBuddy* buddy);
    ~TLCmdDigitizeRightDoubleLine() override;
};

}  // namespace TMObjects
