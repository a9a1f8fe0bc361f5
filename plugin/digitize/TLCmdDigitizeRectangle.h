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

// Digitizes one rectangle polygon, chosen from a numbered menu: 1 by two opposite corners,
// 2 by an edge and a point on the opposite edge, 3 by an edge and a signed width, 4 by a length
// and a width above a point. Typed input and clicks may be mixed; a click without a choice
// draws by two corners.
class TL_ACTIONEX_EXPORT TLCmdDigitizeRectangle : public TLTool {
public:
    TLCmdDigitizeRectangle();
    explicit TLCmdDigitizeRectangle(TLToolBuddy* buddy);
    ~TLCmdDigitizeRectangle() override;

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
    void takeSecondInput(const TLString& text);
    void takeThirdInput(const TLString& text);
    void takeLengthAndWidth(const TLString& text);
    void keepEdgeEnd(const TLPoint& p);
    void finishTypedRing(const std::vector<TLPoint>& ring);

    void pressFirstPoint(const TLPoint& p);
    void pressSecondPoint(const TLPoint& p);
    void pressOnTwoPoints();

    const char* secondPointPrompt() const;

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
