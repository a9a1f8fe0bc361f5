#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLRubberBand;
class TLEditor;
class TLFeatureLayer;
class TLSnapTool;

// Digitizes one square polygon, chosen from a numbered menu: 1 about a centre with a half side,
// 2 on an edge of two points. Typed input and clicks may be mixed; a click without a choice
// draws about a centre.
class TL_ACTIONEX_EXPORT TLCmdDigitizeSquare : public TLTool {
public:
    TLCmdDigitizeSquare();
    explicit TLCmdDigitizeSquare(TLToolBuddy* buddy);
    ~TLCmdDigitizeSquare() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;

    // Writes what the band shows as one polygon feature; false when it shows no ring or the
    // layer is no polygon layer.
    bool EndEntity();
    void Reset();

private:
    void chooseConstruction(const TLString& text);
    void takeFirstPoint(const TLString& text);
    void takeHalfSide(const TLString& text);
    void takeSecondPoint(const TLString& text);
    void finishTypedRing(const std::vector<TLPoint>& ring);
    void promptAfterFirstPoint();
    // The square the pointer at `p` makes with the first point in the current construction.
    std::vector<TLPoint> ringTo(const TLPoint& p) const;

    TLRubberBand* band = nullptr;
    TLEditor* editor = nullptr;
    TLFeatureLayer* layer = nullptr;
    std::vector<TLPoint> points;
    int step = 0;
    int mode = 1;
    TLPoint firstPoint;
    TLSnapTool* snapTool = nullptr;
};

}  // namespace TMObjects
