#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Digitizes a plotted arrow as a computed polygon outline.
class TL_ACTIONEX_EXPORT TLCmdDigitizeArrow : public TLTool {
public:
    TLCmdDigitizeArrow();
    explicit TLCmdDigitizeArrow(TLToolBuddy* buddy);
    ~TLCmdDigitizeArrow() override;
};

}  // namespace TMObjects
