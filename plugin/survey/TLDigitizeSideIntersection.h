#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Constructs a point by side intersection, through its dialog.
class TL_ACTIONEX_EXPORT TLDigitizeSideIntersection : public TLTool {
public:
    TLDigitizeSideIntersection();
    explicit TLDigitizeSideIntersection(TLToolBuddy* buddy);
    ~TLDigitizeSideIntersection() override;
};

}  // namespace TMObjects
