#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Moves feature ends that lie near a selected boundary onto it.
class TL_ACTIONEX_EXPORT TLToolEdgeMatching : public TLTool {
public:
    TLToolEdgeMatching();
    explicit TLToolEdgeMatching(TLToolBuddy* buddy);
    ~TLToolEdgeMatching() override;
};

}  // namespace TMObjects
