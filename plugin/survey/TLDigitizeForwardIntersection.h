#pragma once

#include "TLPluginExport.h"
#include "survey/TLSurveyIntersectionTool.h"

namespace TMObjects {

class TLRubberBand;

// Constructs a point by forward intersection from two known points and the angles observed at
// them, through its dialog. Codes of the dialog: 1 and 2 a click for A and B; 3 and 4 a click
// that gives the angle at A or at B, shown as a line while the pointer moves; 5 the list holds P.
class TL_ACTIONEX_EXPORT TLDigitizeForwardIntersection : public TLSurveyIntersectionTool {
public:
    TLDigitizeForwardIntersection();
    explicit TLDigitizeForwardIntersection(TLToolBuddy* buddy);
    ~TLDigitizeForwardIntersection() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    // At an angle pick the typed A and B of the list, "x,y" each; at code 5 draws P.
    bool setMultipleInformation(TLArray<TLString> texts) override;

protected:
    TMIntersectionDialog* createDialog() override;
    int drawCode() const override;
    void onPicked(const TLPoint& p) override;
    void onLayerFound() override;
    void afterDraw(bool drawn, const TLRect& rect) override;

private:
    bool anglePending() const;
    void dropBand();

    TLRubberBand* rubberBand = nullptr;
};

}  // namespace TMObjects
