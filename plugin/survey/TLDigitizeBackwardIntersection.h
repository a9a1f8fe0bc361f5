#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Constructs a point by backward intersection (resection), through its dialog.
class TL_ACTIONEX_EXPORT TLDigitizeBackwardIntersection : public TLTool {
public:
    TLDigitizeBackwardIntersection();
    explicit TLDigitizeBackwardIntersection(TLToolBuddy* buddy);
    ~TLDigitizeBackwardIntersection() override;
};

}  // namespace TMObjects
