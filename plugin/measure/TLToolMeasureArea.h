#pragma once

#include <QPointer>
#include <vector>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlgeo/TLGeometry.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLTool.h"

class TMDisplayArea;

namespace TMObjects {

class TLCoordinateSystem;
class TLEvent;
class TLFeatureLayer;
class TLMapView;
class TLRubberBand;

// Measures the area of a drawn or picked polygon, in the plane or on the ellipsoid; read-only.
// In feature mode (the start) a click picks the polygon of the current layer under it; in free
// mode clicks draw the polygon.
class TL_ACTIONEX_EXPORT TLToolMeasureArea : public TLTool {
public:
    TLToolMeasureArea();
    explicit TLToolMeasureArea(TLToolBuddy* buddy);
    ~TLToolMeasureArea() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;

    bool isMeasureFea();
    void setMeasureFea(bool on);
    double measurePolygon(TLRefPtr<TLGeometry> geometry);
    double doMeasure(TLRefPtr<TLCoordinateSystem> reference, TLRefPtr<TLGeometry> geometry);
    void DisplayMeasureArea(double value, TLTool* tool, bool show);
    void createRubberBand();
    void stopMeasuring();
    void clearSelectedFeature();
    void OnCurrLayerChanged(void* sender, TLEvent* event);
    // The user switched between plane and ellipsoid: the polygon shown is measured again.
    void react2check();

    int measureUnits() const { return units; }
    // Whether the last value came off the ellipsoid, and so is in square metres already.
    bool measuredOnEllipsoid() const { return lastOnEllipsoid; }

private:
    void pickFeature(TLMapView* view, const TLPoint& point);
    // The polygon of the current layer that contains the map point; empty when none.
    TLRefPtr<TLGeometry> polygonAt(TLMapView* view, TLFeatureLayer* layer, const TLPoint& point);
    void addVertex(const TLPoint& point);
    void showLiveBand(const TLPoint& pointer);
    TLRefPtr<TLGeometry> polygonWith(const TLPoint& pointer) const;
    void makeDialog();
    TLString bindingKey() const;

    TLRefPtr<TLGeometry> selectedGeometry;
    std::vector<TLPoint> points;
    TLRubberBand* rubberBand = nullptr;
    TLString projection;
    int measureFeature = 1;
    // Guarded: the dialog is a child of the main window and may go with it.
    QPointer<TMDisplayArea> dialog;
    TLSnapTool snapTool;
    int units = 9;

    TLRefPtr<TLGeometry> shownGeometry;
    bool lastOnEllipsoid = false;
};

}  // namespace TMObjects
