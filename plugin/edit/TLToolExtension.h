#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Lengthens a line to a target line or by a typed distance.
class TL_ACTIONEX_EXPORT TLToolExtension : public TLTool {
public:
    TLToolExtension();
    explicit TLToolExtension(TLToolBuddy* buddy);
    ~TLToolExtension() override;
};

}  // namespace TMObjects
