#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Shows the features and attributes under a click or a dragged rectangle.
class TL_ACTIONEX_EXPORT TLToolIdentifyFeature : public TLTool {
public:
    TLToolIdentifyFeature();
    explicit TLToolIdentifyFeature(TLToolBuddy* buddy);
    ~TLToolIdentifyFeature() override;
};

}  // namespace TMObjects
