#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Digitizes a circular arc through three points as plain line vertices.
class TL_ACTIONEX_EXPORT TLCmdDigitizeArc : public TLTool {
public:
    TLCmdDigitizeArc();
    explicit TLCmdDigitizeArc(TLToolBuddy* buddy);
    ~TLCmdDigitizeArc() override;
};

}  // namespace TMObjects
