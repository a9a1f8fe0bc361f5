#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Measures the angle between two legs drawn on the map; read-only.
class TL_ACTIONEX_EXPORT TLToolMeasureAngle : public TLTool {
public:
    TLToolMeasureAngle();
    explicit TLToolMeasureAngle(TLToolBuddy* buddy);
    ~TLToolMeasureAngle() override;
};

}  // namespace TMObjects
