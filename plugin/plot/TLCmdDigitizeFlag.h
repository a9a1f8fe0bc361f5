#pragma once

#include <cstdint>
#include <vector>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLRubberBand;
class TLEditor;
class TLFeatureLayer;

// Digitizes a plotted flag on a pole as a computed polygon outline: a pennant, a square flag or
// a waving flag, from the top of the pole and the far lower corner. Only the outline is stored.
class TL_ACTIONEX_EXPORT TLCmdDigitizeFlag : public TLTool {
public:
    TLCmdDigitizeFlag();
    explicit TLCmdDigitizeFlag(TLToolBuddy* buddy);
    ~TLCmdDigitizeFlag() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;

    // Writes what the band shows as one polygon feature; false when it holds three points or
    // fewer or the layer is no polygon layer.
    bool EndEntity();
    // Back to the type menu with the pennant as the type; the band is left alone.
    void Reset();
    // The outline of flag type `type` from the top of the pole `first` to the far lower corner
    // `second`, appended to `outline`.
    void makeUpEntity(int type, const TLPoint& first, const TLPoint& second,
                      std::vector<TLPoint>& outline);

private:
    // The band shows the flag from the first point to `second`, or nothing where there is none.
    void showFlag(const TLPoint& second);
    void takeType(const TLString& text);
    void takeFirstPoint(const TLString& text);
    void takeSecondPoint(const TLString& text);
    void dropInput();

    TLRubberBand* rubberBand = nullptr;
    TLEditor* editor = nullptr;
    TLFeatureLayer* layer = nullptr;
    std::vector<TLPoint> points;
    std::int32_t inputState = 0;
    std::int32_t flagType = 1;
    TLPoint firstPoint;
};

}  // namespace TMObjects
