#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Digitizes a regular polygon about a centre or on a given edge.
class TL_ACTIONEX_EXPORT TLCmdDigitizeRegularPolygon : public TLTool {
  public:
    TLCmdDigitizeRegularPolygon();
    explicit TLCmdDigitizeRegularPolygon(TLToolBuddy* buddy);
    ~TLCmdDigitizeRegularPolygon() override;
};

}  // namespace TMObjects
