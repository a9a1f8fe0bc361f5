#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Digitizes a circle as a polygon of computed vertices.
class TL_ACTIONEX_EXPORT TLCmdDigitizeCircle : public TLTool {
public:
    TLCmdDigitizeCircle();
    explicit TLCmdDigitizeCircle(TLToolBuddy* buddy);
    ~TLCmdDigitizeCircle() override;
};

}  // namespace TMObjects
