#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Digitizes a square chosen from a numbered menu of constructions.
class TL_ACTIONEX_EXPORT TLCmdDigitizeSquare : public TLTool {
  public:
    TLCmdDigitizeSquare();
    explicit TLCmdDigitizeSquare(TLToolBuddy* buddy);
    ~TLCmdDigitizeSquare() override;
};

}  // namespace TMObjects
