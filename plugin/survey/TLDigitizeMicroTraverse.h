#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Constructs one micro traverse leg from a start point, an end point, an angle and a distance.
class TL_ACTIONEX_EXPORT TLDigitizeMicroTraverse : public TLTool {
public:
    TLDigitizeMicroTraverse();
    explicit TLDigitizeMicroTraverse(TLToolBuddy* buddy);
    ~TLDigitizeMicroTraverse() override;
};

}  // namespace TMObjects
