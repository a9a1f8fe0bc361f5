#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Measures the area of a drawn or picked polygon, in the plane or on the ellipsoid; read-only.
class TL_ACTIONEX_EXPORT TLToolMeasureArea : public TLTool {
public:
    TLToolMeasureArea();
    explicit TLToolMeasureArea(TLToolBuddy* buddy);
    ~TLToolMeasureArea() override;
};

}  // namespace TMObjects
