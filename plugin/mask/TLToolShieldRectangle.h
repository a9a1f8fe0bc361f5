#pragma once

#include "TLPluginExport.h"
#include "mask/TLToolShieldAreas.h"

namespace TMObjects {

// Masks the view to a dragged rectangle: a press on one corner, a press or a double click on the
// opposite one. The tool stays on, so the next press starts a new rectangle.
class TL_ACTIONEX_EXPORT TLToolShieldRectangle : public TLToolShieldAreas {
public:
    TLToolShieldRectangle();
    explicit TLToolShieldRectangle(TLToolBuddy* buddy);
    ~TLToolShieldRectangle() override;

    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;

private:
    // The press or double click on the second corner; a corner too near the first, in either
    // direction, is ignored so that a slip of the hand masks nothing.
    void takeSecondCorner(int x, int y);
};

}  // namespace TMObjects
