#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Holds its place in the host's tool pool; it has no behaviour of its own, so it keeps the base
// tool's answers.
class TL_ACTIONEX_EXPORT TLToolCopyBlock : public TLTool {
public:
    TLToolCopyBlock();
    explicit TLToolCopyBlock(TLToolBuddy* buddy);
    ~TLToolCopyBlock() override;
};

}  // namespace TMObjects
