#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Adds up the lengths of the features picked on the current layer; read-only.
class TL_ACTIONEX_EXPORT TLToolMeasureGirth : public TLTool {
public:
    TLToolMeasureGirth();
    explicit TLToolMeasureGirth(TLToolBuddy* buddy);
    ~TLToolMeasureGirth() override;
};

}  // namespace TMObjects
