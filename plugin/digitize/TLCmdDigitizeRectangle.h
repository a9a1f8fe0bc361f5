#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Digitizes a rectangle chosen from a numbered menu of constructions.
class TL_ACTIONEX_EXPORT TLCmdDigitizeRectangle : public TLTool {
  public:
    TLCmdDigitizeRectangle();
    explicit TLCmdDigitizeRectangle(TLToolBuddy* buddy);
    ~TLCmdDigitizeRectangle() override;
};

}  // namespace TMObjects
