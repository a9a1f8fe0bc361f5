#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Digitizes a line feature from clicks, typed points and constructions.
class TL_ACTIONEX_EXPORT TLCmdDigitizeLine : public TLTool {
  public:
    TLCmdDigitizeLine();
    explicit TLCmdDigitizeLine(TLToolBuddy* buddy);
    ~TLCmdDigitizeLine() override;
};

}  // namespace TMObjects
