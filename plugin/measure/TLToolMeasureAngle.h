#pragma once

#include <QPointer>
#include <vector>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLTool.h"

class TMDisplayAngle;

namespace TMObjects {

class TLRubberBand;

// Measures the angle between two legs drawn on the map; read-only. Three clicks make the
// figure, the angle is taken at the second, and a fourth click starts over.
class TL_ACTIONEX_EXPORT TLToolMeasureAngle : public TLTool {
public:
    TLToolMeasureAngle();
    explicit TLToolMeasureAngle(TLToolBuddy* buddy);
    ~TLToolMeasureAngle() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;

    void createRubberBand();
    // The signed angle in radians, shown in the unit of the settings.
    void DisplayMeasureAngle(double value, TLTool* tool, bool show);

private:
    // A map point in device pixels: the angle is measured as the user sees it.
    TLPoint toImage(const TLPoint& map) const;
    void showLiveBand(const TLPoint& pointer);
    void startOver();

    std::vector<TLPoint> points;
    TLRubberBand* rubberBand = nullptr;
    // Guarded: the dialog is a child of the main window and may go with it.
    QPointer<TMDisplayAngle> dialog;
    TLSnapTool snapTool;
};

}  // namespace TMObjects
