#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Picks an existing annotation and edits its attributes.
class TL_ACTIONEX_EXPORT TLToolEditAnnotation : public TLTool {
public:
    TLToolEditAnnotation();
    explicit TLToolEditAnnotation(TLToolBuddy* buddy);
    ~TLToolEditAnnotation() override;
};

}  // namespace TMObjects
