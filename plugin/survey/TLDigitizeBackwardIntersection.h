#pragma once

#include "TLPluginExport.h"
#include "survey/TLSurveyIntersectionTool.h"

namespace TMObjects {

// Constructs a point by backward intersection from three known points, through its dialog.
// Codes of the dialog: 1, 2 and 3 a click for A, B and C; 4 the list holds P.
class TL_ACTIONEX_EXPORT TLDigitizeBackwardIntersection : public TLSurveyIntersectionTool {
public:
    TLDigitizeBackwardIntersection();
    explicit TLDigitizeBackwardIntersection(TLToolBuddy* buddy);
    ~TLDigitizeBackwardIntersection() override;

    void Reset() override;

protected:
    TMIntersectionDialog* createDialog() override;
    int drawCode() const override;
    void onPicked(const TLPoint& p) override;

private:
    TLPoint pointC;
};

}  // namespace TMObjects
