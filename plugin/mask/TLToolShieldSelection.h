#pragma once

#include "TLPluginExport.h"
#include "mask/TLToolShieldAreas.h"

namespace TMObjects {

// Masks the view to the selected polygon feature.
class TL_ACTIONEX_EXPORT TLToolShieldSelection : public TLToolShieldAreas {
public:
    TLToolShieldSelection();
    explicit TLToolShieldSelection(TLToolBuddy* buddy);
    ~TLToolShieldSelection() override;
    // Does its whole work in activate, so the host runs it as a one-shot command.
    bool IsCmd() override;
};

}  // namespace TMObjects
