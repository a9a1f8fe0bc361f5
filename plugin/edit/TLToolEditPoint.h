#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Picks one vertex near the click and shows its map coordinates for editing.
class TL_ACTIONEX_EXPORT TLToolEditPoint : public TLTool {
public:
    TLToolEditPoint();
    explicit TLToolEditPoint(TLToolBuddy* buddy);
    ~TLToolEditPoint() override;
};

}  // namespace TMObjects
