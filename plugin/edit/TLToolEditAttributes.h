#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Edits the attributes of the features caught in a dragged box.
class TL_ACTIONEX_EXPORT TLToolEditAttributes : public TLTool {
public:
    TLToolEditAttributes();
    explicit TLToolEditAttributes(TLToolBuddy* buddy);
    ~TLToolEditAttributes() override;
};

}  // namespace TMObjects
