#pragma once

#include "TLPluginExport.h"
#include "mask/TLToolShieldAreas.h"

namespace TMObjects {

// Masks the view to a dragged rectangle.
class TL_ACTIONEX_EXPORT TLToolShieldRectangle : public TLToolShieldAreas {
public:
    TLToolShieldRectangle();
    explicit TLToolShieldRectangle(TLToolBuddy* buddy);
    ~TLToolShieldRectangle() override;
};

}  // namespace TMObjects
