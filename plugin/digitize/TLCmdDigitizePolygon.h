#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Digitizes a polygon feature with the input machine of the line command.
class TL_ACTIONEX_EXPORT TLCmdDigitizePolygon : public TLTool {
public:
    TLCmdDigitizePolygon();
    explicit TLCmdDigitizePolygon(TLToolBuddy* buddy);
    ~TLCmdDigitizePolygon() override;
};

}  // namespace TMObjects
