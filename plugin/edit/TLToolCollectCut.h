#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Trims a line feature at its crossings with a cutting feature.
class TL_ACTIONEX_EXPORT TLToolCollectCut : public TLTool {
public:
    TLToolCollectCut();
    explicit TLToolCollectCut(TLToolBuddy* buddy);
    ~TLToolCollectCut() override;
};

}  // namespace TMObjects
