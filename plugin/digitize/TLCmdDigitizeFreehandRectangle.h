#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Digitizes a rectangle of any orientation from three clicks.
class TL_ACTIONEX_EXPORT TLCmdDigitizeFreehandRectangle : public TLTool {
  public:
    TLCmdDigitizeFreehandRectangle();
    explicit TLCmdDigitizeFreehandRectangle(TLToolBuddy* buddy);
    ~TLCmdDigitizeFreehandRectangle() override;
};

}  // namespace TMObjects
