#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Removes the mask from the view.
class TL_ACTIONEX_EXPORT TLToolShieldAreasClear : public TLTool {
public:
    TLToolShieldAreasClear();
    explicit TLToolShieldAreasClear(TLToolBuddy* buddy);
    ~TLToolShieldAreasClear() override;

    // Takes the mask off the view, whether one is set or not.
    void activate() override;
    // Does its whole work in activate, so the host runs it as a one-shot command.
    bool IsCmd() override;
};

}  // namespace TMObjects
