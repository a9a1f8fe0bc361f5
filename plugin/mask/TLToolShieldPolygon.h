#pragma once

#include "TLPluginExport.h"
#include "mask/TLToolShieldAreas.h"

namespace TMObjects {

// Masks the view to a clicked polygon.
class TL_ACTIONEX_EXPORT TLToolShieldPolygon : public TLToolShieldAreas {
public:
    TLToolShieldPolygon();
    explicit TLToolShieldPolygon(TLToolBuddy* buddy);
    ~TLToolShieldPolygon() override;
};

}  // namespace TMObjects
