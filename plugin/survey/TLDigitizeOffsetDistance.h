#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Constructs a point at an offset distance from known points, through its dialog.
class TL_ACTIONEX_EXPORT TLDigitizeOffsetDistance : public TLTool {
public:
    TLDigitizeOffsetDistance();
    explicit TLDigitizeOffsetDistance(TLToolBuddy* buddy);
    ~TLDigitizeOffsetDistance() override;
};

}  // namespace TMObjects
