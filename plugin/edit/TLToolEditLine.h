#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Picks a feature and lets the user edit its vertices in a table.
class TL_ACTIONEX_EXPORT TLToolEditLine : public TLTool {
public:
    TLToolEditLine();
    explicit TLToolEditLine(TLToolBuddy* buddy);
    ~TLToolEditLine() override;
};

}  // namespace TMObjects
