#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Constructs a point by forward intersection, through its dialog.
class TL_ACTIONEX_EXPORT TLDigitizeForwardIntersection : public TLTool {
public:
    TLDigitizeForwardIntersection();
    explicit TLDigitizeForwardIntersection(TLToolBuddy* buddy);
    ~TLDigitizeForwardIntersection() override;
};

}  // namespace TMObjects
