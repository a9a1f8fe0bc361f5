#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Places a new annotation where the user clicks.
class TL_ACTIONEX_EXPORT TLToolAddAnnotation : public TLTool {
public:
    TLToolAddAnnotation();
    explicit TLToolAddAnnotation(TLToolBuddy* buddy);
    ~TLToolAddAnnotation() override;
};

}  // namespace TMObjects
