#pragma once

#include "TLPluginExport.h"
#include "survey/TLSurveyIntersectionTool.h"

namespace TMObjects {

class TLRubberBand;

// Constructs a point by side intersection from two known points and two distances, through its
// dialog. Codes of the dialog: 1 and 2 a click for A and B; 3 and 4 a click whose distance to A
// or B is AP or BP, shown as a line from the other known point; 5 the list holds P.
class TL_ACTIONEX_EXPORT TLDigitizeSideIntersection : public TLSurveyIntersectionTool {
public:
    TLDigitizeSideIntersection();
    explicit TLDigitizeSideIntersection(TLToolBuddy* buddy);
    ~TLDigitizeSideIntersection() override;

    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    // Also takes the lines of the distance picks off the map.
    void Reset() override;

protected:
    TMIntersectionDialog* createDialog() override;
    int drawCode() const override;
    void onPicked(const TLPoint& p) override;
    void onLayerFound() override;

private:
    // The line of the pending distance pick through `p`.
    void follow(const TLPoint& p);

    TLRubberBand* bandToA = nullptr;
    TLRubberBand* bandToB = nullptr;
    // Never set: the lines are always drawn in full.
    bool drawShort = false;
};

}  // namespace TMObjects
