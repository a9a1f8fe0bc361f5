#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Measures a polyline clicked in on the map, segment by segment; read-only.
class TL_ACTIONEX_EXPORT TLToolMeasureLine : public TLTool {
public:
    TLToolMeasureLine();
    explicit TLToolMeasureLine(TLToolBuddy* buddy);
    ~TLToolMeasureLine() override;
};

}  // namespace TMObjects
