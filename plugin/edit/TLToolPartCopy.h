#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Copies the stretch between two vertices of a feature into a line layer.
class TL_ACTIONEX_EXPORT TLToolPartCopy : public TLTool {
public:
    TLToolPartCopy();
    explicit TLToolPartCopy(TLToolBuddy* buddy);
    ~TLToolPartCopy() override;
};

}  // namespace TMObjects
