#pragma once

#include <QPointer>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlmap/TLTool.h"

class TMMeasurementForSurfaceDistanceDlg;

namespace TMObjects {

class TLRubberBand;

// Measures the distance along the terrain between two clicked points; a second click on the
// first point is ignored and the tool goes on waiting.
class TL_ACTIONEX_EXPORT TLMeasurementForSurfaceDistance : public TLTool {
public:
    TLMeasurementForSurfaceDistance();
    explicit TLMeasurementForSurfaceDistance(TLToolBuddy* buddy);
    ~TLMeasurementForSurfaceDistance() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;

    TMMeasurementForSurfaceDistanceDlg* dialog() const;

protected:
    void DisplayMeasurementDistanceDlg();

private:
    void makeBand();
    // Writes the click into a pair of the dialog, when it has a raster and there is a view.
    void writePoint(int which, const TLPoint& p);

    int mClickCount = 0;
    TLPoint mFirstPoint;
    QPointer<TMMeasurementForSurfaceDistanceDlg> mDialog;
    // A dialog let go whose deletion waits for the event loop.
    QPointer<TMMeasurementForSurfaceDistanceDlg> mRetired;
    TLRubberBand* mRubberBand = nullptr;
};

}  // namespace TMObjects
