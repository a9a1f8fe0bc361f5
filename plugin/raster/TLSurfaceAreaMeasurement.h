#pragma once

#include <QPointer>
#include <vector>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlmap/TLTool.h"

class TMSurfaceAreaMeasurementDlg;

namespace TMObjects {

class TLRubberBand;

// Measures the terrain surface area inside a polygon on an elevation raster: clicks draw the
// polygon, a double click closes and measures it. The click count is never reset, so from the
// second polygon on a first click on the former polygon's last point is ignored and a double
// click takes effect after a single point.
class TL_ACTIONEX_EXPORT TLSurfaceAreaMeasurement : public TLTool {
public:
    TLSurfaceAreaMeasurement();
    explicit TLSurfaceAreaMeasurement(TLToolBuddy* buddy);
    ~TLSurfaceAreaMeasurement() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;

    TMSurfaceAreaMeasurementDlg* dialog() const;
    int pointCount() const { return mPointCount; }

protected:
    void DisplaySurfaecAreaMeasurementDlg();

private:
    // The dialog with its range drawn on the map, or null.
    TMSurfaceAreaMeasurementDlg* drawingDialog() const;

    int mPointCount = 0;
    std::vector<TLPoint> mPoints;
    TLPoint mLastPoint;
    TLRubberBand* mRubberBand = nullptr;
    QPointer<TMSurfaceAreaMeasurementDlg> mDialog;
    // A dialog let go whose deletion waits for the event loop.
    QPointer<TMSurfaceAreaMeasurementDlg> mRetired;
};

}  // namespace TMObjects
