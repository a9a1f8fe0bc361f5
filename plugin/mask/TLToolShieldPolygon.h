#pragma once

#include "TLPluginExport.h"
#include "mask/TLToolShieldAreas.h"

namespace TMObjects {

// Masks the view to a clicked polygon: each press adds a vertex, a double click with three or
// more vertices sets the mask. With Control held each new side runs straight across or up.
class TL_ACTIONEX_EXPORT TLToolShieldPolygon : public TLToolShieldAreas {
public:
    TLToolShieldPolygon();
    explicit TLToolShieldPolygon(TLToolBuddy* buddy);
    ~TLToolShieldPolygon() override;

    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;

private:
    // The map point under the pointer, set straight from the last vertex under Control.
    TLPoint pointerPoint(int x, int y);
    // The vertices do not all lie on one line: a ring folded onto a line would hide the whole map.
    bool enclosesArea() const;
};

}  // namespace TMObjects
