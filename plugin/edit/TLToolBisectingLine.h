#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Holds its place in the host's tool pool; it has no behaviour of its own, so it keeps the base
// tool's answers.
class TL_ACTIONEX_EXPORT TLToolBisectingLine : public TLTool {
public:
    TLToolBisectingLine();
    explicit TLToolBisectingLine(TLToolBuddy* buddy);
    ~TLToolBisectingLine() override;
};

}  // namespace TMObjects
